"""Builds of many small headers with Ninja: by idlgen_generate, and by custom commands that run flatc."""
import shutil
import statistics
import subprocess

from inputs import PEERS, idlgen
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
    "flatc": ("fbs", PEERS["flatc"][2], """
foreach(file IN LISTS files)
  cmake_path(GET file STEM stem)
  add_custom_command(OUTPUT ${stem}_generated.h COMMAND flatc --cpp ${file} DEPENDS ${file})
  list(APPEND headers ${stem}_generated.h)
endforeach()
add_custom_target(headers ALL DEPENDS ${headers})
""")}


def quietly(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def configured(peer, folder, prefix):
    """Writes, configures and builds the peer's project. Returns its build directory."""
    extension, text, project = PROJECTS[peer]
    source = folder / peer
    source.mkdir()
    (source / "CMakeLists.txt").write_text(START + project)
    for i in range(COUNT):
        (source / f"file{i}.{extension}").write_text(text(1))
    build = source / "build"
    quietly("cmake", "-G", "Ninja", "-S", source, "-B", build, f"-DCMAKE_PREFIX_PATH={prefix}")
    quietly("ninja", "-C", build)
    return str(build)


def medians_of_builds(folder, prefix, runs=5):
    """For each peer, the seconds of a full build and of one with nothing to do. They take turns."""
    builds = {peer: configured(peer, folder, prefix) for peer in PROJECTS if shutil.which(peer)
              or peer == "idlgen"}
    times = {peer: [] for peer in builds}
    for _ in range(runs):
        for peer, build in builds.items():
            quietly("ninja", "-C", build, "clean")
            times[peer].append([run(["ninja", "-C", build])[0] for _ in ("full", "idle")])
    return {peer: [statistics.median(kind) for kind in zip(*rounds)] for peer, rounds in times.items()}
