#!/usr/bin/env python3
"""Compares what idlgen-header --check says about trees of files with g++ and clang++.

Makes trees of 2 to 6 IDL files that include each other: valid ones, ones with a mistake, of the
kinds in tree_kinds.py, and the cases of the tests among random files and statements. A disagreement
is any of these:

- an error in a file whose header a compiler accepts
- a file of which nothing is said, nor of what it includes, whose header a compiler rejects
- a message that is not what the kind expects, or at another place
- a compiler that does not say what the kind expects
- a message without excerpt or with a place that does not exist, more than 20 messages about a file

Prints each disagreement, then a table of the kinds. The status is 1 if there is a disagreement.
"""
import itertools
import os.path
import re
import sys

from cases import CASES, take_marks
from comparison import compare, judge_messages
from kinds import FORM, TOLD, UNSEEN, VALID
from messages import read_messages
from sources import Source, render, words_of
from tools import run
from tree_kinds import TREES, Tree

ROOTS = ["src", "lib"]
DIRECTORIES = ["src", "src/geo", "src/nav/msgs", "lib", "lib/common"]
STEMS = "geometry waypoint odometry steering batteries gripper".split()
# No component of the files that only surround a mistake is one of the kinds.
COMPONENTS = ["fleet", "arm", "core", "größe", "x1"]
FLAGS = [flag for root in ROOTS for flag in ("-I", root)]

# Cases whose messages depend on the whole of their files.
UNFILLED = [f"case {name}" for name in """CarriageReturns HiddenLibrary NamesOfTheFramework
    NamespaceThatHidesTheLibrary TypesBelow""".split()]
# One of its files is a directory's name for another.
LEFT_OUT = ["case MisspeltIncludes"]


class TreeMaker:
    """Makes one tree: the files of a kind, and valid files around them."""

    def __init__(self, rng, kind):
        self.rng, self.kind, self.numbers = rng, kind, itertools.count(1)
        self.statements = {name: list(texts) for name, texts in kind.files.items()}
        self.add_surroundings()
        # The files of a case have their own paths.
        directory, stems = rng.choice(DIRECTORIES), iter(rng.sample(STEMS, 6))
        self.paths = {name: f"{directory}/{name}" if "." in name else
                      f"{rng.choice(DIRECTORIES)}/{next(stems)}.{rng.choice(['idl', 'idl', 'msg'])}"
                      for name in self.statements}

    def source(self, namespace=(), types=()):
        return Source(self.rng, self.numbers, namespace, types, dots=False)

    def add_surroundings(self):
        """Adds statements to the files of the kind, files that they include, and a user of them."""
        rng, kind = self.rng, self.kind
        room = max(1, 6 - len(kind.files))
        extra = self.add_valid_files(rng.randint(0, room - 1) if kind.files else rng.randint(2, 6))
        for name in kind.files if kind.filled else ():
            texts = self.statements[name]
            more = [f"include {other}" for other in extra if rng.random() < 0.3]
            more += [" ".join(text) for text in self.source().statements]
            places = sorted(rng.choices(range(len(texts) + 1), k=len(more)), reverse=True)
            for place, text in zip(places, reversed(more)):
                texts.insert(place, text)
        if kind.files and (len(self.statements) == 1 or rng.random() < 0.5):
            self.statements["user"] = [f"include {next(iter(kind.files))}",
                                       *map(" ".join, self.source(("user",)).statements)]

    def add_valid_files(self, count):
        """Adds files that include each other and use each other's types. Returns their names."""
        rng = self.rng
        a, b, c, d = rng.sample(COMPONENTS, 4)
        namespaces = [(), (a,), (a, b), (a, b, c), (d, c)]
        visible = {}  # The types that a file gives to those that include it.
        for i in range(count):
            included = [name for name in visible if rng.random() < 0.5]
            types = list(dict.fromkeys(itertools.chain(*(visible[name] for name in included))))
            source = self.source(rng.choice(namespaces), types)
            visible[f"valid{i}"] = source.types
            self.statements[f"valid{i}"] = [f"include {name}" for name in included] + [
                " ".join(text) for text in source.statements]
        return list(visible)

    def include(self, path, name):
        """Returns a path in quotes or brackets by which the file at the path includes another."""
        other = self.paths[name]
        beside = os.path.relpath(other, os.path.dirname(path))
        is_beside = self.rng.random() < (0.1 if beside.startswith("..") else 0.5)
        form = beside if is_beside else os.path.relpath(other, other.split("/")[0])
        return f'"{form}"' if self.rng.random() < 0.8 else f"<{form}>"

    def make(self):
        """Returns the texts by path, and the marks by path."""
        texts, marks = {}, {}
        for name, path in self.paths.items():
            statements = [re.sub("^include (@?)([a-z0-9.]+)$",
                                 lambda match: f"include {match[1]}{self.include(path, match[2])}",
                                 text) for text in self.statements[name]]
            texts[path], marks[path] = take_marks(render(self.rng, words_of([statements])))
        return texts, marks


