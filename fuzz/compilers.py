#!/usr/bin/env python3
"""Compares the verdicts of idlgen-header with those of g++ and clang++.

compilers.py BUILD [--count N] [--seed S] [--jobs J] [--keep DIR] [--kind TEXT]

Makes random IDL files, valid or with one mistake at a known line. idlgen makes the header, both
compilers check it as C++17, and idlgen-header is run. A disagreement is any of these:

- an error, but a compiler accepts the header, except in kinds whose header may compile
- no message, but a compiler rejects the header, except in kinds that only other files decide
- a message at a line without a mistake, a mistake without a message or with another severity
- at status 0 a header that is not the one of idlgen, at status 1 a header
- a message without excerpt or with a place that does not exist, more than 20 messages

Prints each disagreement, then a table of the kinds. The status is 1 if there is a disagreement.
--keep copies the files of the disagreements. --kind selects the kinds whose name has the text.
"""
import argparse
import collections
import concurrent.futures
import functools
import itertools
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile

# Kind: what is expected; place; alternatives.
#
# Expected is a severity, "told" for either or "silent". "compiles": compilers may accept an error.
# "unseen": they may reject what is silent. "loose": words are out of step, so that the message may
# be at a later line. "includes", "alone": with or without include statements. "global": without a
# namespace. "plain": without both. A name, type or value is put into a member, item or statement.
# In other places, two spaces separate the alternatives, and " | " statements between which others
# may stand. "@" marks the lines of the mistake, "¶" is a line feed and "␣" a space.
KINDS = """
valid: silent; statement;
keyword as a name: error; name; class new and xor not_eq asm this operator template true int nullptr
C++20 keyword as a name: warning; name; concept requires co_await char8_t consteval constinit
reserved name: warning; name; __x _X __int128 __func__ _Pragma __init__
built-in type as a name: warning; member; @int8: string  @string: [int8]
type before the name: error alone; member; @int8 @x  @string @x  @float64 @x y: int8
character in a name: error compiles; name; a-b 1st 7 x! x? a+b x` a-b-c a/b "x" x% °C x— “x” ‘x’ x½ x‐y x… x§
invisible character in a name: error compiles; name; x\xa0y x\u200by x\u200d x\u2060 x²
odd name: error compiles; name; x[3] x[] \\u00e9 x=3 (x) x/**/ *x &x x, x} x; x() x/**/y x\\ x.y
control character in a name: error compiles; name; \tx x\t x\r \t x\x01 \x7fx x\x0cy x\tint8
other characters: silent unseen; name; x× x₁ x🙂 x→
unusual name: silent; name; a$b é e\u0301t µm Ωx ªx ºx a·b 路径 final override import module
two members of a name: error; member; x: int8 @x: int16  x: [string] y: int8 @x: [string]
two items of a name: error; item; A: 1 @A: 2  A: 1 B: 2 @A: 1
item of two enums: error; statement; enum E { A: 1 } | enum F { B: 1 @A: 1 }
two types of a name: error; statement; message P { } | message @P { x: int8 }
    enum P { A: 1 } | message @P { }  message P { } | enum @P { A: 1 }  enum P { } | enum @P { }
    message P { } | service @P { request { } response { } }
    service P { request { } response { } } | enum @P { A: 1 }
    service P { request { } response { } } | service @P { request { } response { } }
item and message: error; statement; enum E { P: 0 } | message @P { }
    message P { } | enum E { A: 1 @P: 0 }
item named as an enum: silent; statement; enum E { E: 0 }  enum F { A: 1 } | enum E { F: 0 }
item named as a service: silent; statement; enum E { S: 0 } |
    service S { request { } response { } } | service T { request { x: S.Request } response { } }
type hidden by an item: error; statement; enum E { E: 0 } | message P { x: @E }
    enum E { F: 0 } | enum F { A: 1 } | message P { x: [@F] }
service Request: error; statement; service @Request { request { } response { } }
    service @Response { request { x: int8 } response { y: string } }
contextual name of a type: silent; statement; message main { main: int8 }  message message { }
    service request { request { request: int8 } response { } }  message response { }
    service response { request { } response { response: int8 } }  message service { message: int8 }
contextual name: silent; member; std: int8 x: string  zentho: [string] serialize: string
    deserialize: int8  data: int8 buffer: [int8]  request: int8 response: string  message: int8
type named std: warning plain; statement; namespace r.nav | message @std { }  namespace @r.std
    namespace r | enum @std { }  namespace r | service @std { request { } response { } }
global std or zentho: error global; statement; message @std { }  message @zentho { x: int8 }
    enum E { @std: 0 }  enum E { @zentho: 0 }  enum @zentho { A: 1 }
misspelt type: error alone; type; Strng in8 int9 String Int8 flaot64 [Strng] [[Int]] vec3 boolean
unknown type, with includes: silent unseen includes; type; Strng [Missing] a.Missing
unknown type with dots: error alone; type; other.Missing [nav.Missing] Missing.Request
unknown type after a dot: silent unseen; type; .Missing std.Missing [zentho.Missing] .a.Missing
fundamental type: silent; type; bool char short int long float double wchar_t char16_t char32_t
    signed unsigned size_t [bool] int8_t uint64_t [int16_t] std.size_t std.string [[std.int8_t]]
keyword as a type: error; type; void auto class [] [void] [auto] enum template operator
character in a type: error; type; int8; int8, int8} int8? "int8" 'int8' a-b string;y int8\xa0 “int8”
    [int8]; [int8,3] [int8]] int8]] int8[] int8[3] [int8 [[int8] [int8]x x[int8] [ int8. .. . a..b
control character in a type: error; type; \tint8 int8\t int8\r [string]\r [\tint8] \x01int8
odd type: error compiles; type; int* int& decltype(1) typename.N struct.N x[int8]] int8_t* (int)
    int/**/ const.int8 int&& float[3] int\r int\\ \tint
C++20 type: warning; type; char8_t [char8_t]
template as a type: warning; type; std.vector<int> vector<int8> List<string> [std.vector<int>]
spaces in a type: error; member; x: @[ int8 ]  x: @[int8 ]  x: @[ int8]
message within itself: error; statement; message P { x: @P }  message P { y: int8 x: @P }
part of a service within itself: error; statement; service S { request { x: @S } response { } }
    service S { request { x: @Request } response { } }
    service S { request { } response { x: @Response } }
    message Request { } | service S { request { x: @Request } response { } }
    message Response { } | service S { request { } response { x: @Response } }
recursion through a vector: silent; statement; message P { x: [P] }  message P { P: [P] }
    message P { P: int8 }  message Response { } | service S { request { x: Response } response { } }
    service S { request { x: [Request] } response { y: Request z: [Response] } }
message used before it: error alone; statement; message Q { x: @P } | message P { }
    message Q { x: int8 y: [@P] } | message P { x: int8 }
message before it, with includes: warning includes; statement; message Q { x: @P } | message P { }
    message Q { x: [[@P]] y: int8 } | message P { x: int8 }
enum used before it: silent; statement; message P { x: E y: [E] } | enum E { A: 1 }
service as a type: warning; statement; service S { request { } response { } } |
    service T { request { x: @S } response { } }
service in a message: error alone; statement; message P { x: int8 y: @S } |
    service S { request { } response { } }
    service S { request { } response { } } | message P { x: @S.Request }
    service T { request { x: @S.Request } response { } } | service S { request { } response { } }
no type: error alone; statement; enum E { A: 1 } | message P { x: @A }
    enum E { A: 1 } | message P { x: @E.A }  message P { y: int8 } | message Q { x: [@P.y] }
    service S { request { } response { } } | service T { request { x: @S.request } response { } }
member hides a type: error; statement; message P { } | message Q { P: int8 q: @P }
    enum P { A: 1 } | service S { request { P: int8 q: [@P] } response { } }
member changes a meaning: warning; statement; message P { } | message Q { @q: @P @P: int8 }
    message P { } | message Q { @P: @P }  enum P { A: 1 } | message Q { x: int8 @P: @[P] }
    service S { request { } response { @Request: @Request } }
member hides short names only: silent plain; statement;
    namespace r.nav | message P { } | message Q { P: r.nav.P }
    namespace r.nav | message P { } | message Q { P: int8 q: nav.P nav: nav.P r: r.nav.P }
first component found too early: error plain; statement;
    namespace a.b.a | message P { } | message Q { x: @a.b.a.P }
    namespace r.r | message P { } | message Q { x: [@r.r.P] }
    namespace r.nav | message r { } | message Q { x: @r.nav.r }
    namespace r.nav | message nav { } | message Q { x: @nav.nav }
message used before it by a path: error plain; statement;
    namespace r.nav | message Q { x: @nav.P } | message P { }
    namespace r.nav | message P { x: @r.nav.P }
repeated component: silent plain; statement;
    namespace a.b.a | message P { } | message Q { x: a.P y: b.a.P z: .a.b.a.P w: [P] }
namespace below zentho: silent unseen plain; statement; namespace zentho.nav | message P { x: Any }
no value: error; value; 08 0x 1.5 = "a" nullptr 0b2 1_000 10k 12abc 0x1G 'a '' 1} (1 1) - 1+ + 1''0
    1' 1e3 1. .5 0x1p3 1<< 1; 1, 1,2 ; , 1i 1lL ‘a’ )1( 1lul 1uu
invisible character in a value: error compiles; value; 1\xa0 \u200b1 1\t \t1 1\r 1\x0c 1\x01
odd value: error compiles; value; 1,D=7 0};inline/**/int/**/x=7;enum/**/G<%D=1 1/**/ 1\\ 1,D 1<%2
name of no item: warning alone; value; MISSING A|MISSING (MISSING) MISSING+1 x
name of no item, with includes: silent unseen includes; value; MISSING (MISSING|1)
items without values: warning alone; item; A: @B  A: @B C: @D
later item as a value: warning alone; item; A: @B B: 1  A: @A
value over 64 bits: warning; value; 18446744073709551616 0x10000000000000000 -18446744073709551617
expression out of range: silent unseen; value; 1<<64 1<<-1 2147483647+1 1/0 1?2
spaces in a value: error; item; A: 1 @<< 2  A: 1 @| 2  A: 1 @+: @B
equals sign: error; item; A @= @1 B @= 2  @A=1 @B=2  A: @=1  @A=: 1
comma or semicolon: error; item; A: @1, B: 2  A: @1; B: @2;
include of another file: warning; statement; ¶include @base.idl¶  include @'b.idl'  include @"b.idl
    include @"base"  ¶include @"a//b.idl"¶  ¶include @"a#b.idl"¶  include @"v1.2/robot"
odd include: error compiles; statement; ¶include @"b.h"/*.idl"¶  include @"a\\b.idl"
    include @"a"b.idl"  include @"a\tb.idl"  include @"a.idl\r"
include with more words: error; statement; include @"my @file.idl"  ¶include "a/b.idl"␣@//␣note¶
    include "a.idl" @"b.idl"  include "a.idl" @;
namespace with odd dots: warning plain; statement; namespace @a..b  namespace @a.  namespace @.
dot before a namespace: silent plain; statement; namespace .a.b
namespace that is no name: error plain; statement; namespace @a.b;  namespace @a-b  namespace @1.0
    namespace @a.int.b  namespace @a/b  namespace @"a"  namespace @a.b;c  namespace @r.na°
control character in a namespace: error compiles plain; statement; namespace @a\t  namespace @a.b\r
namespace with more words: error plain; statement; namespace @a::@b  namespace a.b @{
    namespace a.b @;  namespace a @b  namespace a @= b
second namespace: error plain; statement; namespace a | @namespace @a  namespace a.b | @namespace @c
unknown statement: error; statement; @struct P { x: int8 }  @Message P { }  @mesage P { }  @};  @}
    @syntax = "proto3"  @package a  @\tmessage P { }  @message\tP { }  @import "a.idl"
    @; message P { }  @\xa0message P { }  @/* note */  @option x: int8
text after a name: error; statement; message P : @Base { }  message P @extends Q { }
    enum E : @int8 { A: 1 }  message P @(x: int8)  enum @class @E { A: 1 }  message P @x: int8 }
parts of a service: error; statement; service S { @response { } request { } }  service S { @}
    service S { request { } @}  service S { request { } response { } @request { } }
    service S { request: @P response: Q }  service S { @x: int8 }
    service S @request { } response { }
glued closing brace: error loose; statement; message P { x: @int8}  message P { x: @int8}}
    enum E { A: @1}  message P { x: int8 @};  service S { request { x: @int8} response { } }
    service S { request { } response { @}}
glued opening brace: error loose; statement; message @P{ x: int8 }  message @P{¶ x: int8 }
    enum @E{ A: 1 }  service @S{ request { } response { } }  message P @{{ x: int8 }
    service S { @request{ x: int8 } response { } }
missing closing brace: error loose; statement; message P { x: @int8  enum E { A: @1  message P @{
    service S { request { } response { @}  service S { request { x: @int8 response { } }
missing name: error loose; statement; @message { x: int8 }  @enum { A: 1 }  @service { }
missing type: error loose; statement; message P { x: int8 @y: }  message P { @x }
    message P { @x: y: int8 }
missing value: error loose; statement; enum E { @A B C }  enum E { @A: }  enum E { @A: B: 1 }
cut statement: error loose; end; @message  @message P  @message P {  @include  @enum E { A
    @message P { x:  service S { request { @}  service S { request { } response { @}
two colons: told; member; @p: @a::B @q: @a::B
two colons once: error loose; statement; message P { @p: a::B }  message P { x: int8 @y: .a::B }
default value: error; member; x: int8 @= 3  x: string @= "a"
separators: error; member; x: @int8, y: int8  x: @int8; y: @int8;  x: @string, y: @int8;
C comment: error loose; member; @/* note */ x: int8  @/* a note */ x: int8  x: int8 @/* a */
hash in a // comment: error; member; ¶x: int8 @//␣see␣#4¶
hash before include: silent; statement; ¶#include␣"a.idl"¶
dropped brace: error loose; drop; } {
dropped type or value: error loose; drop; pair
doubled brace: error loose; double; } {
byte order mark: error; text; bom
carriage returns: error loose; text; crlf
tab before a line: error compiles loose; text; tab
"""

