"""The kinds of files that compilers.py makes besides the cases of the tests."""
import collections
import itertools
import re

# In the texts, "@" is before each word that an error or warning may be about. A text that begins
# and ends with a line feed is a line of its own, and stays one. A tuple has several statements,
# between which others may stand.
Kind = collections.namedtuple("Kind", "name expected place files texts")

# What is expected of idlgen-header, and of both compilers:
VALID = "nothing is said, and both accept"
UNSEEN = "nothing is said, but other files or the value decide"
COPIED = "no error, and both accept"
WARNING = "a warning"
TOLD = "an error or a warning"
ERROR = "an error, and none accepts"
FORM = "an error, since a word is not what its place means"
BELOW = "an error at the mark or below, since words are missing, and none accepts"

# Where the texts stand: these are put into a random file.
NAME, TYPE, VALUE = "a name", "a type", "a value"
MEMBER, ITEM, STATEMENT = "members", "items", "statements"
# The same on a line of its own: the words are out of step, and the next line is right again.
MEMBER_LINE, ITEM_LINE, STATEMENT_LINE = "a member's line", "an item's line", "a statement's line"
END = "the last statement"
# These change a file. The text is the word that is concerned, or a function of the whole text.
DROP, DOUBLE, CHANGE = "drop a word", "double a word", "change the text"

# What else the files have:
ANY = "perhaps includes, perhaps a namespace"
ALONE = "no includes"
INCLUDES = "includes"
PLAIN = "neither includes nor a namespace"
NOTHING = "nothing"


def words(text):
    return re.split("[ \n]+", text.strip("\n "))


def add_carriage_returns(text):
    # Told at the first line that is neither empty nor a comment.
    marked = re.sub("^(?= *[^ \n#/])", "@", text, count=1, flags=re.MULTILINE)
    return marked.replace("\n", "\r\n") + "\r\n"


