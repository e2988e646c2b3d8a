#!/usr/bin/env python3
"""Compares what idlgen-header --check says about trees of files with g++ and clang++.

trees.py BUILD [--count N] [--seed S] [--jobs J] [--keep DIR] [--kind TEXT] [--compilers-only]

Makes trees of 2 to 6 IDL files that include each other, with at most one mistake, of the kinds in
tree_kinds.py. A disagreement is any of these:

- an error in a file whose header a compiler accepts
- a file of which nothing is said, nor of what it includes, whose header a compiler rejects
- a message that is not what the kind expects, or at another place
- a compiler that does not say what the kind expects
- a message without excerpt or with a place that does not exist, more than 20 messages about a file

Prints each disagreement, then a table of the kinds. The status is 1 if there is a disagreement.
--keep copies the files of the disagreements. --kind selects the kinds whose name has the text.
--compilers-only does not run idlgen-header.
"""
import collections
import functools
import itertools
import os.path
import sys

from comparison import compare, parse_options
from kinds import ERROR, UNSEEN, VALID, WARNING
from messages import read_messages
from sources import Source, render, words_of
from tools import run
from tree_kinds import TREES

ROOTS = ["src", "lib"]
DIRECTORIES = ["src", "src/geo", "src/nav/msgs", "lib", "lib/common"]
STEMS = "geometry waypoint odometry steering batteries gripper".split()
# No component of the files that only surround a mistake is one of the kinds.
COMPONENTS = ["fleet", "arm", "core", "größe", "x1"]
FLAGS = [flag for root in ROOTS for flag in ("-I", root)]

SourceTree = collections.namedtuple("SourceTree", "paths texts includes marks")
"""The path of each file by its name. By path: text, included paths, and lines with a mistake."""


def with_slip(rng, path):
    """Returns the path with a slip in the name of the file, but not in its first letter."""
    directory, name = os.path.split(path)
    stem, extension = os.path.splitext(name)
    i = rng.randrange(1, len(stem) - 1)
    slips = [stem[:i] + stem[i + 1:], stem[:i] + "q" + stem[i:], stem[:i] + "q" + stem[i + 1:],
             stem[:i] + stem[i + 1] + stem[i] + stem[i + 2:]]
    slip = rng.choice([slip for slip in slips if slip != stem])
    return os.path.join(directory, slip + extension)


class TreeMaker:
    """Makes one tree: the files of a kind, and valid files around them."""

    def __init__(self, rng, kind):
        self.rng, self.kind, self.numbers = rng, kind, itertools.count(1)
        self.statements = {name: list(texts) for name, texts in kind.files.items()}
        self.add_surroundings()
        stems = rng.sample(STEMS, len(self.statements))
        self.paths = {name: f"{rng.choice(DIRECTORIES)}/{stem}.{rng.choice(['idl', 'idl', 'msg'])}"
                      for name, stem in zip(self.statements, stems)}

    def source(self, namespace=(), types=(), dots=False):
        return Source(self.rng, self.numbers, namespace, types, dots).statements

    def add_surroundings(self):
        """Adds statements to the files of the kind, files that they include, and a user of them."""
        rng, kind = self.rng, self.kind
        if kind.filled:
            for texts in self.statements.values():
                more = [" ".join(text) for text in self.source()]
                places = sorted(rng.choices(range(len(texts) + 1), k=len(more)), reverse=True)
                for place, text in zip(places, reversed(more)):
                    texts.insert(place, text)
        room = 6 - len(kind.files)
        extra = self.add_valid_files(rng.randint(0, room - 1) if kind.files else rng.randint(2, 6))
        for name in kind.files:
            for other in extra:
                if rng.random() < 0.3:
                    texts = self.statements[name]
                    texts.insert(rng.randint(0, len(texts)), f"include {other}")
        if kind.files and (len(self.statements) == 1 or rng.random() < 0.5):
            self.statements["user"] = ["include a", *map(" ".join, self.source(("user",)))]

    def add_valid_files(self, count):
        """Adds files that include each other and use each other's types. Returns their names."""
        rng = self.rng
        a, b, c, d = rng.sample(COMPONENTS, 4)
        namespaces = [(), (a,), (a, b), (a, b, c), (d, c)]
        visible = {}  # The types that a file gives to those that include it.
        for i in range(count):
            included = [name for name in visible if rng.random() < 0.5]
            types = list(dict.fromkeys(itertools.chain(*(visible[name] for name in included))))
            source = Source(rng, self.numbers, rng.choice(namespaces), types)
            visible[f"valid{i}"] = source.types
            self.statements[f"valid{i}"] = [f"include {name}" for name in included] + [
                " ".join(text) for text in source.statements]
        return list(visible)

    def include(self, path, what):
        """Returns an include statement of the file at the path, and the included path."""
        if what[0] == '"':
            return f"include {what}", None
        mark, what = ("@", what[1:]) if what[0] == "@" else ("", what)
        rng, name = self.rng, what.split(" ")[-1]
        other = self.paths[name]
        form = os.path.relpath(other, other.split("/")[0])
        beside = os.path.relpath(other, os.path.dirname(path))
        if rng.random() < (0.1 if beside.startswith("..") else 0.5):
            form = beside
        if what != name:
            return f'include {mark}"{with_slip(rng, form)}"', None
        path = f'"{form}"' if rng.random() < 0.8 else f"<{form}>"
        return f"include {mark}{path}", other

    def make(self):
        texts, includes, marks = {}, {}, {}
        for name, path in self.paths.items():
            statements, includes[path] = [], []
            for text in self.statements[name]:
                if text.startswith("include "):
                    text, other = self.include(path, text[len("include "):])
                    includes[path] += [other] if other else []
                statements.append(text)
            text = render(self.rng, words_of([statements]))
            marks[path] = [text[:i].count("\n") + 1
                           for i, letter in enumerate(text) if letter == "@"]
            texts[path] = text.replace("@", "")
        return SourceTree(self.paths, texts, includes, marks)