BUILT_IN = "int8 int16 int32 int64 uint8 uint16 uint32 uint64 float32 float64 string".split()
OTHER_TYPES = ("bool char short int long float double wchar_t char16_t char32_t signed unsigned "
               "size_t int8_t uint64_t std.string std.int16_t").split()
LITERALS = r"""0 7 -1 +3 010 0x1F 0XaB 0b101 0B1 1'000 0x1'F 1u 2L 3ul 4LL 5ull 0xFFu 'a' '\n' ';'
    ',' '}' '\'' '\\' '"' 'ab' u8'a' L'é' u'é' '\x41' (1,2) true false ~0 !0 (7) ((1)) -(2) 1<<2
    (1<<3)|1 2+3 7-9 2*3 8/2 7%4 1==1 3>2 1<=2 1&&0 !1||0 5^1 sizeof(int) 1ull<<40""".split()
WITH_ITEM = "{} {}|4 ({}) {}+1 -{} ~{} 2*{} {}<4 ({}&7)|1 {}|{} !{}".split()
NAMES = "pose route speed stops größe 路径 Ωmega naïve µ x_ value Count é".split()
MEMBER_NAMES = ("std zentho serialize deserialize data buffer request response message service "
                "include final override import module robot nav core").split()
COMPONENTS = ["robot", "nav", "core", "geo", "größe", "data", "x1"]
COMMENTS = ["# note", "#", "#{ x: int8; } 'a", "// note", "// } ; message P {", "//x"]
NAME_PLACES = [("member", "@W: int8"), ("item", "@W: 3"), ("statement", "message @W { x: int8 }"),
               ("statement", "enum @W { A: 1 }"),
               ("statement", "service @W { request { } response { } }")]


