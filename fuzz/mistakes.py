#!/usr/bin/env python3
"""Shows how well idlgen-header tells several mistakes in one run.

Makes valid IDL files like those of most people and puts 1, 3 or 6 mistakes into each, on lines of
their own: lines of other languages, and slips. In some files, right declarations share lines.
Prints for each kind of files

- "told": how many of the lines with a mistake have an error or a warning
- "true": how many of the lines with an error or a warning have a mistake

and how many messages a single brace too many or too few gives. The status is 1 if a figure is worse
than wanted.
"""
import collections
import concurrent.futures
import functools
import itertools
import pathlib
import random
import re
import sys
import tempfile

import habits
from comparison import parse_options
from messages import read_messages
from sources import Source
from tools import run

# A kind of files: how many mistakes each has, whether declarations share lines, and what is wanted.
Kind = collections.namedtuple("Kind", "name mistakes joined told true")
KINDS = [Kind("1", 1, False, 1.00, 0.99), Kind("3", 3, False, 0.98, 0.97),
         Kind("6", 6, False, 0.97, 0.97), Kind("3, joined", 3, True, 0.98, 0.97)]
NONE, BRACE = Kind("none", 0, True, 0, 0), Kind("brace", 1, False, 0, 0)
WANTED_FOR_BRACE = 2  # Messages at most.

# A line of a file. `role` is "include", "namespace", "gap" (between statements), "enum", "message",
# "service", "part" (the head of a request or response), "member", "item", "end" or "other". A line
# with a declaration has its name, and a member its type, an item its value.
Line = collections.namedtuple("Line", "role text name value", defaults=("", ""))

# How often a mistake is in a line of this role, or in place of two lines, or a list of its own.
WEIGHTS = {"member": 10, "item": 5, "gap": 5, "enum": 2, "message": 3, "service": 2, "part": 2,
           "end": 1, "include": 2, "namespace": 2, "last member": 1, "inner list": 1,
           "outer list": 1}

ENDED = ["member", "item", "gap", "include", "namespace"]  # May also end with ";" or ",".

INCLUDED = {"common/geometry.idl": ["geometry", "Pose", "Vector3"],
            "std/time.idl": ["std_msgs", "Time", "Header"],
            "planning/path.msg": ["planning", "Path", "Segment"]}
NAMESPACES = ["robot", "robot.nav", "fleet.msgs", "vehicle.control", "arm"]
COMMENTS = ["in metres", "radians", "since start-up", "see the manual: 4.2", "m/s", "TODO: unit?"]


def lines_of(statements, rng):
    """Returns the lines of the statements in a usual layout."""
    separator = rng.choice([": ", ": ", ": ", ":", " : ", " "])
    mark = rng.choice(["#", "#", "//"])
    lines, indent = [Line("other", f"{mark} Messages of the robot.")], ""
    for statement in statements:
        role = "item" if statement[0].startswith("enum") else "member"
        if role == "member" and 1 < len(statement) < 5 and rng.random() < 0.3:
            statement = [" ".join(statement)]
        for text in statement:
            first, *words = text.split(" ")
            if text == "}":
                indent = indent[4:]
                lines.append(Line("end", indent + text))
            elif first[-1] == ":":
                comment = f"  {mark} {rng.choice(COMMENTS)}" if rng.random() < 0.2 else ""
                text = indent + first[:-1] + separator + words[0] + comment
                lines.append(Line(role, text, first[:-1], words[0]))
            elif text[-1] == "{" and indent:
                lines.append(Line("part", indent + text, first))
            else:
                lines.append(Line("other" if text[-1] == "}" else first, text, words[0].strip('"')))
            indent += "    " * (text[-1] == "{")
        lines.append(Line("gap", ""))
    return lines


def make_lines(rng):
    """Returns the lines of a valid file, and whether it includes others."""
    paths = rng.sample(sorted(INCLUDED), rng.choice([0, 0, 0, 1, 2]))
    included = [((INCLUDED[path][0],), name) for path in paths for name in INCLUDED[path][1:]]
    namespace = tuple(rng.choice(NAMESPACES).split(".")) if rng.random() < 0.7 else ()
    source = Source(rng, itertools.count(1), namespace, included, dots=False, plain=True)
    includes = [[f'include "{path}"'] for path in paths]
    return lines_of(includes + source.statements, rng), bool(paths)


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


