"""The part of comparisons of random files with compilers that is the same for files and trees."""
import argparse
import collections
import concurrent.futures
import itertools
import pathlib
import random
import shutil
import sys
import tempfile

from kinds import BELOW, COPIED, TOLD, UNSEEN, VALID, WARNING
from tools import Tools


def parse_options(count, **more):
    """Reads the command line. `more` are options with their default values and help."""
    parser = argparse.ArgumentParser(description=sys.modules["__main__"].__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--count", type=int, default=count)
    parser.add_argument("--seed", default="1")
    parser.add_argument("--jobs", type=int, default=2)
    for name, (value, text) in more.items():
        parser.add_argument("--" + name, type=type(value), default=value, help=text)
    return parser.parse_args()


def choose(options, *groups):
    """Returns the kinds to try: one of each group in turn."""
    rng = random.Random(options.seed)
    groups = [[kind for kind in group if options.kind in kind.name] for group in groups]
    turns = [itertools.cycle(rng.sample(group, len(group))) for group in groups if group]
    if not turns:
        sys.exit(f"There is no kind with {options.kind!r} in its name.")
    return [next(turn) for turn in itertools.islice(itertools.cycle(turns), options.count)]


def judge_messages(expected, marks, messages):
    """Returns how the messages about a file differ from what is expected of it. Marks with
    severities say which messages there must be, others which there may be."""
    told = {(message.line, message.severity) for message in messages}
    severities, lines = {severity for _, severity in told}, {line for line, _ in marks}
    if any(severity for _, severity in marks):
        return [f"told: {sorted(told)}, expected: {marks}"] if told != set(marks) else []
    allowed = {VALID: [set()], UNSEEN: [set()], WARNING: [{"warning"}],
               COPIED: [set(), {"warning"}], TOLD: [{"error"}, {"warning"}, {"error", "warning"}]}
    wrong = []
    if severities not in allowed.get(expected, [{"error"}, {"error", "warning"}]):
        wrong.append(f"severity: {severities or 'none'}, expected: {expected}")
    if expected != BELOW and any(line not in lines for line, _ in told):
        wrong.append(f"lines: {sorted(told)}, expected: {sorted(lines)}")
    return wrong


def compare(kinds, cases, try_one):
    """Tries files of all kinds, and prints the disagreements and a table. Returns the exit status.

    The first kind is the valid one. try_one(tools, directory, rng, kind) makes and checks files of
    one kind, and returns what is wrong, and what the files and the programs say.
    """
    options = parse_options(300, keep=("", "where to copy files that disagree"),
                            kind=("", "only kinds whose name has this text"))
    rows = choose(options, kinds[:1], cases, kinds[1::2], kinds[2::2])
    files, disagreements = collections.Counter(), collections.Counter()
    with tempfile.TemporaryDirectory() as temporary, \
            concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        tools = Tools(options.build, pathlib.Path(temporary))

        def try_row(i):
            directory = pathlib.Path(temporary) / str(i)
            directory.mkdir()
            wrong, said = try_one(tools, directory, random.Random(f"{options.seed}/{i}"), rows[i])
            if wrong and options.keep:
                shutil.copytree(directory, pathlib.Path(options.keep, directory.name))
            shutil.rmtree(directory)
            head = f"==== {i} {rows[i].name}: {'; '.join(wrong)}"
            return "\n".join([head, *said]) if wrong else ""

        for kind, report in zip(rows, pool.map(try_row, range(options.count))):
            if report:
                print(report, flush=True)
            for name in "cases" if kind in cases else kind.name, "all":
                files[name] += 1
                disagreements[name] += bool(report)

    print(" files  disagreements")
    for name in sorted(files, key=lambda name: name == "all"):
        print(f"{files[name]:6} {disagreements[name]:14}  {name}")
    return disagreements["all"] > 0