class Source:
    """A random valid file: its statements, and its types as pairs of namespace and name."""

    def __init__(self, rng, numbers, namespace, included=(), dots=True):
        self.rng, self.numbers, self.namespace, self.dots = rng, numbers, namespace, dots
        self.types, self.items = list(included), []
        # The kinds in the order of the header: each uses only types before it.
        enums = [self.enum() for _ in range(rng.choice([0, 1, 1, 2, 3]))]
        messages = [self.message() for _ in range(rng.choice([0, 1, 2, 3, 5]))]
        services = [self.service() for _ in range(rng.choice([0, 0, 1, 1, 2]))]
        order = [enums] * len(enums) + [messages] * len(messages) + [services] * len(services)
        rng.shuffle(order)
        self.statements = [kind.pop(0) for kind in order]
        if namespace:
            place = rng.choice([0, 0, 0, rng.randint(0, len(self.statements))])
            self.statements.insert(place, ["namespace " + ".".join(namespace)])

    def name(self):
        return f"{self.rng.choice(NAMES)}{next(self.numbers)}"

    def path(self, namespace, name):
        """Returns one of the dotted paths that find a type."""
        shared = 0
        while self.namespace[shared:shared + 1] == namespace[shared:shared + 1] != ():
            shared += 1
        begin = self.rng.choice([shared, shared, self.rng.randint(0, shared)])
        dot = "." if begin == 0 and self.dots and self.rng.random() < 0.3 else ""
        return dot + ".".join(namespace[begin:] + (name,))

    def members(self, *recursive):
        rng, names, members = self.rng, list(MEMBER_NAMES), []
        for _ in range(rng.choice([0, 1, 2, 3, 6])):
            paths = [self.path(*declared) for declared in self.types]
            kinds = [BUILT_IN, BUILT_IN, OTHER_TYPES, recursive, paths]
            element = rng.choice(rng.choice([kind for kind in kinds if kind]))
            name = names.pop(rng.randrange(len(names))) if rng.random() < 0.3 else self.name()
            depth = rng.choice([1, 1, 2, 3] if element in recursive else [0, 0, 0, 1, 2, 3])
            members.append(f"{name}: {'[' * depth}{element}{']' * depth}")
        return members

    def enum(self):
        items = []
        for _ in range(self.rng.choice([0, 1, 2, 4])):
            name, value = self.name(), self.rng.choice(LITERALS)
            if self.items and self.rng.random() < 0.4:
                value = self.rng.choice(WITH_ITEM).replace("{}", self.rng.choice(self.items))
            elif len(value) < 4 and "u" not in value:
                self.items.append(name)
            items.append(f"{name}: {value}")
        self.types.append((self.namespace, self.name()))
        return [f"enum {self.types[-1][1]} {{", *items, "}"]

    def message(self):
        name = self.name()
        members = self.members(name)
        self.types.append((self.namespace, name))
        return [f"message {name} {{", *members, "}"]

    def service(self):
        name = self.name()
        request, response = self.members("Request"), self.members("Request", "Response")
        self.types += [(self.namespace, name + ".Request"), (self.namespace, name + ".Response")]
        return [f"service {name} {{ request {{", *request, "} response {", *response, "} }"]


