"""The part of a comparison of random files with compilers that is the same for all kinds of files."""
import argparse
import collections
import concurrent.futures
import pathlib
import random
import shutil
import sys
import tempfile

from tools import Tools


def parse_options(**more):
    """Reads the command line. `more` are options without a value, with their help."""
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--seed", default="1")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--keep", type=pathlib.Path, help="where to copy files that disagree")
    parser.add_argument("--kind", default="", help="only kinds whose name has this text")
    for name, text in more.items():
        parser.add_argument("--" + name.replace("_", "-"), action="store_true", help=text)
    return parser.parse_args()


def compare(options, kinds, try_one):
    """Tries files of all kinds, and prints the disagreements and a table. Returns the exit status.

    try_one(tools, directory, rng, kind) makes and checks files of one kind. It returns a report,
    which is empty if all agree, and whether the first message is at the line of the mistake.
    """
    # A quarter is of the first kind, which is the valid one.
    rows = [kind for kind in kinds if options.kind in kind.name]
    if not rows:
        sys.exit(f"There is no kind with {options.kind!r} in its name.")
    rows = [rows[0 if i % 4 == 0 else (i - i // 4) % len(rows)] for i in range(options.count)]
    count = collections.defaultdict(lambda: [0, 0, 0])

    with tempfile.TemporaryDirectory() as temporary, \
            concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        tools = Tools(options.build, pathlib.Path(temporary))

        def try_row(i):
            directory = pathlib.Path(temporary) / str(i)
            directory.mkdir()
            report, is_exact = try_one(tools, directory, random.Random(f"{options.seed}/{i}"), rows[i])
            if report and options.keep:
                shutil.copytree(directory, options.keep / directory.name, dirs_exist_ok=True)
            shutil.rmtree(directory)
            return report and f"==== {i} {rows[i].name}: {report}", is_exact

        for kind, (report, is_exact) in zip(rows, pool.map(try_row, range(options.count))):
            for name in kind.name, "all":
                count[name] = [a + b for a, b in zip(count[name], (1, is_exact, bool(report)))]
            if report:
                print(report, flush=True)

    print(" files  told at the line  disagreements")
    for name in sorted(count, key=lambda name: name == "all"):
        print("{:6} {:17} {:14}  ".format(*count[name]) + name)
    return count["all"][2] > 0
