"""The kinds of trees that trees.py makes besides the cases of the tests."""
import collections

from cases import NO_MARK
from kinds import ERROR, FORM, UNSEEN, VALID, WARNING, words

# `files` has the statements of each file. "include b" stands for an include of the file b by one
# of its paths.
# In the first file with an "@", the message that is expected is at a line with "@"; in others, any
# error or warning is. `filled` says whether other statements may stand between these. "link b" in
# place of statements is a link to a file. A slip is put into a valid tree: its place, and what may
# stand there instead of a word "{}", or of a path.
Tree = collections.namedtuple("Tree", "name expected files filled slip", defaults=[None])


def tree(name, expected, filled=True, **files):
    return Tree(name, expected, files, filled)


def slip(name, expected, place, *forms):
    return Tree(name, expected, {}, True, (place, forms))


RECORD, NAMESPACE, ITEM = "the name of a record", "a namespace", "the name of an item"
PATH, MISSING = "an include of a file of the tree", "an include of no file"
FORGOTTEN, NO_BASE = "an include that is left out", "a base directory that is left out"


GEO = ("namespace geo", "message P { }")
GEO_MSG = ("namespace geo.msg", "message P { }")

TREES = [
    tree("valid", VALID),

    # Slips in valid trees.
    slip("slip in the name of a record", FORM, RECORD, *words(
        """{}; {}, "{}" '{}' {}() ({}) 1{} 12{} {}= {}! {}* {}[3] {}<T> {dashed} {}. {}- “{}” {}…
        {}()"""), NO_MARK + "{}", "{}\t", "\t{}", "{}\xa0", "{} @;", "{} @()"),
    slip("slip in a namespace", FORM, NAMESPACE, *words(
        """{}; {}, "{}" ({}) {slashed} {slashed}/ {}/ 1{} {dashed} {}[3] {}<T> {}- “{}”"""),
         NO_MARK + "{}", "{}\t", "\t{}", "{}\xa0", "{} @;", "={}"),
    slip("slip in the name of an item", FORM, ITEM, *words(
        """{}; {}, "{}" ({}) {}[3] {dashed} {}. “{}”"""), NO_MARK + "{}", "{}\t", "{}\xa0"),
    slip("misspelt include", WARNING, PATH, *words(
        "{above}{lost}{ext} {above}{stem}s{ext} {above}{Stem}{ext} {above}{stem}{EXT}"
        " {above}{stem}.ild {above}{stem}.srv")),
    slip("moved include", WARNING, PATH, *words(
        "{stem}{ext} old/{stem}{ext} {above}old/{stem}{ext} geo/{stem}{ext}")),
    slip("missing include", WARNING, MISSING, *words(
        "{above}nothing{ext} nothing.idl old/nothing.idl")),
    slip("forgotten include", ERROR, FORGOTTEN),
    slip("forgotten base directory", WARNING, NO_BASE),

    # Links.
    tree("file and a link to it", ERROR, a=("include b", "include @c"), b=GEO, c="link b"),
    tree("file and a link to it", ERROR, a=("include c", "include @b"), b=GEO, c="hard link b"),
    Tree("links beside other files", VALID, {
        "one/status.idl": ('include "header.idl"', "namespace geo", "message S { x: One }"),
        "one/header.idl": ("namespace geo", "message One { }", "enum Two { A: 1 }"),
        "two/status.idl": "link one/status.idl", "two/header.idl": "link two.idl",
        "two.idl": ("namespace geo", "message One { } enum E { B: 1 }")}, True),

    # Types of other files.
    tree("include below its type", VALID,
         a=("namespace nav", "message Q { x: geo.P }", "include b"), b=GEO),
    tree("type found too early", ERROR,
         a=("include b", "namespace nav", "service geo { request { x: @geo.P } response { } }"),
         b=GEO),
    tree("what stops no search", VALID,
         a=("include b", "namespace nav", "enum E { geo: 1 }", "message Q { geo: int8 x: geo.P }"),
         b=GEO),
    tree("message named like a type of C++", VALID, False,
         a=("include b", "namespace robot", "message Q { x: size_t y: string }"),
         b=("namespace robot", "message size_t { }", "message string { }")),
    tree("type of the C library", VALID,
         a=("message Q { x: string y: uint z: ssize_t }",), b=("include a", *GEO)),

    # Two declarations of one name.
    tree("an item and a type", VALID,
         a=("include b", "namespace geo", "enum E { P: 1 }"), b=GEO),
    tree("an item and a type", VALID,
         a=("include b", "namespace geo", "service P { request { } response { } }"),
         b=("namespace geo", "enum E { P: 1 }")),
    tree("type hidden by an item", ERROR,
         a=("include b", "include c", "namespace geo.nav", "message Q { x: @P }"),
         b=GEO, c=("namespace geo.nav", "enum E { P: 1 }")),
    tree("type of an outer namespace, not hidden", VALID,
         a=("include b", "namespace geo.nav", "enum E { P: 1 }",
            "message Q { x: geo.P y: .geo.P }"), b=GEO),
    tree("type and namespace of a name", ERROR,
         a=("include b", "namespace geo", "enum E { @msg: 1 }"), b=GEO_MSG),
    tree("order of includes", UNSEEN,
         a=("include c", "include b"), b=("include d", "namespace app", "message R { x: geo.P }"),
         c=("namespace app.geo", "message R { }"), d=GEO),
    tree("member changes a meaning", WARNING,
         a=("include b", "namespace geo.nav", "message Q { @q: @P @P: int8 }"), b=GEO),
]