def insert(rng, statements, place, text):
    """Puts the text of a mistake into a body or between the statements."""
    heads = {"member": ("message", "service"), "item": ("enum",)}.get(place, ())
    bodies = [s for s in statements if s[0].startswith(heads)] if heads else []
    if bodies and rng.random() < 0.6:
        body = rng.choice(bodies)
        body.insert(rng.randint(1, len(body) - 1), text)
        return
    if heads:
        text = f"{heads[0]} Mine {{ {text} }}"
    parts = text.split(" | ") if text else []
    ends = [len(statements)] if place == "end" else range(len(statements) + 1)
    for i, at in enumerate(sorted(rng.choices(ends, k=len(parts)))):
        statements.insert(at + i, [parts[i]])


def line_break(rng, text, depth):
    """Returns a line feed and an indentation for the end of the text, perhaps with comments."""
    line, comment = text[text.rfind("\n") + 1:], rng.choice(COMMENTS)
    if "//" in line or comment[0] == "/" and ("/" in line or "#" in line) or rng.random() < 0.9:
        comment = ""
    more = rng.choice(["", "", "", "", "\n", "\n# a comment: { }", "\n    // another"])
    return " " * bool(comment) + comment + more + "\n" + rng.choice(["", "  ", "    "]) * depth


def render(rng, words):
    """Returns the text of the words in a random layout."""
    often = rng.choice([0.03, 0.5, 0.97])
    text, depth, before = rng.choice(["", "", "\n", "# note\n\n", "// note\n"]), 0, ""
    glued = [word == "{" and after[:1] not in ("", "{", "¶", "/") and rng.random() < 0.15
             for word, after in zip(words, words[1:] + [""])] + [False]
    for i, word in enumerate(words):
        depth += word.count("{") - word.count("}")
        text += word.replace("¶", "\n")
        is_head = depth <= 0 and word[-1] != "}" and before not in ("include", "namespace")
        if glued[i] or glued[i + 1] and rng.random() < 0.5:
            pass
        elif word[-1] == ":":
            text = text[:-1] + rng.choice([": ", ": ", ":", " : ", " ", "  ::  ", ":\n      "])
        elif rng.random() < (0.03 if is_head else 0.9 if depth <= 0 else often):
            text += line_break(rng, text, max(depth, 0))
        else:
            text += rng.choice([" ", " ", "   "])
        before = word
    return text.rstrip(" \n") + rng.choice(["\n", "\n", "\n\n", "", " "])


