"""Prints the tables of doc/performance.md. Called by scripts/bench with its build directory."""
import math
import pathlib
import shutil
import statistics
import sys
import tempfile

from builds import COUNT, medians_of_builds
from inputs import GROWING, TOOLS, idlgen
from timing import medians, run

build = pathlib.Path(sys.argv[1]).resolve()
FLOOR = str(build / "bench/idlgen_floor")
IDLGEN = [str(build / "idlgen/idlgen"), "-f"]
STEP = str(build / "idlgen/idlgen-header")


def table(*heads):
    print("\n| " + " | ".join(heads) + " |\n| --- " + "| ---: " * (len(heads) - 1) + "|")


def row(*cells):
    print("| " + " | ".join(cells) + " |", flush=True)


def milliseconds(figures):
    return f"{figures[0] * 1e3:.2f} ms"


folder = pathlib.Path(tempfile.mkdtemp(dir="/dev/shm"))
idl, header, copy = str(folder / "a.idl"), str(folder / "a.h"), str(folder / "copy")


def write_messages(count):
    pathlib.Path(idl).write_text(idlgen(count))
    run(IDLGEN + [idl])


write_messages(0)
start, empty = medians([IDLGEN + [idl], [FLOOR]], 201)
print(f"An empty file: {milliseconds(start)}; an empty program: {milliseconds(empty)}")

for name, command, mode in (("idlgen", IDLGEN + [idl], "lines"), ("idlgen-header", [STEP, idl, copy], "whole")):
    table("messages", "floor", name, "ratio", "memory / input")
    for count, runs in (10, 201), (100, 101), (1000, 41), (10000, 9), (100000, 5):
        write_messages(count)
        own, floor = medians([command, [FLOOR, mode, header, copy]], runs)
        # For smaller inputs, the peak measured is this script's own memory.
        memory = f"{own[2] / pathlib.Path(idl).stat().st_size:.1f}" if count >= 10000 else ""
        row(f"{count:,}", milliseconds(floor), milliseconds(own), f"{own[0] / floor[0]:.2f}", memory)

table("messages", "tool", "time", "time / idlgen's time")
for count, runs in (1, 101), (100, 21), (1000, 11), (10000, 3):
    write_messages(count)
    commands = {"idlgen": IDLGEN + [idl], "idlgen-header": [STEP, idl, copy]}
    for tool, (extension, command, text) in TOOLS.items():
        file = folder / f"a.{extension}"
        file.write_text(text(count))
        if shutil.which(tool):
            commands[tool] = command.format(dir=folder, file=file).split()
    figures = medians(commands.values(), runs)
    for tool, own in zip(commands, figures):
        row(f"{count:,}", tool, milliseconds(own), f"{own[0] / figures[0][0]:.2f}")

table(f"a build of {COUNT} headers", "time", "nothing to do")
for tool, (full, idle) in medians_of_builds(folder, build / "installed").items():
    row(f"Ninja and {tool}", f"{full:.2f} s", f"{idle:.4f} s")

table("input: n of", "n = 250,000", "n = 2,000,000", "slope")
for name, text in GROWING.items():
    points = []
    for n in 250000, 500000, 1000000, 2000000:
        pathlib.Path(idl).write_text(text(n))
        points.append((math.log(n), math.log(medians([IDLGEN + [idl]], 5)[0][1])))
    first, last = (math.exp(points[end][1]) * 1e3 for end in (0, -1))
    slope = statistics.linear_regression(*zip(*points)).slope
    row(name, f"{first:.0f} ms", f"{last:.0f} ms", f"{slope:.2f}")
shutil.rmtree(folder)
