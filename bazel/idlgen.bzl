"""A Bazel macro for headers that idlgen-header generates."""

def idlgen_headers(
        name,
        srcs,
        deps = [],
        werror = False,
        tool = "@idlgen//:bin/idlgen-header",
        **kwargs):
    """Declares a genrule that checks the IDL files, and one for the header of each.

    Args:
      name: the directory of the headers below that of the package. A cc_library needs it in
        `includes`.
      srcs: the IDL files, named relative to the package.
      deps: labels of all IDL files that they include, also indirectly, and that are not in srcs,
        or of their headers if there is nothing else.
      werror: whether warnings fail the build.
      tool: the idlgen-header to run.
      **kwargs: other arguments of the genrules, such as tags, testonly and visibility.

    Returns:
      The labels of the headers, in the order of srcs, for `hdrs` of a cc_library.
    """
    stamp = name + "_check.stamp"
    _check(name + "_check", srcs, deps, werror, stamp, tool, kwargs)
    headers = []
    for src in srcs:
        header = "{}/{}.h".format(name, _without_extension(_name(src)))
        native.genrule(
            name = header + "_rule",
            # The stamp is always empty, so it generates nothing again.
            srcs = [src, stamp],
            outs = [header],
            # -w: the check has shown the warnings. Bazel quotes what $(location) stands for.
            cmd = "$(location {}) -w $(location {}) $(location {})".format(tool, src, header),
            tools = [tool],
            **kwargs
        )
        headers.append(":" + header)
    return headers

def _check(name, srcs, deps, werror, stamp, tool, kwargs):
    # The base directories are the packages of the files, each a path without the name, and the
    # directory of all packages, in the sources and in the output.
    lines = ["set --"]
    for label in srcs + deps:
        lines.append("file=./$(location {})".format(label))
        below = "/*" * len(_name(label).split("/"))
        lines.append("set -- \"$$@\" -I \"$${{file%{}}}\"".format(below))
    files = " ".join(["$(location {})".format(src) for src in srcs])
    lines.append("$(location {}) --check {} \"$$@\" -I . -I $(BINDIR) --stamp \"$@\" {}".format(
        tool,
        "--werror" if werror else "",
        files,
    ))
    native.genrule(
        name = name,
        srcs = srcs + [label for label in deps if label not in srcs],
        outs = [stamp],
        cmd = "\n".join(lines),
        tools = [tool],
        **kwargs
    )

def _name(label):
    """Returns the name of a file: the label without its package."""
    path = label.rpartition(":")[2]
    if path.startswith("//") or path.startswith("@"):
        fail("idlgen_headers needs the name of the file in the label {}".format(label))
    for character in ["(", ")"]:  # A label in $(location) ends there.
        if character in path:
            fail("idlgen_headers does not support {} in the name {}".format(character, path))
    return path

def _without_extension(path):
    file = path.rpartition("/")[2]
    stem, _, extension = file.rpartition(".")
    if not stem or not extension:
        fail("{} has no extension to replace with .h".format(path))
    return path[:-len(extension) - 1]
