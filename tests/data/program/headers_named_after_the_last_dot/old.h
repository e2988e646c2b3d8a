// An older header, which the new one replaces although it is shorter than these two long lines are.
// An older header, which the new one replaces although it is shorter than these two long lines are.