# geometry.idl, with geometry.Point, exists beside each file.
KINDS = [
    Kind("valid", VALID, STATEMENT, ANY, [""]),

    # Names.
    Kind("keyword as a name", ERROR, NAME, ANY, words("new not_eq this operator template int")),
    Kind("C++20 keyword as a name", WARNING, NAME, ANY, words("requires char8_t constinit")),
    Kind("reserved name", WARNING, NAME, ANY, words("__x _X __int128 __func__ _Pragma")),
    Kind("character in a name", FORM, NAME, ANY, words(
        r"""a-b 1st 7 x! x? a+b x` a-b-c a/b "x" x% x— ‘x’ x½ x‐y x… x§ x[] x=3
        (x) x/**/ *x &x x, x} x; x() x/**/y x\ x.y""")),
    Kind("invisible character in a name", FORM, NAME, ANY, words(
        "x\xa0y x\u200by x\u200d x\u2060 x² x\u3000y \u3000x x\u1680y x\u180ey"
        " \tx x\t x\r \t x\x01 \x7fx x\x0cy x\tint8")),
    Kind("other characters", UNSEEN, NAME, ANY, words("x₁ x🙂 x€")),
    Kind("sign in a name", ERROR, NAME, ANY, words("@x× @x→ @a−b @x■")),
    Kind("unusual name", VALID, NAME, ANY, words(
        "a$b e\u0301t µm ªx ºx a·b final override import module")),
    Kind("type before the name, with includes", WARNING, MEMBER, INCLUDES, ["@int8 @x"]),
    Kind("two items of a name", ERROR, ITEM, ANY, ["A: 1 @A: 2", "A: 1 B: 2 @A: 1"]),
    Kind("two types of a name", ERROR, STATEMENT, ANY, list(itertools.product(
        ["message P { }", "enum P { }", "service P { request { } response { } }"],
        ["message @P { }", "enum @P { }", "service @P { request { } response { } }"]))),
    Kind("item named as an enum", VALID, STATEMENT, ANY, [("enum F { A: 1 }", "enum E { F: 0 }")]),
    Kind("contextual name of a type", VALID, STATEMENT, ANY, [
        "message main { main: int8 }", "message message { }", "message P { P: int8 }",
        "service response { request { } response { response: int8 } }"]),
    Kind("global std or zentho", ERROR, STATEMENT, PLAIN, [
        "message @zentho { x: int8 }", "enum E { @std: 0 }", "enum @zentho { A: 1 }"]),

    # Types.
    Kind("misspelt type", ERROR, TYPE, ALONE, words(
        "in8 int9 Int8 [Strng] [[Int]] vec3 boolean")),
    Kind("unknown type, with includes", UNSEEN, TYPE, INCLUDES, words("Strng [Missing] a.Missing")),
    Kind("unknown type with dots", ERROR, TYPE, ALONE, words(
        "other.Missing [nav.Missing] Missing.Request .other.Missing")),
    Kind("unknown type after a dot", UNSEEN, TYPE, ANY, words(
        ".Missing std.Missing [zentho.Missing]")),
    Kind("keyword as a type", ERROR, TYPE, ANY, words(
        "class [void] [auto] enum template operator")),
    Kind("character in a type", ERROR, TYPE, ANY, words(
        """int8? "int8" 'int8' a-b string;y int8\xa0 “int8” [int8,3] int8]] int8[] int8[3]
        [int8]x [ int8. .. . a..b a/b int8\t [string]\r [\tint8] \x01int8""")),
    Kind("odd type", FORM, TYPE, ANY, words(
        r"""typename.N int8_t* (int) int/**/ int\ const.int8 int&& float[3]""") + [
            "int\r", "\tint", "int\u1680static", "int\u180e"]),
    Kind("template as a type", WARNING, TYPE, ANY, words(
        "[char8_t] [std.vector<int>] std.map<int,std.string> std.array<int,3>")),
    Kind("template as a type, with includes", TOLD, TYPE, INCLUDES, words(
        "vector<int8> List<string> sequence<float64> map<string,int32> [Foo<Missing>]")),
    Kind("unknown name in a template", ERROR, TYPE, ALONE, words(
        "vector<int8> List<string> std.vector<Missing> [std.vector<float64>]")),
    Kind("several words for a type", ERROR, MEMBER_LINE, ANY, [
        "x: @[int8 @]", "x: @[ int8]", "@x: int8 @[3]",
        "@repeated @stops: @int8 @optional @x: @int8"]),
    Kind("part of a service within itself", ERROR, STATEMENT, ANY, [
        ("message Request { }", "service S { request { x: @Request } response { } }"),
        ("message Response { }", "service S { request { } response { x: @Response } }")]),
    Kind("service below its use", ERROR, STATEMENT, ALONE, [
        ("service T { request { x: @S.Request } response { } }",
         "service S { request { } response { } }")]),
    Kind("no type", ERROR, STATEMENT, ALONE, [
        ("message P { y: int8 }", "message Q { x: [@P.y] }"),
        ("service S { request { } response { } }",
         "service T { request { x: @S.request } response { } }")]),
    Kind("type hidden by an item", ERROR, STATEMENT, ANY, [
        ("enum E { F: 0 }", "enum F { A: 1 }", "message P { x: [@F] }")]),
    Kind("member changes a meaning", WARNING, STATEMENT, ANY, [
        ("enum P { A: 1 }", "message Q { x: int8 @P: @[P] }"),
        "service S { request { } response { @Request: @Request } }"]),
    Kind("type of another file before a type", VALID, STATEMENT, PLAIN, [
        ('\ninclude "geometry.idl"\n', "namespace r", "message P { x: geometry.Point }",
         "service geometry { request { } response { } }")]),
    Kind("message used before it by a path", ERROR, STATEMENT, PLAIN, [
        ("namespace r.nav", "message Q { x: @nav.P }", "message P { }"),
        ("namespace r.nav", "message P { x: @r.nav.P }")]),
    Kind("repeated component", VALID, STATEMENT, PLAIN, [
        ("namespace a.b.a", "message P { }", "message Q { x: a.P y: b.a.P z: .a.b.a.P w: [P] }")]),

    # Values.
    Kind("no value", ERROR, VALUE, ANY, words(
        """08 0x 1.5 = "a" nullptr 0b2 1_000 10k 12abc 0x1G 'a '' 1} (1 1) - 1+ + 1''0 1' 1e3 1. .5
        0x1p3 1<< 1; 1, 1,2 ; , 1i 1lL ‘a’ )1( 1lul 1uu 0x1e+1 true(1) (int) (float)1
        static_cast<int>1 sizeof<1 int8_t+1 u8'ab' u'ab' U'ab' L'\\u1' 'a'or(1) 1?2 --1 ++1 size_t
        int Mode.IDLE E.A (E::A)""")),
    Kind("character in a value", FORM, VALUE, ANY, words(
        "1\xa0 \u200b1 1\t \t1 1\r 1\x0c 1\x01 1\u3000 \u16801 1\u180e a.B\r")),
    Kind("odd value", FORM, VALUE, ANY, words(
        r"""1,D=7 0};inline/**/int/**/x=7;enum/**/G<%D=1 1/**/ 1\ 1,D 1<%2 f<1,D>(2) f(R"(") f(1;2)
        f(<%) sizeof+1 int(1.5) 1.5<2 int()""")),
    Kind("values that end one in another", FORM, ITEM, ANY, [
        'A: @sizeof(R"x(") B: @(")x")', "A: @f(' B: @')", "A: @(1 B: @2)", "A: @f(1/* B: @*/2)"]),
    Kind("no value of an item", ERROR, ITEM, ANY, [
        "A: 1 B: @(A)1", "A: 1 B: @A(1)", "A: 1 B: @A++", "A: 1 B: @&A", "A: 1 B: @*A",
        "A: 1 B: @A?A", "A: @sizeof(int", "A: 1 B: @A=1"]),
    Kind("value of a type", WARNING, STATEMENT, ANY, [
        "enum E { A: @sizeof(E) }", "enum E { A: @E(0) }", "enum E { A: @(E)1 }",
        ("message P { }", "enum E { A: @sizeof(P) }"),
        ("enum E { A: @(F)1 }", "enum F { B: 1 }")]),
    Kind("name of no item", WARNING, VALUE, ALONE, words(
        "MISSING A|MISSING (MISSING) MISSING+1 x")),
    Kind("name of no item, with includes", UNSEEN, VALUE, INCLUDES, words("MISSING (MISSING|1)")),
    Kind("items without values", WARNING, ITEM, ALONE, ["A: @B", "A: @B C: @D"]),
    Kind("later item as a value", WARNING, ITEM, ALONE, [
        "A: @B B: 1", "A: @A", "A: @B+B+B B: 1"]),
    Kind("value over 64 bits", WARNING, VALUE, ANY, words(
        "18446744073709551616 0x10000000000000000 -18446744073709551617")),
    Kind("value out of range", UNSEEN, VALUE, ANY, words(
        "1<<64 1<<-1 2147483647+1 1/0 1<<40 1<<32 0x7FFFFFFF+1 -1<<1")),
    Kind("cast or size", VALID, STATEMENT, ANY, [
        "enum E { A: (int)1 B: int(3) C: (unsigned)-1 D: sizeof(int) F: (A)-1 G: (A)+1 }",
        "enum E { A: bool(1) B: (char)65 C: (size_t)1 D: sizeof(int8_t) F: unsigned(7) }",
        ("enum E { A: 1 }", "enum F { G: (A)&1 H: (A)*2 }"),
        "enum E { A: not(1) B: compl(0) C: !(1) D: ((A)) F: A<B G: A==1 H: A!=B }"]),
    Kind("rare C++ as a value", COPIED, VALUE, ANY, words(
        "'??' '?' '++' static_cast<int>(1) alignof(int) noexcept(1) (1,2) L'é' u'é'"
        " sizeof(sizeof(int)) decltype(1)(2)")),
    Kind("cast to an enum as a value", COPIED, STATEMENT, ANY, [
        ("enum E { A: 1 }", "enum F { B: @(E)1 C: @E(0) D: @sizeof(E) I: @(E)-1 }")]),
    Kind("rare C++ as a value, perhaps not accepted", WARNING, VALUE, ANY, words(
        "f(1) g(1,2) f<1>(2) float(1) sizeof()")),
    Kind("character of some compilers", WARNING, VALUE, ANY, words(r"'\400' '\xffff' L'ab' 'é'")),
    Kind("macro of a limit as a value", VALID, STATEMENT, ANY, [
        ("message P { x: int8 }", "enum E { A: UINT32_MAX B: INT8_MIN C: INT_LEAST16_MAX }"),
        ("message P { x: int64 }",
         "enum E { A: SIZE_MAX B: PTRDIFF_MIN C: UINTPTR_MAX D: INT_FAST8_MAX }")]),
    Kind("macro of a literal as a value", COPIED, STATEMENT, ANY, [
        ("message P { x: [uint8] }", "enum E { A: @INT8_C(3) B: @UINT64_C(0x10) C: @INTMAX_C(1) }")]),
    Kind("macro of a limit as a value, without an integer", UNSEEN, STATEMENT, NOTHING, [
        "enum E { A: UINT32_MAX }"]),
    Kind("spaces in a value", ERROR, ITEM_LINE, ANY, ["A: 1 @| 2", "A: 1 @+: @B"]),
    Kind("equals sign", ERROR, ITEM_LINE, ANY, ["A: @=1", "@A=: 1", "@A= @1"]),
    Kind("comma or semicolon", ERROR, ITEM_LINE, ANY, ["A: @1, B: 2", "A: @1; B: @2;", "@A, @B"]),
    Kind("comma or semicolon in a member", ERROR, MEMBER_LINE, ANY, [
        "x: @int8; y: @int8;", "x: @string, y: @int8;", "x:@int8;y:@int8", "@x, @y: @int8"]),

    # Includes and namespaces.
    Kind("include of another file", WARNING, STATEMENT, ANY, [
        "\ninclude @base.idl\n", "include @'b.idl'", 'include @"b.idl', 'include @"base"']),
    Kind("odd include", FORM, STATEMENT, ANY, [
        'include @"a"b.idl"', 'include @"a\tb.idl"', 'include @"a.idl\r"']),
    Kind("path with other characters", UNSEEN, STATEMENT, ANY, ['include "a\u3000b.idl"']),
    Kind("namespace that is no name", ERROR, STATEMENT, PLAIN, [
        "namespace @1.0", "namespace @a.int.b", 'namespace @"a"', "namespace @a.b;c"]),
    Kind("control character in a namespace", FORM, STATEMENT, PLAIN, [
        "namespace @a\t", "namespace @a.b\r", "namespace @a\u3000b", "namespace @\u1680a.b"]),

    # Statements.
    Kind("unknown statement", ERROR, STATEMENT_LINE, ANY, [
        '@syntax = "proto3"', "@; message P { }", "@\xa0message P { }", "@option x: int8"]),
    Kind("text after a name", ERROR, STATEMENT_LINE, ANY, [
        "message P @(x: int8)", "message P @x: int8 }"]),
    Kind("parts of a service", ERROR, STATEMENT_LINE, ANY, [
        "service S { @response { } request { } }", "service S { @}",
        "service S { request { } response { } @request { } }", "service S { @x: int8 }",
        "service S @request { } response { }", "service S { @Request { } response { } }"]),
    Kind("glued brace", BELOW, STATEMENT, ANY, [
        "message P { x: @int8}", "message P { x: @int8}}", "message P { x: int8 @};",
        "service S { request { x: @int8} response { } }", "service S { request { } response { @}}",
        "message P @{{ x: int8 }", "service S { @request{ x: int8 } response { } }"]),
    Kind("missing closing brace", BELOW, STATEMENT, ANY, [
        "message P { x: @int8", "enum E { A: @1", "message P @{",
        "service S { request { } response { @}", "service S { request { x: @int8 response { } }"]),
    Kind("missing name, type or value", BELOW, STATEMENT, ANY, [
        "@enum { A: 1 }", "@service { }", "message P { x: int8 @y: }", "message P { @x }",
        "message P { @x: y: int8 }", "enum E { @A: }", "enum E { @A: B: 1 }"]),
    Kind("cut statement", BELOW, END, ANY, [
        "@message", "@message P", "@message P {", "@include", "@enum E { A", "@message P { x:",
        "service S { request { @}", "service S { request { } response { @}"]),

    # Comments.
    Kind("C comment", BELOW, MEMBER, ANY, [
        "@/* note */ x: int8", "@/* a note */ x: int8", "x: int8 @/* a */", "@x: int8/* c */"]),

    # Changes of a whole file.
    Kind("dropped brace", BELOW, DROP, ANY, ["}", "{"]),
    Kind("dropped type or value", BELOW, DROP, ANY, ["type"]),
    Kind("doubled brace", BELOW, DOUBLE, ANY, ["}", "{"]),
    Kind("byte order mark", ERROR, CHANGE, ANY, ["@\ufeff".__add__]),
    Kind("carriage returns", FORM, CHANGE, ANY, [add_carriage_returns]),
]
