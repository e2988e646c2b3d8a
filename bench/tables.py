"""Prints the tables of doc/performance.md. Called by scripts/bench with its build directory, and
with the prefix of another version if there is one to compare with."""
import math
import pathlib
import shutil
import subprocess
import sys
import tempfile

import builds
from inputs import GROWING, TOOLS, chain, idlgen, including, layers, mesh, star
from timing import compare, medians, peak_memory, run


def table(*heads):
    print("\n| " + " | ".join(heads) + " |\n| --- " + "| ---: " * (len(heads) - 1) + "|")


def row(*cells):
    print("| " + " | ".join(cells) + " |", flush=True)


def number(value):
    """Returns three significant digits."""
    value = float(f"{value:.3g}")
    return f"{value:,.{max(0, 2 - math.floor(math.log10(value)))}f}"


def milliseconds(seconds):
    return number(seconds * 1e3) + " ms"


def compared(name, figures):
    *times, ratio = figures
    row(name, *map(milliseconds, times), number(ratio))


def command(tool, build, folder, text):
    """Writes the text to a directory of the tool. Returns that, the file, and the command line."""
    extension, template, _ = TOOLS[tool]
    directory = folder / tool
    directory.mkdir(exist_ok=True)
    file = directory / f"a.{extension}"
    file.write_text(text)
    return directory, file, [word.format(build=build, dir=directory, file=file)
                             for word in template.split()]


def compare_with_floor(build, folder):
    floor = str(build / "floor")
    copy = str(folder / "copy")
    own, empty = medians([command("idlgen", build, folder, "")[2], [floor]], 201)
    print(f"An empty file: {milliseconds(own[0])}; an empty program: {milliseconds(empty[0])}")
    for tool, mode in ("idlgen", "lines"), ("idlgen-header", "whole"):
        table("messages", "floor", tool, "ratio", "memory / input")
        for count, runs in (10, 201), (100, 101), (1000, 41), (10000, 9), (100000, 5):
            directory, idl, words = command(tool, build, folder, idlgen(count))
            run(words)
            own, least = medians([words, [floor, mode, str(directory / "a.h"), copy]], runs)
            memory = number(peak_memory(words) / idl.stat().st_size) if count >= 10000 else ""
            row(f"{count:,}", milliseconds(least[0]), milliseconds(own[0]),
                number(own[0] / least[0]), memory)


def compare_with_other_version(build, folder, other):
    # How a program's file was written changes the time by up to 10%, so both are copied.
    programs = [shutil.copy(f"{prefix}/bin/idlgen-header", f"{build}/{name}")
                for name, prefix in (("own", build / "installed"), ("other", other))]
    table("messages", "idlgen-header", "other version", "median ratio")
    for count, runs in (1, 1001), (100, 501), (1000, 101), (10000, 21), (100000, 7):
        words = command("idlgen-header", build, folder, idlgen(count))[2]
        compared(f"{count:,}", compare([[program, *words[1:]] for program in programs], runs))


def version(tool):
    return subprocess.check_output([tool, "--version"], text=True).split()[-1]


def compare_tools(build, folder):
    others = [tool for tool in TOOLS if shutil.which(tool) and not tool.startswith("idlgen")]
    print("\nOther tools: " + ", ".join(f"{tool} {version(tool)}" for tool in others))
    table("messages", "tool", "time", "time / idlgen's time", "output")
    for count, runs in (1, 101), (100, 21), (1000, 11), (10000, 3):
        tools = {tool: command(tool, build, folder, TOOLS[tool][2](count))
                 for tool in ["idlgen", "idlgen-header", *others]}
        figures = medians([words for _, _, words in tools.values()], runs)
        for (tool, (directory, file, _)), own in zip(tools.items(), figures):
            size = sum(path.stat().st_size for path in directory.iterdir() if path != file)
            row(f"{count:,}", tool, milliseconds(own[0]), number(own[0] / figures[0][0]),
                number(size / 1e3) + " kB")


def check_command(build, folder, includes):
    """Writes files that include each other. Returns their paths and the command to check them."""
    folder.mkdir(parents=True)
    paths = [f"{folder}/file{i}.idl" for i in range(len(includes))]
    for i, (path, others) in enumerate(zip(paths, includes)):
        pathlib.Path(path).write_text(including(i, others))
    arguments = folder / "arguments"
    arguments.write_text("\n".join(paths))
    return paths, [f"{build}/idlgen/idlgen-header", "--check", f"@{arguments}"]


def show_checks(build, folder):
    table("check of", "--check", "idlgen -f", "median ratio")
    paths, check = check_command(build, folder / "mesh", mesh(600))
    compared("600 files that include each other",
             compare([check, [f"{build}/idlgen/idlgen", "-f", *paths]], 41))
    table("check of", "time", "memory")
    for name, includes in {"a chain of 5,000 files": chain(5000),
                           "a file with 5,000 includes": star(5000),
                           "20 layers of two files": layers(20)}.items():
        words = check_command(build, folder / name, includes)[1]
        memory = number(peak_memory(words) / 1e6) + " MB" if len(includes) >= 5000 else ""
        row(name, milliseconds(medians([words], 9)[0][0]), memory)


def show_builds(build, folder):
    prefix = build / "installed"
    table("a build of 500 headers", "time", "nothing to do")
    row("Ninja", *map(milliseconds, builds.measure_build(folder, prefix)))
    table("a target of 4,000 files", "links 100 targets", "links none", "median ratio")
    compared("configuring", builds.compare_configurations(folder, prefix))


def show_growth(build, folder):
    table("input: n of", "program", "n = 250,000", "n = 2,000,000", "slope")
    for tool, status, inputs in GROWING:
        for name, text in inputs.items():
            first, last = (medians([command(tool, build, folder, text(n))[2]], 5, status)[0][1]
                           for n in (250000, 2000000))
            slope = math.log(last / first, 8)
            row(name, tool, milliseconds(first), milliseconds(last), f"{slope:.2f}")


def main(build, other=None):
    with tempfile.TemporaryDirectory(dir="/dev/shm") as name:
        folder = pathlib.Path(name)
        if other:
            compare_with_other_version(build, folder, other)
        compare_with_floor(build, folder)
        compare_tools(build, folder)
        show_checks(build, folder / "trees")
        show_builds(build, folder / "builds")
        show_growth(build, folder)


main(pathlib.Path(sys.argv[1]).resolve(), *sys.argv[2:])
