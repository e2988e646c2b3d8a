"""Ninja builds of many small headers: with idlgen_generate, and with commands that run flatc."""
import shutil
import statistics
import subprocess

from inputs import TOOLS, idlgen
from timing import run

COUNT = 500
START = """
cmake_minimum_required(VERSION 3.23)
project(headers LANGUAGES NONE)
file(GLOB files *.idl *.fbs)
"""
PROJECTS = {
    "idlgen": ("idl", idlgen, """
find_package(idlgen CONFIG REQUIRED)
idlgen_generate(TARGET headers FILES ${files})
"""),
    "flatc": ("fbs", TOOLS["flatc"][2], """
foreach(file IN LISTS files)
  cmake_path(GET file STEM stem)
  add_custom_command(OUTPUT ${stem}_generated.h COMMAND flatc --cpp ${file} DEPENDS ${file})
  list(APPEND headers ${stem}_generated.h)
endforeach()
add_custom_target(headers ALL DEPENDS ${headers})
""")}


def quietly(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def configured(tool, folder, prefix):
    """Writes, configures and builds the tool's project. Returns its build directory."""
    extension, text, project = PROJECTS[tool]
    source = folder / tool
    source.mkdir(parents=True)
    (source / "CMakeLists.txt").write_text(START + project)
    for i in range(COUNT):
        (source / f"file{i}.{extension}").write_text(text(1))
    build = source / "build"
    quietly("cmake", "-G", "Ninja", "-S", source, "-B", build, f"-DCMAKE_PREFIX_PATH={prefix}")
    quietly("ninja", "-C", build)
    return str(build)


def medians_of_builds(folder, prefix, runs=5):
    """Returns, for each tool, the median seconds of a full build and of one with nothing to do."""
    builds = {tool: configured(tool, folder, prefix) for tool in PROJECTS
              if tool == "idlgen" or shutil.which(tool)}
    times = {tool: [] for tool in builds}
    for _ in range(runs):
        for tool, build in builds.items():
            quietly("ninja", "-C", build, "clean")
            times[tool].append([run(["ninja", "-C", build])[0] for _ in ("full", "idle")])
    return {tool: [statistics.median(kind) for kind in zip(*rounds)]
            for tool, rounds in times.items()}
