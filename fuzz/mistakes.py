#!/usr/bin/env python3
"""Shows how well idlgen-header tells several mistakes in one run.

mistakes.py BUILD [--count N] [--seed S] [--jobs J] [--show N]

Makes valid IDL files like those of robots and puts 1, 3 or 6 mistakes into each, on lines of their
own: lines of other languages, and slips. Prints for each number of mistakes

- "told": how many of the lines with a mistake have an error or a warning
- "true": how many of the lines with an error or a warning have a mistake

and how many messages a single brace too many or too few gives. The status is 1 if a figure is worse
than wanted. --show prints some files of which a line is not told or another one is.
"""
import argparse
import collections
import concurrent.futures
import functools
import pathlib
import random
import subprocess
import sys
import tempfile

import habits
from messages import read_messages
from robots import Line, RobotFile

WANTED = {1: (1.00, 0.99), 3: (0.98, 0.97), 6: (0.97, 0.97)}
BRACE = -1  # Instead of a number of mistakes.
WANTED_FOR_BRACE = 2

# How often a mistake is in a line of this role, or in place of two lines, or a list of its own.
WEIGHTS = {"member": 10, "item": 5, "gap": 5, "enum": 2, "message": 3, "service": 2, "part": 2,
           "end": 1, "include": 2, "namespace": 2, "last member": 1, "inner list": 1,
           "outer list": 1}

File = collections.namedtuple("File", "text mistakes")  # `mistakes`: the forms, by line number.


def place_of(lines, i, rng):
    """Returns what kind of mistake may be at a line, or ""."""
    role = lines[i].role
    if role == "gap":
        return rng.choice(["gap"] * 5 + ["outer list"])
    if role == "member" and lines[i + 1].role == "end":
        return rng.choice(["member"] * 3 + ["last member"])
    if role == "member":
        return rng.choice(["member"] * 9 + ["inner list"])
    return role if role in WEIGHTS else ""


def forms_of(place, has_includes):
    """Returns the forms of a kind of mistake: lists of lines, of which the first is wrong."""
    if place.endswith("list"):
        return habits.INNER_LISTS if place == "inner list" else habits.OUTER_LISTS
    lines = {"member": habits.MEMBERS + ([] if has_includes else habits.UNKNOWN_TYPES),
             "last member": habits.LAST_MEMBERS, "item": habits.ITEMS, "gap": habits.STATEMENTS,
             "end": habits.ENDS, "include": habits.INCLUDES, "namespace": habits.NAMESPACES}
    return [[line] for line in lines.get(place, habits.HEADS.get(place, []))]


def fill(text, line, earlier, number):
    for key, word in ("x", line.name), ("t", line.value), ("n", str(number)), ("earlier", earlier):
        text = text.replace("{" + key + "}", word)
    return text


def choose(lines, count, rng):
    """Returns the places of mistakes by line, none beside another, or None if there is no room."""
    places = {i: place_of(lines, i, rng) for i in range(len(lines))}
    weights = [WEIGHTS.get(place, 0) for place in places.values()]
    chosen = {}
    for i in rng.choices(list(places), weights, k=20 * count):
        if len(chosen) < count and not any(abs(i - other) < 3 for other in chosen):
            chosen[i] = places[i]
    return chosen if len(chosen) == count else None


def earlier_name(lines, i, chosen):
    """Returns the name of a right member or item above, in the same list, or ""."""
    while i > 0 and lines[i - 1].role in ("member", "item", "other"):
        i -= 1
        if i not in chosen and lines[i].name:
            return lines[i].name
    return ""


def put_mistakes(file, chosen, rng):
    """Returns the text of the file with a mistake at each of the chosen lines."""
    replaced, names = {}, {}  # The lines in place of a line, and the form of its mistake.
    for i, place in chosen.items():
        line, earlier = file.lines[i], earlier_name(file.lines, i, chosen)
        form = rng.choice([form for form in forms_of(place, file.has_includes)
                           if earlier or "{earlier}" not in form[0]])
        indent = line.text[:len(line.text) - len(line.text.lstrip())]
        names[i] = f"{place}: {form[0]}"
        replaced[i] = [indent + fill(part, line, earlier, i) for part in form]
        if place in ("inner list", "gap", "outer list"):
            replaced[i].append(line.text)
        if place == "last member":
            replaced[i + 1] = []
    text, mistakes = [], {}
    for i, line in enumerate(file.lines):
        if i in names:
            mistakes[len(text) + 1] = names[i]
        text += replaced.get(i, [line.text])
    return File("\n".join(text) + "\n", mistakes)


