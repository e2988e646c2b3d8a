#!/usr/bin/env python3
"""Compares the verdicts of idlgen-header with those of g++ and clang++.

Makes random IDL files: valid ones, ones with a mistake at a known line, of the kinds in kinds.py,
and the cases of the tests among random statements. idlgen makes the header, both compilers check it
as C++17, and idlgen-header is run. A disagreement is any of these:

- a message that is not what the kind expects, or at a line without a mistake
- a compiler that does not say what the kind expects
- at status 0 a header that is not the one of idlgen, at status 1 a header
- a message without excerpt or with a place that does not exist, more than 20 messages

Prints each disagreement, then a table of the kinds. The status is 1 if there is a disagreement.
"""
import itertools
import sys

import kinds
from cases import CASES, take_marks
from comparison import compare, judge_messages
from messages import read_messages
from sources import Source, render, words_of
from tools import run

COMPONENTS = ["robot", "nav", "core", "geo", "größe", "data", "x1"]
OTHERS = {"geometry.idl": "namespace geometry\nmessage Point { x: float64 }\n",
          "base.idl": "message Base { } enum B { BASE_ITEM: 0 }\n"}
FORMS = {
    kinds.NAME: [(kinds.MEMBER, "@W: int8"), (kinds.ITEM, "@W: 3"),
                 (kinds.STATEMENT, "message @W { x: int8 }"), (kinds.STATEMENT, "enum @W { A: 1 }"),
                 (kinds.STATEMENT, "service @W { request { } response { } }")],
    kinds.TYPE: [(kinds.MEMBER, "x: @W")],
    kinds.VALUE: [(kinds.ITEM, "x: @W")],
}
LINES = {kinds.MEMBER_LINE: kinds.MEMBER, kinds.ITEM_LINE: kinds.ITEM,
         kinds.STATEMENT_LINE: kinds.STATEMENT}

# Cases whose messages depend on the whole file.
LEFT_OUT = """ItemsNamedAsTypesOfTheLibrary MacrosWithoutAnIntegerMember NamesInTheNextLine
    NamesThatHideTheLibraryFromNoType TypesOfTheCLibraryInAHeaderWithoutIncludes""".split()


def kind_of(case):
    place = kinds.END if case.is_open else kinds.STATEMENT
    return kinds.Kind(case.name, case.expected, place, kinds.PLAIN, list(case.files.values()))


def insert(rng, statements, place, texts):
    """Puts texts into a body or between the statements."""
    heads = {kinds.MEMBER: ("message", "service"), kinds.ITEM: ("enum",)}.get(place, ())
    bodies = [s for s in statements if s[0].startswith(heads)] if heads else []
    if bodies and rng.random() < 0.6:
        body = rng.choice(bodies)
        at = rng.choice([i for i in range(1, len(body)) if body[i - 1][:7] not in ("}", "service")])
        body[at:at] = texts
        return
    if heads:
        texts = [f"{heads[0]} Mine {{", *texts, "}"]
        statements.insert(rng.randint(0, len(statements)), texts)
        return
    ends = [len(statements)] if place == kinds.END else range(len(statements) + 1)
    for i, at in enumerate(sorted(rng.choices(ends, k=len(texts)))):
        statements.insert(at + i, [texts[i]])


def change_words(rng, words, place, what):
    """Drops or doubles a random word. Marks where the mistake is."""
    i = rng.choice([i for i, word in enumerate(words)
                    if word == what or what == "type" and words[i - 1][-1] == ":"])
    if place == kinds.DOUBLE:
        words.insert(i, "@" + words[i])
    else:
        words[i - 1:i + 1] = ["@" + words[i - 1]]


def make_included(rng, numbers, own, other):
    """Returns one or two files to be included, by path, and their types."""
    files, types = {}, []
    for path in rng.sample(["base.idl", "common/x.idl", "a/b/c.msg"], rng.choice([1, 1, 2])):
        namespaces = [(), own[:1], own, own + other[:1], other[::-1]]
        source = Source(rng, numbers, rng.choice(namespaces))
        types += source.types
        files[path] = render(rng, words_of(source.statements))
    return files, types


