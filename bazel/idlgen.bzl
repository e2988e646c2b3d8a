"""A Bazel macro for headers that idlgen-header generates."""

def idlgen_library(name, srcs, tool = "@idlgen//:bin/idlgen-header", **kwargs):
    """Declares a cc_library with the headers of the IDL files.

    The paths in include statements are relative to the package.

    Args:
      name: the name of the cc_library.
      srcs: the IDL files.
      tool: the idlgen-header to run.
      **kwargs: other arguments of the cc_library, such as deps.
    """
    headers = []
    for src in srcs:
        header = name + ".idlgen/" + src.rpartition(".")[0] + ".h"
        native.genrule(
            name = header + "_rule",
            srcs = [src],
            outs = [header],
            cmd = "$(location {}) $< $@".format(tool),
            tools = [tool],
        )
        headers.append(header)
    native.cc_library(name = name, hdrs = headers, includes = [name + ".idlgen"], **kwargs)
