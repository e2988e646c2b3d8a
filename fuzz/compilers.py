#!/usr/bin/env python3
"""Compares the verdicts of idlgen-header with those of g++ and clang++.

compilers.py BUILD [--count N] [--seed S] [--jobs J] [--keep DIR] [--kind TEXT]

Makes random IDL files, valid or with one mistake at a known line, of the kinds in kinds.py. idlgen
makes the header, both compilers check it as C++17, and idlgen-header is run. A disagreement is any
of these:

- a message that is not what the kind expects, or at a line without a mistake
- a compiler that does not say what the kind expects
- at status 0 a header that is not the one of idlgen, at status 1 a header
- a message without excerpt or with a place that does not exist, more than 20 messages

Prints each disagreement, then a table of the kinds. The status is 1 if there is a disagreement.
--keep copies the files of the disagreements. --kind selects the kinds whose name has the text.
"""
import itertools
import sys

import kinds
from comparison import compare, parse_options
from messages import read_messages
from sources import Source, render, words_of
from tools import run

COMPONENTS = ["robot", "nav", "core", "geo", "größe", "data", "x1"]
GEOMETRY = "namespace geometry\nmessage Point { x: float64 }\n"
FORMS = {
    kinds.NAME: [(kinds.MEMBER, "@W: int8"), (kinds.ITEM, "@W: 3"),
                 (kinds.STATEMENT, "message @W { x: int8 }"), (kinds.STATEMENT, "enum @W { A: 1 }"),
                 (kinds.STATEMENT, "service @W { request { } response { } }")],
    kinds.TYPE: [(kinds.MEMBER, "x: @W")],
    kinds.VALUE: [(kinds.ITEM, "x: @W")],
}


LINES = {kinds.MEMBER_LINE: kinds.MEMBER, kinds.ITEM_LINE: kinds.ITEM,
         kinds.STATEMENT_LINE: kinds.STATEMENT}


def insert(rng, statements, place, texts):
    """Puts texts into a body or between the statements."""
    heads = {kinds.MEMBER: ("message", "service"), kinds.ITEM: ("enum",)}.get(place, ())
    bodies = [s for s in statements if s[0].startswith(heads)] if heads else []
    if bodies and rng.random() < 0.6:
        body = rng.choice(bodies)
        at = rng.randint(1, len(body) - 1)
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
    choices = [i for i, word in enumerate(words)
               if word == what or what == "type" and words[i - 1][-1] == ":"]
    if not choices:
        words += ["message", "P", "@{"]
        return
    i = rng.choice(choices)
    if place == kinds.DOUBLE:
        words.insert(i, "@" + words[i])
    else:
        words[i - 1:i + 1] = ["@" + words[i - 1]]


def change_text(rng, text, how):
    """Makes a mistake of the text as a whole. Marks the line."""
    if how == "bom":
        return "@\ufeff" + text
    lines = text.split("\n")
    full = [i for i, line in enumerate(lines) if line.strip(" ")[:1] not in ("", "#", "/")]
    full = full or [i for i, line in enumerate(lines) if not line] or [0]
    i = rng.choice(full) if how == "tab" else full[0]
    if how == "tab":
        lines[i] = "\t" + lines[i]
    lines[i] = "@" + lines[i]
    return "\n".join(lines) if how == "tab" else "\r\n".join(lines) + "\r\n"


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
    """Returns the files of the kind, by path, and the lines of the mistake."""
    statements, files = make_statements(rng, kind)
    text, place = rng.choice(kind.texts), kind.place
    if place in FORMS:
        place, form = rng.choice(FORMS[place])
        text = form.replace("W", text)
    texts = [text] if isinstance(text, str) else text
    if place in LINES:
        place, texts = LINES[place], [f"\n{line}\n" for line in texts]
    if place in (kinds.MEMBER, kinds.ITEM, kinds.STATEMENT, kinds.END):
        insert(rng, statements, place, texts)
    words = words_of(statements)
    if place in (kinds.DROP, kinds.DOUBLE):
        change_words(rng, words, place, text)
    result = render(rng, words)
    if place == kinds.CHANGE:
        result = change_text(rng, result, text)
    marks = [result[:i].count("\n") + 1 for i, letter in enumerate(result) if letter == "@"]
    files["main.idl"] = result.replace("@", "")
    return files, marks


def judge_compilers(expected, succeeds, rejected):
    """Returns whether the compilers do not say what the kind expects."""
    if expected in (kinds.ERROR, kinds.BELOW) and succeeds and len(rejected) < 2:
        return ["compilers: not all reject this error"]
    if expected in (kinds.VALID, kinds.COPIED) and rejected:
        return ["compilers: not all accept this valid file"]
    return []


def judge_messages(expected, marks, messages):
    """Returns how the messages differ from what the kind expects."""
    severities = {message.severity for message in messages}
    allowed = {kinds.VALID: [set()], kinds.UNSEEN: [set()], kinds.WARNING: [{"warning"}],
               kinds.COPIED: [set(), {"warning"}],
               kinds.TOLD: [{"error"}, {"warning"}, {"error", "warning"}]}
    wrong = []
    if severities not in allowed.get(expected, [{"error"}, {"error", "warning"}]):
        wrong.append(f"severity: {severities or 'none'}, expected: {expected}")
    lines = [message.line for message in messages]
    is_below = expected == kinds.BELOW
    if marks and any(line < min(marks) or line > max(marks) and not is_below for line in lines):
        wrong.append(f"lines: {sorted(set(lines))}, expected: {sorted(set(marks))}")
    return wrong


def judge_header(directory, succeeds, told, has_error):
    """Returns what is wrong with the status and the header of idlgen-header."""
    wrong, header = [], directory / "out.h"
    if told.returncode != (has_error or not succeeds) or told.stdout:
        wrong.append(f"status {told.returncode}, or standard output")
    if told.returncode != 0 and header.exists():
        wrong.append("header in spite of an error")
    if told.returncode == 0 and header.read_bytes() != (directory / "main.h").read_bytes():
        wrong.append("header: not that of idlgen")
    return wrong


def try_file(tools, directory, rng, kind):
    """Makes a file of a kind and checks it. Returns the report of disagreements, and exactness."""
    files, marks = make(rng, kind)
    tools.write_files(directory, {**files, "geometry.idl": GEOMETRY})
    made = {path: tools.make_header(directory, path) for path in [*files, "geometry.idl"]}
    succeeds = made.pop("main.idl")
    assert all(made.values()), made
    rejected = tools.compile(directory, "main.h") if succeeds else {}
    told = run(directory, tools.checker, "main.idl", "out.h")
    said = told.stderr.decode(errors="replace")

    messages, wrong = read_messages(said, {"main.idl": files["main.idl"]})
    has_error = any(message.severity == "error" for message in messages)
    wrong += judge_compilers(kind.expected, succeeds, rejected)
    wrong += judge_messages(kind.expected, marks, messages)
    wrong += judge_header(directory, succeeds, told, has_error)
    report = ["; ".join(wrong), files["main.idl"]]
    report += [f"---- {compiler}: {reason}" for compiler, reason in rejected.items()]
    report.append(f"---- idlgen-header: {told.returncode}\n{said}")
    return "\n".join(report) if wrong else "", bool(messages) and messages[0].line in marks


def main():
    return compare(parse_options(), kinds.KINDS, try_file)


if __name__ == "__main__":
    sys.exit(main())
