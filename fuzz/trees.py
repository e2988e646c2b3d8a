#!/usr/bin/env python3
"""Compares what idlgen-header --check says about trees of files with g++ and clang++.

Makes trees of 2 to 6 IDL files that include each other, with links and several base directories:
valid ones, ones with a mistake, of the kinds in tree_kinds.py, and the cases of the tests among
random files and statements. A disagreement is any of these:

- an error in a file whose header a compiler accepts
- a file of which nothing is said, nor of what it includes, whose header a compiler rejects
- an include that is not found and not told at its first place, with the number of the others and
  where the file is
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
from kinds import ERROR, FORM, TOLD, UNSEEN, VALID, WARNING
from layout import BASES, Layout, included
from messages import read_messages
from slips import change_path, put_slip
from sources import Source, render, words_of
from tools import run
from tree_kinds import NO_BASE, PATH, TREES, Tree

# No component of the files that only surround a mistake is one of the kinds.
COMPONENTS = ["fleet", "arm", "core", "größe", "x1", "узел", "机器人"]

# Cases whose messages depend on the whole of their files.
UNFILLED = [f"case {name}" for name in """HiddenLibrary NamesOfTheFramework Namespaces
    TypesBelow""".split()]
# In the first, a file has the name of another one's directory. The others depend on where lines end, or have
# two files of one header.
LEFT_OUT = ["case MisspeltIncludes", "case CarriageReturns", "case CarriageReturnsInHalfOfTheLines",
            "case TwoFilesOfOneHeader"]
NOT_FOUND = re.compile(
    r'\S+ is not found: (what it declares is not checked|did you mean "(?P<hint>[^"]+)"\?|'
    r'it is in "(?P<above>[^"]+)", which is not searched)'
    r"( \(and at (?P<others>\d+) other includes?\))?")


class TreeMaker:
    """Makes one tree: the files of a kind, and valid files around them."""

    def __init__(self, rng, kind, root):
        self.rng, self.kind, self.numbers = rng, kind, itertools.count(1)
        self.links = {name: tuple(texts.rsplit(" ", 1)) for name, texts in kind.files.items()
                      if isinstance(texts, str)}
        while True:
            self.statements = {name: list(texts) for name, texts in kind.files.items()
                               if name not in self.links}
            self.add_surroundings()
            if not kind.slip or put_slip(rng, kind.slip, self.statements):
                break
        self.add_link()
        self.layout = Layout(rng, root, [*self.statements, *self.links], self.links)
        self.meant = {}  # The place that a path with a slip should lead to.

    def source(self, namespace=(), types=()):
        return Source(self.rng, self.numbers, namespace, types, dots=False)

    def add_surroundings(self):
        """Adds statements to the files of the kind, files that they include, and a user of them."""
        rng, kind = self.rng, self.kind
        room = max(1, 6 - len(kind.files))
        extra = self.add_valid_files(rng.randint(0, room - 1) if kind.files else rng.randint(2, 6))
        for name in sorted(kind.files.keys() - self.links.keys()) if kind.filled else ():
            texts = self.statements[name]
            more = [f"include {other}" for other in extra if rng.random() < 0.3]
            more += [" ".join(text) for text in self.source().statements]
            places = sorted(rng.choices(range(len(texts) + 1), k=len(more)), reverse=True)
            for place, text in zip(places, reversed(more)):
                texts.insert(place, text)
        if kind.files and (len(self.statements) == 1 or rng.random() < 0.5):
            self.statements["user"] = [f"include {next(iter(kind.files))}",
                                       *itertools.chain(*self.source(("user",)).statements)]

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
                *itertools.chain(*source.statements)]
        return list(visible)

    def add_link(self):
        """Adds a link to one of the valid files, which others perhaps include in its place."""
        others = [name for name in self.statements if name.startswith("valid")]
        if not others or self.rng.random() < 0.6:
            return
        name = self.rng.choice(others)
        self.links["link"] = (self.rng.choice(["link", "hard link"]), name)
        if self.rng.random() < 0.5:
            for texts in self.statements.values():
                texts[:] = [re.sub(f"^(include|slip) {name}$", r"\1 link", text) for text in texts]

    def word(self, keyword, users, other):
        """Returns a path in quotes or brackets by which files include another, perhaps with the
        slip of the kind."""
        path = self.layout.paths[other]
        form = self.layout.form(users, path)
        while keyword == "slip":
            changed = change_path(self.rng, self.rng.choice(self.kind.slip[1]), form)
            if not any(self.layout.find(user, changed) for user in users):
                form, keyword = changed, "include"
                self.meant = {changed: self.layout.place(path)} if self.kind.slip[0] == PATH else {}
        return f'"{form}"' if self.rng.random() < 0.8 else f"<{form}>"

    def make(self):
        """Returns the texts by path, and the marks by path."""
        paths, texts, marks = self.layout.paths, {}, {}
        for name, statements in self.statements.items():
            names = [name, *(link for link, (_, other) in self.links.items() if other == name)]
            users = [paths[user] for user in names]
            statements = [re.sub(r"^(include|slip) (@?)([\w./]+)$", lambda match: "include " +
                                 match[2] + self.word(match[1], users, match[3]), text)
                          for text in statements]
            text = take_marks(render(self.rng, words_of([statements])))
            for user in users:
                texts[user], marks[user] = text
        return texts, marks


def seen_from(layout, texts, path):
    """Returns the path and all that its file includes, also indirectly."""
    paths = {layout.place(path): path for path in texts}
    seen, rest = set(), {path}
    while rest:
        path = rest.pop()
        seen.add(path)
        found = {layout.find(path, word[1:-1]) for _, word in included(texts[path])}
        rest |= {paths[place] for place in found if place in paths} - seen
    return seen


def judge_missing(maker, texts, order, messages, absent):
    """Returns what is wrong with the messages about includes that are not found, and takes them
    out of the list. Each path, or directory that is not searched, is told once. So is a base
    directory that does not exist, which has been told this many times."""
    missing, wrong, layout = {}, [], maker.layout
    for path, name in order.items():
        for line, word in included(texts[path]):
            if not layout.find(path, word[1:-1]):
                above = layout.above(name, word[1:-1])
                key = (above, None) if above else (None, word[1:-1])
                missing.setdefault(key, []).append((path, line, word))
    for (above, form), ((path, line, word), *others) in missing.items():
        told = [message for message in messages if message[:3] == (path, line, "warning")
                and f"{word} is not found: " in message.text]
        if len(told) != 1:
            wrong.append(f"{path}:{line}: {word} is told {len(told)} times")
            continue
        messages.remove(told[0])
        found = NOT_FOUND.fullmatch(told[0].text)
        hint = layout.find(path, found["hint"]) if found and found["hint"] else None
        if not found or (found["above"], int(found["others"] or 0)) != (above, len(others)):
            wrong.append(f"{path}:{line}: {told[0].text}, expected: {above}, {len(others)} others")
        elif found["hint"] and not hint or form in maker.meant and hint != maker.meant[form]:
            wrong.append(f"{path}:{line}: {told[0].text}, which is not meant")
    if absent != (bool(missing) and "none" in layout.bases):
        wrong.append(f"a base directory that does not exist is told {absent} times")
    return wrong


def judge_agreement(kind, layout, texts, rejected, messages):
    """Returns where messages and compilers contradict each other."""
    wrong, told = [], {message.path for message in messages}
    errors = {message.path for message in messages if message.severity == "error"}
    for path in rejected:
        if path in errors and len(rejected[path]) < 2 and kind.expected != FORM:
            wrong.append(f"error, but a compiler accepts {path}")
        is_told = told & seen_from(layout, texts, path)
        if rejected[path] and not is_told and kind.expected != UNSEEN:
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


def is_compiled(kind, name, marks):
    """Of a tree with a mistake, the files that do not see it need no compiler, nor do those with a
    mistake that is no matter of the compiler."""
    if kind.slip:
        return kind.expected == ERROR and marks
    return not kind.files or not name.startswith("valid")


def try_tree(tools, directory, rng, kind):
    """Makes a tree of a kind and checks it. Returns what is wrong, and what is said."""
    maker = TreeMaker(rng, kind, directory)
    texts, marks = maker.make()
    layout = maker.layout
    tools.write_files(directory, texts)
    if kind.slip and kind.slip[0] == NO_BASE:
        layout.bases.remove(rng.choice(BASES))
    flags = [flag for base in layout.bases for flag in ("-I", base)]
    # The paths by which the files are named: perhaps through a link. Others are only included. An
    # include that several files of a case lack is told at the first of them.
    paths = list(texts) if layout.own_paths else rng.sample(sorted(texts), len(texts))
    order = {path: rng.choice(layout.names_of(path)) for i, path in enumerate(paths)
             if i == 0 or marks[path] or kind.expected == WARNING or rng.random() < 0.9}
    told = run(directory, tools.checker, "--check", *flags, *order.values())
    said = told.stderr.decode(errors="replace")
    for path, name in ((path, name) for path in texts for name in layout.names_of(path)):
        said = re.sub(f"^{re.escape(name)}:", f"{path}:", said, flags=re.M)
    said, absent = re.subn("^idlgen-header: none: No such .*\n", "", said, flags=re.M)
    messages, wrong = read_messages(said, texts)
    if told.returncode != any(message.severity == "error" for message in messages) or told.stdout:
        wrong.append(f"status {told.returncode}, or standard output")
    for time, path in enumerate(texts, 1):
        tools.make_header(directory, path, time)
    rejected = {path: tools.compile(directory, os.path.splitext(path)[0] + ".h", *flags)
                for name, path in layout.paths.items() if is_compiled(kind, name, marks[path])}
    wrong += judge_agreement(kind, layout, texts, rejected, messages)
    wrong += [f"{message.path}: {form} cannot be included" for message in messages
              for form in re.findall('is "(.+)" to be included', message.text)
              if not layout.find(message.path, form)]
    if kind.slip:
        wrong += judge_missing(maker, texts, order, messages, absent)
    wrong += judge_messages_by_path(kind, marks, messages)
    return wrong, [f"---- {' '.join(flags)} {' '.join(order.values())}; links: {maker.links}",
                   f"{layout.link} -> {layout.directory}",
                   *(f"-- {path} (marks: {marks[path]})\n{text}" for path, text in texts.items()),
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
