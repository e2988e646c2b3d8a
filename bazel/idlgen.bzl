"""A Bazel macro for headers that idlgen-header generates."""

def idlgen_headers(name, srcs, tool = "@idlgen//:bin/idlgen-header", **kwargs):
    """Declares a genrule for the header of each IDL file.

    Args:
      name: the directory of the headers below that of the package. A cc_library needs it in
        `includes`.
      srcs: the IDL files, named relative to the package.
      tool: the idlgen-header to run.
      **kwargs: other arguments of the genrules, such as tags, testonly and visibility.

    Returns:
      The labels of the headers, in the order of srcs, for `hdrs` of a cc_library.
    """
    headers = []
    for src in srcs:
        path = src[1:] if src.startswith(":") else src
        header = "{}/{}.h".format(name, _without_extension(path))
        native.genrule(
            name = header + "_rule",
            srcs = [src],
            outs = [header],
            cmd = "$(location {}) \"$<\" \"$@\"".format(tool),
            tools = [tool],
            **kwargs
        )
        headers.append(":" + header)
    return headers

def _without_extension(path):
    for character in [":", "\"", "$", "\\", "`"]:
        if character in path:
            fail("idlgen_headers does not support {} in the name {}".format(character, path))
    file = path.rpartition("/")[2]
    stem, _, extension = file.rpartition(".")
    if not stem or not extension:
        fail("{} has no extension to replace with .h".format(path))
    return path[:-len(extension) - 1]
