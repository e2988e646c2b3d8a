"""IDL files that include each other, for scripts/bench."""
from inputs import FIELDS


def file(name, includes):
    """The text of a file with one message, which has members of the included ones."""
    members = [f"    field{i}: {type}\n" for i, type in enumerate(FIELDS)]
    members += [f"    part{i}: Message{other}\n" for i, other in enumerate(includes)]
    lines = [f'include "file{other}.idl"\n' for other in includes]
    return "".join([*lines, f"message Message{name} {{\n", *members, "}\n"])


# Each function returns the numbers of the files that each file includes.

def mesh(count):
    """Each file includes up to three others."""
    return [sorted({i // 2, i // 3, i // 5} - {i}) for i in range(count)]


def chain(count):
    return [[], *([i] for i in range(count - 1))]


def star(count):
    return [*([] for _ in range(count)), list(range(count))]


def layers(count):
    """Both files of a layer include both of the layer below."""
    return [[], [], *([i // 2 * 2, i // 2 * 2 + 1] for i in range(2 * count - 2))]


def texts(includes):
    return [file(i, others) for i, others in enumerate(includes)]


def write(folder, includes):
    """Writes the files. Returns their paths."""
    folder.mkdir(parents=True)
    paths = [folder / f"file{i}.idl" for i in range(len(includes))]
    for path, text in zip(paths, texts(includes)):
        path.write_text(text)
    return [str(path) for path in paths]
