"""The cases of tests/data/checks, as kinds of files. Their format is described in check_cases.h."""
import collections
import itertools
import pathlib
import re

from kinds import ERROR, FORM, UNSEEN, VALID, WARNING

# In texts, these are before the words that a message may be about, or the lines that an error or
# a warning is about. NO_MARK stands for an "@" of the file.
MARKS = {"": "@", "error": "\ue000", "warning": "\ue001"}
NO_MARK = "\ue002"

# `files` has the statements of each file by its path. If a file is open, nothing can stand below.
Case = collections.namedtuple("Case", "name expected files is_open")

CHECKS = pathlib.Path(__file__).parent.parent / "tests/data/checks"


def take_marks(text):
    """Returns the text without marks, and for each mark its line and severity, which may be ""."""
    marks = [(number, severity) for number, line in enumerate(text.split("\n"), 1)
             for severity, mark in MARKS.items() if mark in line]
    return re.sub("[@\ue000\ue001]", "", text).replace(NO_MARK, "@"), marks


def mark_lines(text):
    """Returns the lines of a file, with marks instead of the comments about messages."""
    lines, marks = [], ""
    for line in text.replace("@", NO_MARK).rstrip("\n").split("\n"):
        message = re.match("# (error|warning|note): ", line)
        if message:
            marks += MARKS.get(message[1], "")
        else:
            lines.append(marks + line)
            marks = ""
    return lines


def read_file(text):
    """Returns the statements of a file, in which lines with a mark or a comment stay lines, and
    whether it is open."""
    lines = mark_lines(text)
    depths = list(itertools.accumulate(line.count("{") - line.count("}") for line in lines))
    is_open = min(depths) < 0 or depths[-1] != 0 or "at the end of the file" in text
    statements = [""]
    for line, depth in zip(lines, [0, *depths]):
        if depth == 0 and re.match(r"\W*(include|namespace|enum|message|service) ", line):
            statements.append("")
        stays = is_open or re.search("[#/\ue000\ue001]", line)
        statements[-1] += f"\n{line}\n" if stays else line + " "
    return statements, is_open


def read_case(text):
    head, text = text.split("\n", 1)
    name, *uncompiled = head.split(" ")
    pieces = re.split("^=== (.*)\n", "=== a.idl\n" + text, flags=re.M)
    files = {path: read_file(file) for path, file in zip(pieces[1::2], pieces[2::2])}
    expected = UNSEEN if uncompiled else VALID
    if "# warning: " in text:
        expected = WARNING
    if "# error: " in text:
        expected = FORM if uncompiled else ERROR
    return Case(f"case {name}", expected, {path: texts for path, (texts, _) in files.items()},
                any(is_open for _, is_open in files.values()))


CASES = [read_case(text) for path in sorted(CHECKS.glob("*.idl")) for text in re.split(
    "^### ", path.read_bytes().decode(errors="surrogateescape"), flags=re.M)[1:]]
