int source;
