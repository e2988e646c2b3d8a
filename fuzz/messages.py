"""Reads what idlgen-header says about files."""
import os.path
import re

LIMIT = 20  # Errors and warnings about a file.
PLACE = re.compile(r"(.+?):(\d+):(\d+): (error|warning|note): .+")


class Message:
    """An error, a warning or a note, and the lines below it, which show the place."""

    def __init__(self, sentence, place):
        self.sentence = sentence
        self.path, self.severity = os.path.normpath(place[1]), place[4]
        self.line, self.column = int(place[2]), int(place[3])
        self.excerpt = []

    def faults(self, texts):
        """Returns what is wrong with the place and the excerpt."""
        lines = texts[self.path].split("\n") if self.path in texts else []
        line = lines[self.line - 1] if 0 < self.line <= len(lines) else ""
        if not 1 <= self.column <= max(1, len(line.encode())):
            return [f"no such place: {self.sentence!r}"]
        if not self.excerpt and self.severity == "note":
            return []  # About the place that the error before it shows.
        shown = re.match(rf" *{self.line} \| ?", "\n".join(self.excerpt))
        if not shown or len(self.excerpt) != 2 or not re.fullmatch(r" +\| *\^~*", self.excerpt[1]):
            return [f"no excerpt: {self.sentence!r}"]
        before = line.encode()[:self.column - 1].decode(errors="replace")
        is_whole = self.excerpt[0][shown.end():] == line
        if is_whole and self.excerpt[1].index("^") != shown.end() + len(before):
            return [f"caret: {self.sentence!r}"]
        return []


def read_messages(said, texts):
    """Returns the errors and warnings about files, and what is wrong with the form of what is said.

    `texts` has the text of each file by its path.
    """
    messages, others = [], []
    for line in said.split("\n"):
        place = PLACE.fullmatch(line)
        if line[:1] == " " and messages:
            messages[-1].excerpt.append(line)
        elif place and line[:1] != " ":
            messages.append(Message(line, place))
        elif line:
            others.append(line)
    faults = [fault for message in messages for fault in message.faults(texts)]
    messages = [message for message in messages if message.severity != "note"]
    for path in texts:
        count = sum(message.path == path for message in messages)
        # The last line may say that there is more.
        rest = [line for line in others if line.startswith(path + ": ")]
        if count > LIMIT or len(rest) > (count == LIMIT):
            faults.append(f"{count} messages about {path}, and {rest}")
        others = [line for line in others if line not in rest]
    return messages, faults + [f"not a message: {line!r}" for line in others]
