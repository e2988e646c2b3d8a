"""Where the files of a tree stand: directories, links and base directories."""
import os.path
import re

BASES = ["src", "lib"]  # These cover all files.
MORE_BASES = ["src/nav", "lib/common", "src/../lib/common", "none"]  # The last does not exist.
DIRECTORIES = ["src", "src/geo", "src/nav/msgs", "lib", "lib/common"]
DIRECTORY_LINKS = ["src/v2", "src/nav/v2", "lib/v2", "lib/common/v2"]
STEMS = "transform waypoint odometry steering batteries маршрут größen מצלמות بطاريات".split()
INCLUDE = re.compile(r'\binclude(?:\s|#.*|//.*)+(["<][^\s">]+[">])')


def included(text):
    """Returns the line of each include statement, and its word. Of a word, the first is enough."""
    found = {}
    for match in INCLUDE.finditer(text):
        found.setdefault(match[1], text.count("\n", 0, match.start(1)) + 1)
    return [(line, word) for word, line in found.items()]


def joined_as_text(*paths):
    return os.path.normpath(os.path.join(*paths))


class Layout:
    """The files of a tree on disk, by their names, and the search for included ones."""

    def __init__(self, rng, root, names, links):
        self.rng, self.root = rng, root
        self.bases = rng.sample(BASES + rng.sample(MORE_BASES, rng.randint(0, 2)), k=2)
        self.bases += [base for base in BASES if base not in self.bases]
        # The files of a case have their own paths.
        directory, stems = rng.choice(DIRECTORIES), iter(rng.sample(STEMS, len(STEMS)))
        self.paths = {name: f"{directory}/{name}" if "." in name else
                      f"{rng.choice(DIRECTORIES)}/{next(stems)}.{rng.choice(['idl', 'idl', 'msg'])}"
                      for name in names}
        self.own_paths = {path for name, path in self.paths.items() if "." in name}
        for directory in DIRECTORIES + [os.path.dirname(path) for path in self.paths.values()]:
            (root / directory).mkdir(parents=True, exist_ok=True)
        for name, path in self.paths.items():
            if name not in links:
                (root / path).touch()
        for name, (how, other) in links.items():
            target = self.paths[other]
            if how == "hard link":
                os.link(root / target, root / self.paths[name])
            else:
                above = os.path.dirname(self.paths[name])
                (root / self.paths[name]).symlink_to(os.path.relpath(target, above))
        self.directory, self.link = rng.choice(DIRECTORIES), rng.choice(DIRECTORY_LINKS)
        (root / self.link).parent.mkdir(parents=True, exist_ok=True)
        (root / self.link).symlink_to(os.path.relpath(self.directory, os.path.dirname(self.link)))

    def place(self, path):
        """Returns the directory of a path, without links, and the name in it."""
        above, name = os.path.split(path)
        return os.path.realpath(self.root / above), name

    def find(self, user, form, join=os.path.join):
        """Returns the place of the file that a file includes, or None."""
        paths = [join(base, form) for base in (os.path.dirname(user), *self.bases)]
        return next((self.place(path) for path in paths if (self.root / path).is_file()), None)

    def above(self, user, form):
        """Returns the first directory above a file that has the included one, or None."""
        while user:
            user = os.path.dirname(user)
            if (self.root / user / form).is_file():
                return user or "."
        return None

    def names_of(self, path):
        """Returns the path, and the one by the link to a directory, if there is one. The ".." in the
        files of a case lead elsewhere from there."""
        is_linked = os.path.dirname(path) == self.directory and path not in self.own_paths
        return [path, f"{self.link}/{os.path.basename(path)}"] if is_linked else [path]

    def form(self, users, path):
        """Returns a path by which these files include another: by all names of theirs, whether a
        ".." takes a name off, as in includes, or leads through a link, as in the headers here."""
        users = [name for user in users for name in self.names_of(user)]
        forms = {os.path.relpath(name, base) for name in self.names_of(path)
                 for base in [*map(os.path.dirname, users), *self.bases]}
        forms = sorted(form for form in forms if all(
            self.find(user, form, join) == self.place(path)
            for user in users for join in (os.path.join, joined_as_text)))
        direct = [form for form in forms if ".." not in form]
        return self.rng.choice(direct if direct and self.rng.random() < 0.9 else forms)
