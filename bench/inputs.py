"""The inputs of scripts/bench: messages for each tool, inputs of growing size, trees of files."""

FIELDS = ["int8", "int16", "int32", "int64", "float32", "float64", "string", "int32"]

PROTOC = {"int8": "int32", "int16": "int32", "float32": "float", "float64": "double"}
FLATC = {"int8": "byte", "int16": "short", "int32": "int", "int64": "long", "float32": "float",
         "float64": "double"}
LCM = {"int8": "int8_t", "int16": "int16_t", "int32": "int32_t", "int64": "int64_t",
       "float32": "float", "float64": "double"}


def messages(count, head, opening, field, names):
    """A schema of messages with eight fields each, in the language of one tool."""
    body = "".join(field.format(type=names.get(t, t), i=i, n=i + 1) for i, t in enumerate(FIELDS))
    return head + "".join(opening.format(i=i) + body + "}\n" for i in range(count))


def idlgen(count):
    return messages(count, "", "message Message{i} {{\n", "    field{i}: {type}\n", {})


# The extension of a tool's files, its command line, and a function for the same messages.
TOOLS = {
    "idlgen": ("idl", "{build}/idlgen/idlgen -f {file}", idlgen),
    "idlgen-header": ("idl", "{build}/idlgen/idlgen-header {file} {dir}/a.h", idlgen),
    "protoc": ("proto", "protoc -I{dir} --cpp_out={dir} {file}", lambda count: messages(
        count, 'syntax = "proto3";\n', "message Message{i} {{\n", "  {type} field{i} = {n};\n",
        PROTOC)),
    "flatc": ("fbs", "flatc --cpp -o {dir} {file}", lambda count: messages(
        count, "", "table Message{i} {{\n", "  field{i}:{type};\n", FLATC)),
    "lcm-gen": ("lcm", "lcm-gen -x --cpp-hpath {dir} {file}", lambda count: messages(
        count, "", "struct Message{i} {{\n", "  {type} field{i};\n", LCM)),
}


def members(n, member):
    return "message M {\n" + "".join(member.format(i=i) for i in range(n)) + "}"


# Inputs of n parts each, by the program that reads them, and its exit status. The time must grow in
# proportion to n.
GROWING = [
    ("idlgen", 0, {
        "members in one line": lambda n: "message M { " + "x: int8 " * n + "}",
        "brackets of a type":
            lambda n: "message M { x: " + "[" * (n // 2) + "int8" + "]" * (n // 2) + " }",
        "dots of a type": lambda n: "message M { x: " + "." * n + " }",
        "colons of a token": lambda n: ":" * n,
        "blank lines": lambda n: "\n" * n,
        "comment lines": lambda n: "# comment\n" * n,
        "items of an enum": lambda n: "enum E {\n" + "ITEM: 0\n" * n + "}",
        "members of a message": lambda n: members(n, "x: int8\n"),
        "components of a namespace": lambda n: "namespace " + "a." * n,
        "includes": lambda n: 'include "a.idl"\n' * n,
    }),
    ("idlgen", 1, {
        "braces of a token": lambda n: "{" * n,
        "tokens before an error": lambda n: "enum E { " + "A 0 " * (n // 2) + "} fault",
    }),
    ("idlgen-header", 0, {
        "items as values": lambda n: "enum E { A: 0\n" + "".join(
            f"x{i}: A\n" for i in range(n)) + "}",
        "colons in one line": lambda n: "message M { x: int8 }\n" + ":" * n,
    }),
    ("idlgen-header", 1, {
        "members of one name": lambda n: members(n, "x: int8\n"),
        "members of odd names": lambda n: members(n, "a-{i}: int8\n"),
        "members of unknown types": lambda n: members(n, "x{i}: Type{i}\n"),
        "members of the C library's types": lambda n: members(n, "x{i}: time_t\n"),
    }),
]


# Each of these returns the numbers of the files that each file of a tree includes.

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


def including(number, others):
    """The text of a file with one message, which has members of the ones of other files."""
    lines = [f'include "file{other}.idl"\n' for other in others]
    lines += [f"message Message{number} {{\n"]
    lines += [f"    field{i}: {type}\n" for i, type in enumerate(FIELDS)]
    lines += [f"    part{other}: Message{other}\n" for other in others]
    return "".join(lines) + "}\n"
