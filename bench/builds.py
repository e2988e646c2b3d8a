"""Builds of many small headers: with idlgen_generate, and with commands that run flatc."""
import shutil
import statistics
import subprocess

from inputs import TOOLS, idlgen
from timing import median_ratio, run
from trees import mesh, texts

START = """
cmake_minimum_required(VERSION 3.23)
project(headers LANGUAGES NONE)
file(GLOB files *.idl *.fbs)
"""
IDLGEN = START + """
find_package(idlgen CONFIG REQUIRED)
idlgen_generate(TARGET headers FILES ${files})
"""
FLATC = START + """
foreach(file IN LISTS files)
  cmake_path(GET file STEM stem)
  add_custom_command(OUTPUT ${stem}_generated.h COMMAND flatc --cpp ${file} DEPENDS ${file})
  list(APPEND headers ${stem}_generated.h)
endforeach()
add_custom_target(headers ALL DEPENDS ${headers})
"""
LINKED = IDLGEN + """
foreach(i RANGE 1 100)
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/base${i}/part${i}.idl "message Part${i} { }")
  idlgen_generate(TARGET part${i} FILES ${CMAKE_CURRENT_BINARY_DIR}/base${i}/part${i}.idl
                  BASE_DIR ${CMAKE_CURRENT_BINARY_DIR}/base${i})
  if(LINKED)
    target_link_libraries(headers INTERFACE part${i})
  endif()
endforeach()
"""


def quietly(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def write(source, project, contents, extension="idl"):
    source.mkdir(parents=True)
    (source / "CMakeLists.txt").write_text(project)
    for i, text in enumerate(contents):
        (source / f"file{i}.{extension}").write_text(text)


def configure(source, build, prefix, *arguments):
    """Returns the command."""
    return ["cmake", "-G", "Ninja", "-S", str(source), "-B", str(build),
            f"-DCMAKE_PREFIX_PATH={prefix}", *arguments]


def build_rounds(builds, runs):
    """Returns, for each build directory in each round, the seconds of a full build and of one with
    nothing to do."""
    def measure(build):
        quietly("ninja", "-C", str(build), "clean")
        return [run(["ninja", "-C", str(build)])[0] for _ in ("full", "idle")]
    for build in builds:
        quietly("ninja", "-C", str(build))
    return [[measure(build) for build in builds] for _ in range(runs)]


def compare_with_flatc(folder, prefix, count=500):
    """Returns, for each tool, the median seconds of both kinds of builds."""
    projects = {"idlgen": (IDLGEN, idlgen(1), "idl")}
    if shutil.which("flatc"):
        projects["flatc"] = FLATC, TOOLS["flatc"][2](1), "fbs"
    for tool, (project, text, extension) in projects.items():
        write(folder / tool, project, [text] * count, extension)
        quietly(*configure(folder / tool, folder / tool / "build", prefix))
    rounds = build_rounds([folder / tool / "build" for tool in projects], 5)
    return {tool: [statistics.median(kind) for kind in zip(*column)]
            for tool, column in zip(projects, zip(*rounds))}


def compare_versions(folder, prefixes, count=600):
    """Returns the median seconds of full builds with two versions, and the median ratio. The files
    include each other."""
    write(folder / "mesh", IDLGEN, texts(mesh(count)))
    builds = [folder / "mesh" / f"build{i}" for i in range(2)]
    for build, prefix in zip(builds, prefixes):
        quietly(*configure(folder / "mesh", build, prefix))
    return median_ratio([[full for full, _ in pair] for pair in build_rounds(builds, 9)])


def compare_configurations(folder, prefix, count=4000):
    """Returns the median seconds in which a target that links others and one that links none
    configure, and the median ratio."""
    source = folder / "linked"
    write(source, LINKED, [idlgen(1)] * count)
    commands = [configure(source, source / build, prefix, f"-DLINKED={linked}")
                for build, linked in (("many", "ON"), ("none", "OFF"))]
    for command in commands:
        quietly(*command)
    return median_ratio([[run(command)[0] for command in commands] for _ in range(5)])
