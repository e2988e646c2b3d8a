"""Measures whole processes."""
import os
import statistics
import subprocess
import sys
import time

SILENCE = [(os.POSIX_SPAWN_OPEN, stream, "/dev/null", os.O_WRONLY, 0) for stream in (1, 2)]
MEMORY = """
import resource, subprocess, sys
subprocess.run(sys.argv[1:], check=True, stdout=subprocess.DEVNULL)
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss * 1024)
"""


def run(command, expected=0):
    """Returns the wall seconds and the processor seconds of one run.

    Raises RuntimeError if it ends with another status than the expected one."""
    start = time.perf_counter()
    child = os.posix_spawnp(command[0], command, os.environ, file_actions=SILENCE)
    _, status, usage = os.wait4(child, 0)
    seconds = time.perf_counter() - start
    code = os.waitstatus_to_exitcode(status)
    if code != expected:
        raise RuntimeError(f"{command} ended with status {code} instead of {expected}")
    return seconds, usage.ru_utime + usage.ru_stime


def rounds(commands, runs, expected=0):
    """Runs the commands in turn. Returns the figures of each command in each round."""
    return [[run(command, expected) for command in commands] for _ in range(runs)]


def medians(commands, runs, expected=0):
    """Returns the medians of each command. The commands run in turn."""
    return [[statistics.median(figure) for figure in zip(*column)]
            for column in zip(*rounds(commands, runs, expected))]


def compare(commands, runs):
    """Returns the median wall seconds of two commands that run in turn, and the median ratio."""
    pairs = [[seconds for seconds, _ in pair] for pair in rounds(commands, runs)]
    return [*map(statistics.median, zip(*pairs)), statistics.median(a / b for a, b in pairs)]


def peak_memory(command):
    """Returns the peak bytes of one run, but at least those of a Python that has just started.

    A process begins with the peak of the one that starts it, which must therefore be small."""
    return int(subprocess.check_output([sys.executable, "-c", MEMORY, *command]))
