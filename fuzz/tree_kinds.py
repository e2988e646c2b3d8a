"""The kinds of trees that trees.py makes besides the cases of the tests."""
import collections

from kinds import ERROR, UNSEEN, VALID, WARNING

# `files` has the statements of each file. "include b" stands for an include of the file b by one
# of its paths.
# In the first file with an "@", the message that is expected is at a line with "@"; in others, any
# error or warning is. `filled` says whether other statements may stand between these.
Tree = collections.namedtuple("Tree", "name expected files filled")


def tree(name, expected, filled=True, **files):
    return Tree(name, expected, files, filled)


GEO = ("namespace geo", "message P { }")
GEO_MSG = ("namespace geo.msg", "message P { }")

TREES = [
    tree("valid", VALID),

    # Types of other files.
    tree("include below its type", VALID,
         a=("namespace nav", "message Q { x: geo.P }", "include b"), b=GEO),
    tree("namespace found too early", ERROR,
         a=("include b", "namespace app.geo", "message Q { x: @geo.P }"), b=GEO),
    tree("namespace found too early", ERROR,
         a=("include b", "include c", "namespace nav", "message Q { x: [@geo.msg.P] }"),
         b=GEO_MSG, c=("namespace nav.geo", "message R { }")),
    tree("type found too early", ERROR,
         a=("include b", "namespace nav", "message Q { x: @geo.P }", "enum geo { A: 1 }"), b=GEO),
    tree("type found too early", ERROR,
         a=("include b", "namespace nav", "service geo { request { x: @geo.P } response { } }"),
         b=GEO),
    tree("what stops no search", VALID,
         a=("include b", "namespace nav", "enum E { geo: 1 }", "message Q { geo: int8 x: geo.P }"),
         b=GEO),
    tree("message below its use, and one further out", WARNING,
         a=("include b", "namespace geo.nav", "message Q { x: @P }", "message P { }"), b=GEO),
    tree("enum below its use, and a message further out", VALID,
         a=("include b", "namespace geo.nav", "message Q { x: P }", "enum P { A: 1 }"), b=GEO),
    tree("forgotten include of an included file", ERROR,
         a=("include c", "include b", "namespace nav", "message Q { x: nav.R }"),
         b=("namespace nav", "message R { x: @geo.P }"), c=GEO),
    tree("message named like a type of C++", VALID, False,
         a=("include b", "namespace robot", "message Q { x: size_t y: string }"),
         b=("namespace robot", "message size_t { }", "message string { }")),
    tree("type of the C library", VALID,
         a=("message Q { x: string y: uint z: ssize_t }",), b=("include a", *GEO)),

    # Two declarations of one name.
    tree("two declarations", ERROR,
         a=("include b", "message @P { x: int8 }"), b=("include c",), c=("enum P { A: 1 }",)),
    tree("an item and a type", VALID,
         a=("include b", "namespace geo", "enum E { P: 1 }"), b=GEO),
    tree("an item and a type", VALID,
         a=("include b", "namespace geo", "service P { request { } response { } }"),
         b=("namespace geo", "enum E { P: 1 }")),
    tree("type hidden by an item", ERROR,
         a=("include b", "namespace geo", "enum E { P: 1 }", "message Q { x: [@geo.P] }"), b=GEO),
    tree("type hidden by an item", ERROR,
         a=("include b", "namespace geo", "enum P { A: 1 }", "message Q { x: @P }"),
         b=("namespace geo", "enum E { P: 1 }")),
    tree("type hidden by an item", ERROR,
         a=("include b", "include c", "namespace geo.nav", "message Q { x: @P }"),
         b=GEO, c=("namespace geo.nav", "enum E { P: 1 }")),
    tree("type of an outer namespace, not hidden", VALID,
         a=("include b", "namespace geo.nav", "enum E { P: 1 }",
            "message Q { x: geo.P y: .geo.P }"), b=GEO),
    tree("one name in other namespaces", VALID,
         a=("include b", "namespace geo.msg", "message P { }", "message Q { x: P y: geo.P }"),
         b=GEO),
    tree("type and namespace of a name", ERROR,
         a=("include b", "namespace geo", "enum E { @msg: 1 }"), b=GEO_MSG),
    tree("type and namespace of a name", ERROR,
         a=("include b", "namespace @geo.msg", "message R { }"),
         b=("namespace geo", "enum E { msg: 0 }")),
    tree("name of the framework's namespace", ERROR,
         a=("include b", "namespace @robot.nav", "service P { request { } response { } }"),
         b=("namespace zentho", "message robot { }")),
    tree("enum named std", ERROR, False,
         a=("include b", "namespace robot.nav", "message Q { x: [@string] }"),
         b=("namespace robot", "enum @std { }")),
    tree("included files that do not fit", ERROR,
         a=("include d", "include @c", "message Q { }"), b=GEO, d=("include b",),
         c=("namespace geo", "enum P { A: 1 }")),
    tree("order of includes", UNSEEN,
         a=("include c", "include b"), b=("include d", "namespace app", "message R { x: geo.P }"),
         c=("namespace app.geo", "message R { }"), d=GEO),

    # Members, values and includes.
    tree("member changes a meaning", WARNING,
         a=("include b", "namespace geo.nav", "message Q { @q: @P @P: int8 }"), b=GEO),
    tree("value that no file declares", WARNING,
         a=("include b", "namespace nav", "enum E { A: @MISSING }"), b=GEO),
    tree("include of the file itself", WARNING, a=("include @a", "namespace nav", "message Q { }")),
]
