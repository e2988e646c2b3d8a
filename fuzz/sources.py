"""Random valid IDL files, and their layout."""
import itertools
import re

BUILT_IN = "int8 int16 int32 int64 uint8 uint16 uint32 uint64 float32 float64 string".split()
OTHER_TYPES = ("bool char short int long float double wchar_t char16_t char32_t signed unsigned "
               "size_t int8_t uint64_t std.string std.int16_t").split()
LITERALS = r"""0 7 -1 +3 010 0x1F 0XaB 0b101 0B1 1'000 0x1'F 1u 2L 3ul 4LL 5ull 0xFFu 'a' '\n' ';'
    ',' '}' '\'' '\\' '"' 'ab' u8'a' L'e' u'e' '\x41' '\u0041' '\377' true false ~0 !0 (7) ((1))
    -(2) 1<<2 (1<<3)|1 2+3 7-9 2*3 8/2 7%4 1==1 3>2 1<=2 1&&0 !1||0 5^1 sizeof(int)
    1ull<<40""".split()
WITH_ITEM = "{} {}|4 ({}) {}+1 -{} ~{} 2*{} {}<4 ({}&7)|1 {}|{} !{} ({})-1 ({})+1".split()
NAMES = """pose route speed heading range_max battery_cycles stamp port level id index offset gear
    frame_id label topic joint_names payload grid status mode light battery_state imu camera_info
    image transform obstacle goal feedback wheel footprint track value""".split()
ODD_NAMES = """größe 路径 Ωmega θέση naïve µ скорость դուռ გზა דגל زاوية दूरी ทาง መንገድ かな 속도 ế
    frame_of_x x_ é std zentho serialize deserialize data buffer
    request response message service include final override import module robot nav core""".split()
COMMENTS = ["# note", "#", "#{ x: int8; } 'a", "// note", "// } ; message P {", "//x", "# \u3000"]


class Source:
    """A random valid file: its statements, and its types as pairs of namespace and name.

    A plain one is longer, and has names, types and values like the files of most people. Others
    use all of the language.
    """

    def __init__(self, rng, numbers, namespace, included=(), dots=True, plain=False):
        self.rng, self.numbers, self.namespace = rng, numbers, namespace
        self.dots, self.plain = dots, plain
        self.names = NAMES if plain else NAMES + ODD_NAMES
        self.types, self.items = list(included), []
        # The kinds in the order of the header: each uses only types before it.
        enums = [self.enum() for _ in range(rng.choice([0, 1, 1, 2, 3]))]
        messages = [self.message() for _ in range(rng.choice([0, 1, 2, 3, 5]) + 3 * plain)]
        services = [self.service() for _ in range(rng.choice([0, 0, 1, 1, 2]))]
        order = [enums] * len(enums) + [messages] * len(messages) + [services] * len(services)
        rng.shuffle(order)
        self.statements = [kind.pop(0) for kind in order]
        if namespace:
            place = 0 if plain else rng.choice([0, 0, 0, rng.randint(0, len(self.statements))])
            self.statements.insert(place, ["namespace " + ".".join(namespace)])

    def name(self):
        return f"{self.rng.choice(self.names)}{next(self.numbers)}"

    def path(self, namespace, name):
        """Returns one of the dotted paths that find a type."""
        shared = 0
        while self.namespace[shared:shared + 1] == namespace[shared:shared + 1] != ():
            shared += 1
        begin = shared if self.plain else self.rng.choice([shared, self.rng.randint(0, shared)])
        dot = "." if begin == 0 and self.dots and self.rng.random() < 0.3 else ""
        return dot + ".".join(namespace[begin:] + (name,))

    def members(self, *recursive):
        rng, members = self.rng, []
        for name in rng.sample(self.names, rng.choice([0, 1, 2, 3, 6]) + 2 * self.plain):
            paths = [self.path(*declared) for declared in self.types]
            kinds = [BUILT_IN, BUILT_IN, paths]
            kinds += [] if self.plain else [OTHER_TYPES, recursive]
            element = rng.choice(rng.choice([kind for kind in kinds if kind]))
            depth = rng.choice([1, 1, 2, 3] if element in recursive else [0, 0, 0, 1, 2, 3])
            members.append(f"{name}: {'[' * depth}{element}{']' * depth}")
        return members

    def enum(self):
        items = []
        for i in range(self.rng.choice([0, 1, 2, 4]) + 2 * self.plain):
            name, value = self.name().upper(), self.rng.choice(LITERALS)
            if self.plain:
                value = str(i)
            elif self.items and self.rng.random() < 0.4:
                value = self.rng.choice(WITH_ITEM).replace("{}", self.rng.choice(self.items))
            elif len(value) < 4 and "u" not in value:
                self.items.append(name)
            items.append(f"{name}: {value}")
        self.types.append((self.namespace, self.name().capitalize()))
        return [f"enum {self.types[-1][1]} {{", *items, "}"]

    def message(self):
        name = self.name().capitalize()
        members = self.members(name)
        self.types.append((self.namespace, name))
        return [f"message {name} {{", *members, "}"]

    def service(self):
        name = self.name().capitalize()
        request, response = self.members("Request"), self.members("Request", "Response")
        self.types += [(self.namespace, name + ".Request"), (self.namespace, name + ".Response")]
        return [f"service {name} {{", "request {", *request, "}", "response {", *response, "}", "}"]

def words_of(statements):
    """Returns the words of statements. A line between two line feeds is one of them."""
    return [word for text in itertools.chain(*statements)
            for word in re.findall("\n[^\n]*\n|[^ ]+", text)]


def line_break(rng, text, depth):
    """Returns a line feed and an indentation for the end of the text, perhaps with comments."""
    line, comment = text[text.rfind("\n") + 1:], rng.choice(COMMENTS)
    if "//" in line or comment[0] == "/" and ("/" in line or "#" in line) or rng.random() < 0.9:
        comment = ""
    more = rng.choice(["", "", "", "", "\n", "\n# a comment: { }", "\n    // another"])
    return " " * bool(comment) + comment + more + "\n" + rng.choice(["", "  ", "    "]) * depth


def render(rng, words):
    """Returns the text of the words in a random layout."""
    often, apart = rng.choice([0.03, 0.5, 0.97]), rng.choice([0.9, 0.9, 0.3])
    text, depth, before = rng.choice(["", "", "\n", "# note\n\n", "// note\n"]), 0, ""
    glued = [word == "{" and after[:1] not in ("", "{", "\n", "/") and rng.random() < 0.15
             for word, after in zip(words, words[1:] + [""])] + [False]
    for i, word in enumerate(words):
        depth += word.count("{") - word.count("}")
        text += word
        is_head = depth <= 0 and word[-1] != "}" and before not in ("include", "namespace")
        if glued[i] or glued[i + 1] and rng.random() < 0.5:
            pass
        elif word[-1] == ":":
            text = text[:-1] + rng.choice([": ", ": ", ":", " : ", " ", "  ::  ", ":\n      "])
        elif rng.random() < (0.03 if is_head else apart if depth <= 0 else often):
            text += line_break(rng, text, max(depth, 0))
        else:
            text += rng.choice([" ", " ", "   "])
        before = word
    return text.rstrip(" \n") + rng.choice(["\n", "\n", "\n\n", "", " "])