def put_brace(file, rng):
    """Returns the text of the file with a brace too few or too many, or a nested declaration."""
    lines = file.lines
    i = rng.choice([i for i, line in enumerate(lines)
                    if line.role in ("enum", "message", "service", "part", "end", "member")])
    line = lines[i]
    if line.role == "member":
        form = rng.choice(habits.NESTED)
        lines[i:i] = [Line("other", fill(part, line, "", i)) for part in form]
    elif rng.random() < 0.3:
        lines.insert(i + 1, Line("other", line.text.strip()[-1]))
    else:
        lines[i] = line._replace(text=line.text[:-1])
    return File("\n".join(line.text for line in lines) + "\n", {i + 1: "a brace"})


def make(count, rng):
    while True:
        file = RobotFile(rng)
        if count == BRACE:
            return put_brace(file, rng)
        chosen = choose(file.lines, count, rng)
        if chosen is not None:
            return put_mistakes(file, chosen, rng)


class Figures:
    """What was said about files with one number of mistakes."""

    def __init__(self):
        self.files = self.mistakes = self.told = self.lines = 0
        self.most_messages = 0

    def add(self, mistakes, lines, messages):
        self.files += 1
        self.mistakes += len(mistakes)
        self.told += len(lines & mistakes.keys())
        self.lines += len(lines)
        self.most_messages = max(self.most_messages, len(messages))

    def ratios(self):
        return self.told / max(1, self.mistakes), self.told / max(1, self.lines)


def try_file(program, directory, task):
    """Makes a file with a number of mistakes and runs idlgen-header. Returns all about it."""
    seed, count = task
    file = make(count, random.Random(seed))
    path = directory / f"{seed.replace('/', '_')}.idl"
    path.write_bytes(file.text.encode())
    result = subprocess.run([program, path.name, path.stem + ".h"], cwd=directory, timeout=60,
                            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    path.unlink()
    said = result.stderr.decode(errors="replace")
    messages, faults = read_messages(said, {path.name: file.text})
    if result.returncode != any(message.severity == "error" for message in messages):
        faults.append(f"status {result.returncode}")
    if bool(messages) != bool(file.mistakes):
        faults.append(f"{len(messages)} messages about {len(file.mistakes)} mistakes")
    return count, file, said, messages, faults


def is_good(count, figures):
    if count not in WANTED:
        return figures.most_messages <= WANTED_FOR_BRACE
    # As they are printed.
    return all(round(ratio, 2) >= wanted for ratio, wanted in zip(figures.ratios(), WANTED[count]))


def report(figures, missed):
    """Prints the figures. Returns whether one is worse than wanted."""
    print("mistakes  files  told  wanted  true  wanted")
    for count, wanted in WANTED.items():
        told, true = figures[count].ratios()
        print(f"{count:8} {figures[count].files:6} {told:5.2f} {wanted[0]:7.2f} {true:5.2f}"
              f" {wanted[1]:7.2f}")
    most = figures[BRACE].most_messages
    print(f"   brace {figures[BRACE].files:6}  {most} messages at most, wanted {WANTED_FOR_BRACE}")
    for form, count in missed.most_common(10):
        print(f"{count} times not told: {form}")
    return not all(is_good(count, figures[count]) for count in figures)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--count", type=int, default=1000)
    parser.add_argument("--seed", default="1")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--show", type=int, default=0)
    options = parser.parse_args()
    program = options.build.resolve() / "idlgen/idlgen-header"
    numbers = [*WANTED] * 4 + [BRACE] * 4 + [0]
    tasks = [(f"{options.seed}/{i}", numbers[i % len(numbers)]) for i in range(options.count)]

    figures = {count: Figures() for count in [*WANTED, BRACE, 0]}
    missed, shown, has_faults = collections.Counter(), 0, False
    with tempfile.TemporaryDirectory() as temporary, \
            concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        run = functools.partial(try_file, program, pathlib.Path(temporary))
        for count, file, said, messages, faults in pool.map(run, tasks):
            lines = {message.line for message in messages}
            figures[count].add(file.mistakes, lines, messages)
            if count in WANTED:
                missed.update(form for line, form in file.mistakes.items() if line not in lines)
            has_faults = has_faults or bool(faults)
            is_right = lines == file.mistakes.keys() or count == BRACE and len(messages) <= 2
            if faults or not is_right and shown < options.show:
                shown += 1
                print(f"{file.text}---- mistakes: {file.mistakes}\n{said}", *faults, sep="\n")
    return report(figures, missed) or has_faults


if __name__ == "__main__":
    sys.exit(main())
