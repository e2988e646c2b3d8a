"""Builds of many small headers with idlgen_generate."""
import subprocess

from inputs import idlgen
from timing import compare, medians

HEADERS = """
cmake_minimum_required(VERSION 3.23)
project(headers LANGUAGES NONE)
file(GLOB files *.idl)
find_package(idlgen CONFIG REQUIRED)
idlgen_generate(TARGET headers FILES ${files})
"""
LINKED = HEADERS + """
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


def write(source, project, count):
    source.mkdir(parents=True)
    (source / "CMakeLists.txt").write_text(project)
    for i in range(count):
        (source / f"file{i}.idl").write_text(idlgen(1))


def configure(source, build, prefix, *arguments):
    """Returns the command."""
    return ["cmake", "-G", "Ninja", "-S", str(source), "-B", str(build),
            f"-DCMAKE_PREFIX_PATH={prefix}", *arguments]


def measure_build(folder, prefix, count=500):
    """Returns the median seconds of a full build and of one with nothing to do."""
    build = folder / "build"
    write(folder / "headers", HEADERS, count)
    quietly(*configure(folder / "headers", build, prefix))
    ninja = ["ninja", "-C", str(build)]
    _, full, idle = medians([[*ninja, "clean"], ninja, ninja], 6)
    return full[0], idle[0]


def compare_configurations(folder, prefix, count=4000):
    """Returns the median seconds in which a target that links others and one that links none
    configure, and the median ratio."""
    source = folder / "linked"
    write(source, LINKED, count)
    commands = [configure(source, source / build, prefix, f"-DLINKED={linked}")
                for build, linked in (("many", "ON"), ("none", "OFF"))]
    for command in commands:
        quietly(*command)
    return compare(commands, 5)