def make_statements(rng, kind):
    """Returns the statements of a valid file of the kind, and what it includes."""
    if kind.files == kinds.NOTHING:
        return [], {}
    numbers, parts = itertools.count(1), rng.sample(COMPONENTS, 5)
    own = () if kind.files == kinds.PLAIN else tuple(parts[:rng.choice([0, 1, 2, 3])])
    files, types = {}, []
    if kind.files == kinds.INCLUDES or kind.files == kinds.ANY and rng.random() < 0.35:
        files, types = make_included(rng, numbers, own, tuple(parts[3:]))
    includes = [[f'include "{path}"' if rng.random() < 0.7 else f"include <{path}>"]
                for path in files]
    source = Source(rng, numbers, own, types, kind.files != kinds.PLAIN)
    return includes + source.statements, files


def make(rng, kind):
    """Returns the files of the kind, by path, and the marks."""
    statements, files = make_statements(rng, kind)
    text, place = rng.choice(kind.texts), kind.place
    if place in FORMS:
        place, form = rng.choice(FORMS[place])
        text = form.replace("W", text)
    texts = [text] if isinstance(text, str) else text
    if place in LINES:
        place, texts = LINES[place], [f"\n{line}\n" for line in texts]
    if place in (kinds.DROP, kinds.DOUBLE, kinds.CHANGE):
        insert(rng, statements, kinds.STATEMENT, ["message P { x: int8 }"])
    else:
        insert(rng, statements, place, texts)
    words = words_of(statements)
    if place in (kinds.DROP, kinds.DOUBLE):
        change_words(rng, words, place, text)
    result = render(rng, words)
    files["a.idl"], marks = take_marks(text(result) if place == kinds.CHANGE else result)
    return files, marks


def judge_compilers(expected, rejected):
    """Returns whether the compilers do not say what the kind expects."""
    if expected in (kinds.ERROR, kinds.BELOW) and len(rejected) < 2:
        return ["compilers: not all reject this error"]
    if expected in (kinds.VALID, kinds.COPIED) and rejected:
        return ["compilers: not all accept this valid file"]
    return []


def judge_header(directory, told, has_error):
    """Returns what is wrong with the status and the header of idlgen-header."""
    header, wanted = directory / "out.h", directory / "a.h"
    if told.returncode != has_error or told.stdout:
        return [f"status {told.returncode}, or standard output"]
    if has_error and header.exists():
        return ["header in spite of an error"]
    if not has_error and not (wanted.exists() and header.read_bytes() == wanted.read_bytes()):
        return ["header: not that of idlgen"]
    return []


def try_file(tools, directory, rng, kind):
    """Makes a file of a kind and checks it. Returns what is wrong, and what is said."""
    files, marks = make(rng, kind)
    files = {**OTHERS, **files}
    tools.write_files(directory, files)
    for path in files:
        is_made = tools.make_header(directory, path)
        assert is_made or path == "a.idl", path
    rejected = tools.compile(directory, "a.h")
    told = run(directory, tools.checker, "a.idl", "out.h")
    said = told.stderr.decode(errors="replace")
    messages, wrong = read_messages(said, {"a.idl": files["a.idl"]})
    wrong += judge_compilers(kind.expected, rejected)
    wrong += judge_messages(kind.expected, marks, messages)
    wrong += judge_header(directory, told, any(message.severity == "error" for message in messages))
    return wrong, [files["a.idl"],
                   *(f"---- {compiler}: {reason}" for compiler, reason in rejected.items()),
                   f"---- idlgen-header: {told.returncode}\n{said}"]


def main():
    cases = [kind_of(case) for case in CASES
             if len(case.files) == 1 and case.name[len("case "):] not in LEFT_OUT]
    return compare(kinds.KINDS, cases, try_file)


if __name__ == "__main__":
    sys.exit(main())