def change(rng, words, place, what):
    """Drops or doubles a random brace, or drops a type or value. Marks where the mistake is."""
    choices = [i for i, word in enumerate(words)
               if word in what.split(" ") or what == "pair" and words[i - 1][-1] == ":"]
    if not choices:
        words += ["message", "P", "@{"]
        return
    i = rng.choice(choices)
    if place == "double":
        words.insert(i, "@" + words[i])
    elif i > 0:
        words[i - 1:i + 1] = ["@" + words[i - 1]]


def change_text(rng, text, how):
    """Makes a mistake of the text as a whole. Marks the line."""
    if how == "bom":
        return "@\ufeff" + text
    if how == "crlf":
        return "@" + text.replace("\n", "\r\n") + "\r\n"
    lines = text.split("\n")
    i = rng.choice([i for i, line in enumerate(lines) if line.strip(" ")[:1] not in ("", "#", "/")])
    lines[i] = "@\t" + lines[i]
    return "\n".join(lines)


def words_of(statements):
    return [word for part in itertools.chain(*statements) for word in part.split(" ")]


def make(rng, expected, place, alternatives):
    """Returns the files, by path, and the lines of the mistake."""
    numbers, parts = itertools.count(1), rng.sample(COMPONENTS, 5)
    own = () if expected & {"plain", "global"} else tuple(parts[:rng.choice([0, 1, 2, 3])])
    files, included, includes = {}, [], []
    if "includes" in expected or not expected & {"alone", "plain"} and rng.random() < 0.35:
        for path in rng.sample(["base.idl", "common/x.idl", "a/b/c.msg"], rng.choice([1, 1, 2])):
            namespace = rng.choice([(), own[:1], own, own + (parts[3],), (parts[4], parts[3])])
            source = Source(rng, numbers, namespace)
            included += source.types
            files[path] = render(rng, words_of(source.statements))
            includes.append(['include "%s"' % path if rng.random() < 0.7 else f"include <{path}>"])
    source = Source(rng, numbers, own, included, "plain" not in expected)
    statements = includes + source.statements
    is_word = place in ("name", "type", "value")
    text = rng.choice(re.split(" +" if is_word else "  +", alternatives))
    if is_word:
        at, form = {"name": rng.choice(NAME_PLACES), "type": ("member", "x: @W"),
                    "value": ("item", "x: @W")}[place]
        insert(rng, statements, at, form.replace("W", text))
    elif place in ("statement", "end", "member", "item"):
        insert(rng, statements, place, text)
    words = words_of(statements)
    if place in ("drop", "double"):
        change(rng, words, place, text)
    result = render(rng, words)
    if place == "text":
        result = change_text(rng, result, text)
    marks = [result[:i].count("\n") + 1 for i, letter in enumerate(result) if letter == "@"]
    files["main.idl"] = result.replace("@", "").replace("␣", " ")
    return files, marks


