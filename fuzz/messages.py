"""Reads what idlgen-header says about files."""
import collections
import os.path
import re

LIMIT = 20  # Errors and warnings about a file.
MESSAGE = re.compile(
    r"(?P<path>.+?):(?P<line>\d+):(?P<column>\d+): (?P<severity>error|warning|note): (?P<text>.+)\n"
    r"(?P<before> *(?P<number>\d+) \| ?)(?P<shown>.*)\n(?P<under> +\| *)\^~*\n")

Message = collections.namedtuple("Message", "path line severity text")


def is_right(found, texts):
    """Returns whether the place of a message exists and is the one that the excerpt shows."""
    number, column = int(found["line"]), int(found["column"])
    lines = texts.get(os.path.normpath(found["path"]), "").split("\n")
    if not (0 < number <= len(lines) and found["line"] == found["number"]):
        return False
    line = lines[number - 1].encode(errors="surrogateescape")
    before = line[:column - 1].decode(errors="replace")
    is_whole = found["shown"].encode() == line
    return 1 <= column <= max(1, len(line)) and (
        not is_whole or len(found["under"]) == len(found["before"]) + len(before))


def read_messages(said, texts):
    """Returns the errors and warnings about files, and what is wrong with the form of what is said.

    `texts` has the text of each file by its path.
    """
    found = list(MESSAGE.finditer(said))
    faults = [f"place or excerpt: {match[0]!r}" for match in found if not is_right(match, texts)]
    messages = [Message(os.path.normpath(match["path"]), int(match["line"]), match["severity"],
                        match["text"])
                for match in found if match["severity"] != "note"]
    others = MESSAGE.sub("", said).split("\n")[:-1]
    for path in texts:
        count = sum(message.path == path for message in messages)
        # The last line may say that there is more.
        rest = [line for line in others if line.startswith(path + ": ")]
        if count > LIMIT or len(rest) > (count == LIMIT):
            faults.append(f"{count} messages about {path}, and {rest}")
        others = [line for line in others if line not in rest]
    return messages, faults + [f"not a message: {line!r}" for line in others]
