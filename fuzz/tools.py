"""Runs the programs and the compilers on the files of a directory."""
import os
import pathlib
import shutil
import subprocess


def run(directory, *command):
    return subprocess.run(command, cwd=directory, capture_output=True, timeout=120, check=False)


class Tools:
    """The programs of a build, and both compilers with the stub of the framework."""

    def __init__(self, build, directory):
        self.generator = pathlib.Path(build).resolve() / "idlgen/idlgen"
        self.checker = self.generator.with_name("idlgen-header")
        platform = directory / "platform"
        shutil.copytree(pathlib.Path(__file__).resolve().parent.parent / "platform", platform)
        stub = platform / "zentho/serialization/serialization.h"
        pch = directory / "stub.pch"
        # Both compilers load the framework's header precompiled.
        flags = ["-std=c++17", "-w", "-x", "c++-header", stub, "-o"]
        subprocess.run(["g++", *flags, f"{stub}.gch"], check=True)
        subprocess.run(["clang++", *flags, pch], check=True)
        flags = ["-std=c++17", "-w", "-fsyntax-only", "-I", platform, "-I", "."]
        self.compilers = {
            "g++": ["g++", "-fmax-errors=1", "-include", stub, *flags],
            "clang++": ["clang++", "-ferror-limit=1", "-include-pch", pch, *flags]}

    @staticmethod
    def write_files(directory, texts):
        for path, text in texts.items():
            (directory / path).parent.mkdir(parents=True, exist_ok=True)
            (directory / path).write_bytes(text.encode(errors="surrogateescape"))

    def make_header(self, directory, path, time=0):
        """Runs idlgen. Returns whether it succeeds. g++ takes two headers of the same text and time
        for one."""
        is_made = run(directory, self.generator, "-f", path).returncode == 0
        header = directory / pathlib.Path(path).with_suffix(".h")
        if header.exists():
            os.utime(header, (time, time))
        return is_made

    def compile(self, directory, header, *flags):
        """Returns the first error of each compiler that rejects the header, by compiler."""
        if not (directory / header).exists():
            return {name: "no header" for name in self.compilers}
        unit = directory / (header + ".cpp")
        unit.write_text(f'#include "{header}"\n')
        results = {name: run(directory, *command, *flags, unit)
                   for name, command in self.compilers.items()}
        return {name: result.stderr.decode(errors="replace").split("error: ")[1].split("\n")[0]
                for name, result in results.items() if result.returncode != 0}