class Tools:
    """Runs the programs and the compilers on the files of a directory."""

    def __init__(self, build, directory):
        self.programs = pathlib.Path(build).resolve() / "idlgen"
        platform = directory / "platform"
        shutil.copytree(pathlib.Path(__file__).resolve().parent.parent / "platform", platform)
        stub = platform / "zentho/serialization/serialization.h"
        unit, pch = directory / "unit.cpp", directory / "stub.pch"
        unit.write_text('#include "main.h"\n')
        # Both compilers load the framework's header precompiled.
        flags = ["-std=c++17", "-w", "-x", "c++-header", stub, "-o"]
        subprocess.run(["g++", *flags, f"{stub}.gch"], check=True)
        subprocess.run(["clang++", *flags, pch], check=True)
        flags = ["-std=c++17", "-w", "-fsyntax-only", "-I", platform, "-I", ".", unit]
        self.compilers = {
            "g++": ["g++", "-fmax-errors=1", "-include", stub, *flags],
            "clang++": ["clang++", "-ferror-limit=1", "-include-pch", pch, *flags]}

    def check(self, directory):
        """Returns whether idlgen succeeds, the rejections by compiler, and idlgen-header's run."""
        def run(*command):
            return subprocess.run(command, cwd=directory, capture_output=True, timeout=120)

        for path in [*directory.rglob("*.idl"), *directory.rglob("*.msg")]:
            made = run(self.programs / "idlgen", "-f", path.relative_to(directory))
            assert made.returncode == 0 or path.name == "main.idl"
        succeeds = (directory / "main.h").exists()
        results = {name: run(*command) for name, command in self.compilers.items() if succeeds}
        rejected = {name: result.stderr.decode(errors="replace")
                    for name, result in results.items() if result.returncode != 0}
        return succeeds, rejected, run(self.programs / "idlgen-header", "main.idl", "out.h")