def seen_from(texts, path):
    """Returns the path and all that its file includes, also indirectly."""
    seen, rest = set(), {path}
    while rest:
        path = rest.pop()
        seen.add(path)
        forms = re.findall('["<]([a-z0-9_./]+)[">]', texts[path])
        included = {os.path.normpath(os.path.join(directory, form)) for form in forms
                    for directory in (os.path.dirname(path), *ROOTS)}
        rest |= included & texts.keys() - seen
    return seen


def judge_agreement(kind, texts, rejected, messages):
    """Returns where messages and compilers contradict each other."""
    wrong, told = [], {message.path for message in messages}
    errors = {message.path for message in messages if message.severity == "error"}
    for path in rejected:
        if path in errors and len(rejected[path]) < 2 and kind.expected != FORM:
            wrong.append(f"error, but a compiler accepts {path}")
        if rejected[path] and not told & seen_from(texts, path) and kind.expected != UNSEEN:
            wrong.append(f"nothing is said of {path}, which {', '.join(rejected[path])} rejects")
    return wrong


def judge_messages_by_path(kind, marks, messages):
    """Returns how the messages differ from what the kind expects."""
    wrong, expected = [], kind.expected
    for path, marks_here in marks.items():
        is_first = any(severity != "warning" for _, severity in marks_here)
        about = [message for message in messages if message.path == path]
        here = expected if is_first else TOLD if marks_here else VALID
        wrong += [f"{path}: {text}" for text in judge_messages(here, marks_here, about)]
        # The kind says what is expected in the first of the wrong files.
        expected = TOLD if is_first else expected
    return wrong


def try_tree(tools, directory, rng, kind):
    """Makes a tree of a kind and checks it. Returns what is wrong, and what is said."""
    maker = TreeMaker(rng, kind)
    texts, marks = maker.make()
    tools.write_files(directory, texts)
    for root in ROOTS:
        (directory / root).mkdir(exist_ok=True)
    for path in texts:
        tools.make_header(directory, path)
    # Of a tree with a mistake, the files that do not see it need no compiler.
    rejected = {path: tools.compile(directory, os.path.splitext(path)[0] + ".h", *FLAGS)
                for name, path in maker.paths.items()
                if not kind.files or not name.startswith("valid")}
    order = rng.sample(sorted(texts), len(texts))
    told = run(directory, tools.checker, "--check", *FLAGS, *order)
    said = told.stderr.decode(errors="replace")
    messages, wrong = read_messages(said, texts)
    if told.returncode != any(message.severity == "error" for message in messages) or told.stdout:
        wrong.append(f"status {told.returncode}, or standard output")
    wrong += judge_messages_by_path(kind, marks, messages)
    wrong += judge_agreement(kind, texts, rejected, messages)
    return wrong, [*(f"-- {path} (marks: {marks[path]})\n{text}" for path, text in texts.items()),
                   *(f"---- {compiler}: {path}: {reason}" for path, reasons in rejected.items()
                     for compiler, reason in reasons.items()),
                   f"---- idlgen-header:\n{said}"]


def main():
    cases = [Tree(case.name, case.expected, case.files,
                  not case.is_open and case.name not in UNFILLED)
             for case in CASES if len(case.files) > 1 and case.name not in LEFT_OUT]
    return compare(TREES, cases, try_tree)


if __name__ == "__main__":
    sys.exit(main())