def put_mistakes(lines, has_includes, chosen, joined, rng):
    """Returns the text of the lines with a mistake at each of the chosen ones, and the forms of
    the mistakes by line number."""
    text, mistakes, may_join = [], {}, False
    for i, line in enumerate(lines):
        if chosen.get(i - 1) == "last member":
            continue
        if i not in chosen:
            if joined and may_join and rng.random() < 0.6:
                text[-1] += (" " + line.text.strip()).rstrip(" ")
            else:
                text.append(line.text)
            # After a comment, and before "//" after a path, nothing else can stand.
            may_join = not re.search("[#/]", line.text)
            continue
        place, earlier = chosen[i], earlier_name(lines, i, chosen)
        forms = habits.FORMS[place]
        if place == "member" and not has_includes:
            forms = forms + habits.FORMS["unknown type"]
        form = rng.choice([form for form in forms if earlier or "{earlier}" not in form[0]])
        mistakes[len(text) + 1] = f"{place}: {form[0]}"
        indent = line.text[:len(line.text) - len(line.text.lstrip())]
        text += [indent + fill(part, line, earlier, i) for part in form]
        if place in ENDED and text[-1][-1] not in ";,{*/" and rng.random() < 0.2:
            text[-1] += rng.choice(";,")
        text += [line.text] if place in ("inner list", "gap", "outer list") else []
        may_join = False
    return "\n".join(text) + "\n", mistakes


def put_brace(lines, rng):
    """Does the same with a brace too few or too many, or a nested declaration."""
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
    return "\n".join(line.text for line in lines) + "\n", {i + 1: "a brace"}


def make(kind, rng):
    while True:
        lines, has_includes = make_lines(rng)
        if kind == BRACE:
            return put_brace(lines, rng)
        chosen = choose(lines, kind.mistakes, rng)
        if chosen is not None:
            return put_mistakes(lines, has_includes, chosen, kind.joined, rng)


def try_file(program, directory, task):
    """Makes a file of a kind and runs idlgen-header. Returns all about it."""
    seed, kind = task
    text, mistakes = make(kind, random.Random(seed))
    path = directory / f"{seed.replace('/', '_')}.idl"
    path.write_bytes(text.encode())
    result = run(directory, program, path.name, path.stem + ".h")
    path.unlink()
    said = result.stderr.decode(errors="replace")
    messages, faults = read_messages(said, {path.name: text})
    if result.returncode != any(message.severity == "error" for message in messages):
        faults.append(f"status {result.returncode}")
    if bool(messages) != bool(mistakes):
        faults.append(f"{len(messages)} messages about {len(mistakes)} mistakes")
    report = "\n".join([f"{text}---- mistakes: {mistakes}", said, *faults])
    return kind, mistakes, messages, report, bool(faults)


def print_figures(figures, missed):
    """Prints the figures. Returns whether one is worse than wanted."""
    is_worse = False
    print(" mistakes  files  told  wanted  true  wanted")
    for kind in KINDS:
        files, mistakes, lines, told = (figures[kind][key]
                                        for key in ("files", "mistakes", "lines", "told"))
        ratios = [round(told / max(1, all), 2) for all in (mistakes, lines)]
        print(f"{kind.name:>9} {files:6} {ratios[0]:5.2f} {kind.told:7.2f} {ratios[1]:5.2f}"
              f" {kind.true:7.2f}")
        is_worse = is_worse or ratios[0] < kind.told or ratios[1] < kind.true
    for form, count in missed.most_common(10):
        print(f"{count} times not told: {form}")
    return is_worse


def main():
    options = parse_options(
        1000, show=(0, "how many files to print of which a line is not told, or another one is"))
    program = options.build.resolve() / "idlgen/idlgen-header"
    kinds = [*KINDS, KINDS[0], BRACE] * 4 + [NONE]
    tasks = [(f"{options.seed}/{i}", kinds[i % len(kinds)]) for i in range(options.count)]
    figures, missed = collections.defaultdict(collections.Counter), collections.Counter()
    shown, most, is_bad = 0, 0, False
    with tempfile.TemporaryDirectory() as temporary, \
            concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        try_task = functools.partial(try_file, program, pathlib.Path(temporary))
        for kind, mistakes, messages, report, has_faults in pool.map(try_task, tasks):
            lines = {message.line for message in messages}
            most = max(most, len(messages) * (kind == BRACE))
            figures[kind].update(files=1, mistakes=len(mistakes), lines=len(lines),
                                 told=len(lines & mistakes.keys()))
            if kind != BRACE:
                missed.update(form for line, form in mistakes.items() if line not in lines)
            is_right = lines == mistakes.keys() or kind == BRACE
            if has_faults or not is_right and shown < options.show:
                shown += 1
                print(report)
            is_bad = is_bad or has_faults
    print(f"At most {most} messages about a brace, wanted: {WANTED_FOR_BRACE}.")
    return print_figures(figures, missed) or is_bad or most > WANTED_FOR_BRACE


if __name__ == "__main__":
    sys.exit(main())