def read_messages(said, text):
    """Returns line and severity of the messages, without notes, and what is wrong with the form."""
    lines, messages, wrong = text.split("\n"), [], []
    while said[0]:
        place = re.fullmatch(r"main\.idl:(\d+):(\d+): (error|warning|note): .+", said[0])
        if not place:
            if len(messages) != 20 or len(said) > 2:
                wrong.append(f"form: {said[0]!r}")
            break
        number, column = int(place[1]), int(place[2])
        line = lines[number - 1] if 0 < number <= len(lines) else ""
        if not 1 <= column <= max(1, len(line.encode())):
            wrong.append(f"place: {said[0]!r}")
        if place[3] == "note" and not re.match(r" *\d+ \| ", said[1]):
            del said[0]  # About the place that the error before it shows.
            continue
        excerpt = re.match(rf" *{number} \| ?", said[1]) if len(said) > 3 else None
        before = line.encode()[:column - 1].decode(errors="replace")
        caret = len(excerpt[0]) + len(before) if excerpt else 0
        if not excerpt or not re.fullmatch(r" +\| *\^~*", said[2]) or (
                said[1][excerpt.end():] == line and said[2].index("^") != caret):
            wrong.append(f"excerpt: {said[0]!r}")
        if place[3] != "note":
            messages.append((number, place[3]))
        del said[:3]
    if len(messages) > 20:
        wrong.append(f"{len(messages)} messages")
    return messages, wrong


