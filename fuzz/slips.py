"""Slips in a valid tree: in a name that a file declares, or in an include."""
import os.path
import re

from cases import MARKS
from tree_kinds import FORGOTTEN, ITEM, MISSING, NAMESPACE, NO_BASE, PATH, RECORD

# Where the word of a slip stands in a statement.
WORDS = {RECORD: r"(?:message|enum|service) (\S+) \{", NAMESPACE: r"namespace (\S+)",
         ITEM: r"([A-Z]\w*\d): \S+",
         **dict.fromkeys([PATH, MISSING, FORGOTTEN, NO_BASE], r"include (\S+)")}


def used_type(text):
    """Returns the name of the record in a member, or None."""
    match = re.fullmatch(r"\S+: \[*([^\[\]]+)\]*", text)
    parts = match[1].split(".") if match else [None]
    return parts[-2] if parts[-1] in ("Request", "Response") and len(parts) > 1 else parts[-1]


def mark_unknown(statements):
    """Marks the members whose types are in none of the files that their file sees."""
    declared = {match[1]: name for name, texts in statements.items() for text in texts
                if (match := re.fullmatch(WORDS[RECORD], text))}
    for name, texts in statements.items():
        seen, rest = set(), [name]
        while rest:
            seen.add(rest[-1])
            rest += [text[len("include "):] for text in statements[rest.pop()]
                     if text.startswith("include ") and text[len("include "):] not in seen]
        for i, text in enumerate(texts):
            if declared.get(used_type(text), name) not in seen:
                texts[i] = text.replace(": ", ": " + MARKS["error"], 1)


def put_slip(rng, slip, statements):
    """Puts a slip into the statements, by file, and marks what is an error then. A path is not
    known yet: its statement is "slip" in place of "include" and the name of the file. Returns
    whether there is a place for it."""
    place, forms = slip
    words = [(name, i, match[1]) for name, texts in statements.items()
             for i, text in enumerate(texts) if (match := re.fullmatch(WORDS[place], text))]
    if place == RECORD:
        used = {used_type(text) for name in statements for text in statements[name]}
        words = [word for word in words if word[2] in used] or words
    if not words:
        return False
    name, i, word = rng.choice(words)
    if place in (PATH, MISSING):
        statements[name][i] = f"slip {word}"
    elif place == FORGOTTEN:
        del statements[name][i]
        mark_unknown(statements)
    elif place != NO_BASE:
        changed = [form.format(word, dashed=word.replace("_", "-"), slashed=word.replace(".", "/"))
                   for form in forms]
        changed = rng.choice([other for other in changed if other != word])
        changed = changed if "@" in changed else "@" + changed
        text = statements[name][i].replace(word, changed.replace("@", MARKS["error"]), 1)
        statements[name][i] = f"\n{text}\n" if " " in changed else text  # Words of one line.
    return True


def change_path(rng, form, path):
    """Returns a path with a slip."""
    above, name = os.path.split(path)
    stem, ext = os.path.splitext(name)
    at = rng.randrange(len(stem))
    return form.format(above=os.path.join(above, ""), stem=stem, ext=ext, Stem=stem.capitalize(),
                       EXT=ext.upper(), lost=stem[:at] + stem[at + 1:])