def seen_from(tree, path):
    """Returns the path and all that its file includes, also indirectly."""
    seen, rest = set(), [path]
    while rest:
        path = rest.pop()
        if path not in seen:
            seen.add(path)
            rest += tree.includes[path]
    return seen


def judge_compilers(kind, tree, rejected):
    """Returns whether the compilers do not say what the kind expects."""
    wrong = []
    if kind.expected == VALID:
        wrong += [f"compilers: not all accept {path}" for path in rejected if rejected[path]]
    if kind.expected == ERROR:
        path = next(path for path in tree.texts if tree.marks[path])
        if len(rejected[path]) < 2:
            wrong.append(f"compilers: not all reject {path}")
    return wrong


def judge_messages(kind, tree, messages):
    """Returns how the messages differ from what the kind expects."""
    marked = [path for path in tree.texts if tree.marks[path]]
    wrong = [f"at another place: {message.sentence}" for message in messages
             if message.line not in tree.marks[message.path]]
    severities = {message.path: set() for message in messages}
    for message in messages:
        severities[message.path].add(message.severity)
    wrong += [f"nothing is said of {path}" for path in marked if path not in severities]
    said = severities.get(marked[0], set()) if marked else set()
    if kind.expected == WARNING and said - {"warning"} or kind.expected == ERROR and (
            "error" not in said):
        wrong.append(f"severity, expected: {kind.expected}")
    return wrong


def judge_agreement(kind, tree, rejected, messages):
    """Returns where messages and compilers contradict each other."""
    wrong, told = [], {message.path for message in messages}
    errors = {message.path for message in messages if message.severity == "error"}
    for path in rejected:
        if path in errors and len(rejected[path]) < 2:
            wrong.append(f"error, but a compiler accepts {path}")
        if rejected[path] and not told & seen_from(tree, path) and kind.expected != UNSEEN:
            wrong.append(f"nothing is said of {path}, which {', '.join(rejected[path])} rejects")
    return wrong


def make_headers(tools, directory, tree):
    """Runs idlgen on all files. Returns the path of each header, by the path of the IDL file."""
    headers = {path: os.path.splitext(path)[0] + ".h" for path in tree.texts}
    tools.write_files(directory, tree.texts)
    for root in ROOTS:
        (directory / root).mkdir(exist_ok=True)
    if "b" in tree.paths:  # A header that no IDL file gives.
        header = os.path.relpath(headers[tree.paths["b"]], ROOTS[0])
        text = f'#pragma once\n#include "{header}"\n'
        tools.write_files(directory, {f"{ROOTS[0]}/all.h": text})
    for path in tree.texts:
        tools.make_header(directory, path)
    return headers


def check(tools, directory, rng, tree):
    """Runs idlgen-header on all files. Returns its messages, what is wrong, and what it said."""
    order = rng.sample(sorted(tree.texts), len(tree.texts))
    told = run(directory, tools.checker, "--check", *FLAGS, *order)
    said = told.stderr.decode(errors="replace")
    messages, wrong = read_messages(said, tree.texts)
    if told.returncode != any(message.severity == "error" for message in messages) or told.stdout:
        wrong.append(f"status {told.returncode}, or standard output")
    return messages, wrong, said


def try_tree(with_check, tools, directory, rng, kind):
    """Makes a tree of a kind and checks it. Returns the report of disagreements, and exactness."""
    tree = TreeMaker(rng, kind).make()
    headers = make_headers(tools, directory, tree)
    # Of a tree with a mistake, the files that do not see it need no compiler.
    rejected = {path: tools.compile(directory, headers[path], *FLAGS)
                for name, path in tree.paths.items()
                if not kind.files or not name.startswith("valid")}
    wrong, messages, said = judge_compilers(kind, tree, rejected), [], ""
    if with_check:
        messages, faults, said = check(tools, directory, rng, tree)
        wrong += faults + judge_messages(kind, tree, messages)
        wrong += judge_agreement(kind, tree, rejected, messages)
    report = ["; ".join(wrong)]
    report += [f"-- {path} (mistakes: {tree.marks[path]})\n{text}"
               for path, text in tree.texts.items()]
    report += [f"---- {compiler}: {path}: {reason}" for path, reasons in rejected.items()
               for compiler, reason in reasons.items()]
    report.append(f"---- idlgen-header:\n{said}")
    is_exact = bool(messages) and messages[0].line in tree.marks[messages[0].path]
    return "\n".join(report) if wrong else "", is_exact


def main():
    options = parse_options(compilers_only="do not run idlgen-header")
    return compare(options, TREES, functools.partial(try_tree, not options.compilers_only))


if __name__ == "__main__":
    sys.exit(main())