def judge(expected, marks, directory, succeeds, rejected, told):
    """Returns the disagreements, and whether the first message is at the line of the mistake."""
    text = (directory / "main.idl").read_bytes().decode()
    messages, wrong = read_messages(told.stderr.decode(errors="replace").split("\n"), text)
    has_error = any(kind == "error" for _, kind in messages)
    severity = "error" if told.returncode else "warning" if messages else "silent"
    if "error" in expected and succeeds and len(rejected) < 2 and "compiles" not in expected:
        wrong.append("compilers: not all reject this error")
    if "silent" in expected and rejected and "unseen" not in expected:
        wrong.append("compilers: not all accept this valid file")
    if severity not in expected and not ("told" in expected and messages):
        wrong.append(f"severity: {severity}, expected: " + " ".join(sorted(expected)))
    if told.returncode != (has_error or not succeeds) or told.stdout:
        wrong.append(f"status {told.returncode}, or standard output")
    header = directory / "out.h"
    if told.returncode != 0 and header.exists():
        wrong.append("header in spite of an error")
    if told.returncode == 0 and header.read_bytes() != (directory / "main.h").read_bytes():
        wrong.append("header: not that of idlgen")
    last = len(text) if "loose" in expected else max(marks, default=0)
    if marks and not all(min(marks) <= line <= last for line, _ in messages):
        wrong.append(f"line: not {marks}")
    return wrong, bool(messages) and messages[0][0] in marks


def try_file(tools, directory, rng, row):
    """Makes a file of a kind and checks it. Returns the report of disagreements, and exactness."""
    name, expected, place, alternatives = row
    expected = set(expected.split())
    files, marks = make(rng, expected, place, alternatives)
    for path, text in files.items():
        (directory / path).parent.mkdir(parents=True, exist_ok=True)
        (directory / path).write_bytes(text.encode())
    succeeds, rejected, told = tools.check(directory)
    wrong, is_exact = judge(expected, marks, directory, succeeds, rejected, told)
    report = [f"==== {directory.name} {name}: " + "; ".join(wrong), files["main.idl"]]
    for compiler, said in rejected.items():
        report.append(f"---- {compiler}: " + said.split("error: ")[-1].split("\n")[0])
    report.append(f"---- idlgen-header: {told.returncode}\n" + told.stderr.decode(errors="replace"))
    return "\n".join(report) if wrong else "", is_exact


def read_kinds(text):
    table = KINDS.strip("\n").replace("|\n    ", "| ").replace("\n    ", "  ").split("\n")
    rows = [re.fullmatch("(.+?): (.+?); (.+?); *(.*)", row, re.DOTALL).groups() for row in table]
    return [row for row in rows if text in row[0]]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", default="1")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--keep", type=pathlib.Path)
    parser.add_argument("--kind", default="")
    options = parser.parse_args()
    # A quarter of the files is of the first kind, which is the valid one.
    rows = read_kinds(options.kind)
    rows = [rows[0 if i % 4 == 0 else (i - i // 4) % len(rows)] for i in range(options.count)]
    count = collections.defaultdict(lambda: [0, 0, 0])

    with tempfile.TemporaryDirectory() as temporary, \
            concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        tools = Tools(options.build, pathlib.Path(temporary))
        places = [pathlib.Path(temporary) / str(i) for i in range(options.count)]
        seeds = [random.Random(f"{options.seed}/{i}") for i in range(options.count)]
        results = pool.map(functools.partial(try_file, tools), places, seeds, rows)
        for (kind, *_), directory, (report, is_exact) in zip(rows, places, results):
            for name in kind, "all":
                count[name] = [a + b for a, b in zip(count[name], (1, is_exact, bool(report)))]
            if report:
                print(report)
                if options.keep:
                    shutil.copytree(directory, options.keep / directory.name, dirs_exist_ok=True)
            shutil.rmtree(directory)

    print(" files  told at the line  disagreements")
    for kind in sorted(count, key=lambda kind: kind == "all"):
        print("{:6} {:17} {:14}  ".format(*count[kind]) + kind)
    return count["all"][2] > 0


if __name__ == "__main__":
    sys.exit(main())
