#include "program/command_line.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

using Arguments = std::vector<std::string>;

std::string Joined(const Arguments& words) {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : " ") + word;
  return joined;
}

/// Returns what the command line asks for, such as "check a.idl -I d".
std::string Meaning(const CommandLine& line) {
  const auto warnings = [](Warnings kind) {
    return kind == Warnings::Tell ? "" : kind == Warnings::Fail ? " strict" : " silent";
  };
  const HeaderRequest& header = line.header;
  const CheckRequest& check = line.check;
  std::string meaning;
  switch (line.kind) {
    case CommandLine::Kind::Wrong:
      return line.error;
    case CommandLine::Kind::Help:
      return "help";
    case CommandLine::Kind::Version:
      return "version";
    case CommandLine::Kind::Header:
      return "header " + header.idl + " -> " + header.header + warnings(header.warnings) +
             (header.ifChanged ? " if changed" : "");
    case CommandLine::Kind::Check:
      if (!check.argumentError.empty()) return check.argumentError;
      meaning = "check " + Joined(check.files) + warnings(check.warnings);
      for (const std::string& directory : check.directories) meaning += " in " + directory;
      if (check.stamp) meaning += " stamp " + *check.stamp;
      if (check.depfile) meaning += " depfile " + *check.depfile;
      return meaning;
  }
  return {};
}

struct CommandLineRow {
  const char* name;
  Arguments arguments;
  const char* meaning;
};
using CommandLines = testing::TestWithParam<CommandLineRow>;

TEST_P(CommandLines, AskFor) {
  EXPECT_EQ(Meaning(ParseCommandLine(GetParam().arguments)), GetParam().meaning);
}

const std::vector<CommandLineRow> commandLines = {
    {"Nothing", {}, "without --check, give one IDL file and its header"},
    {"Help", {"--help"}, "help"},
    {"Version", {"--version"}, "version"},
    {"HelpAndMore", {"--help", "a.h"}, "\"--help\" takes no other arguments"},
    {"VersionAndMore", {"--version", "a.idl", "a.h"}, "\"--version\" takes no other arguments"},
    {"HelpAboutTheCheck", {"--check", "--help", "a.idl"}, "\"--help\" takes no other arguments"},
    {"Header", {"a.idl", "a.h"}, "header a.idl -> a.h"},
    {"HeaderOfDashes", {"--", "-a.idl", "-"}, "header -a.idl -> -"},
    {"HeaderThatLooksLikeAnOption", {"a.idl", "--werror"}, "header a.idl -> --werror"},
    {"HeaderOfArgumentFiles", {"@a", "@b"}, "header @a -> @b"},
    {"HeaderIfChanged", {"-w", "--if-changed", "a", "b"}, "header a -> b silent if changed"},
    {"StrictHeader", {"--werror", "a", "b"}, "header a -> b strict"},
    {"OneOperand", {"a.idl"}, "without --check, give one IDL file and its header"},
    {"NoOperand", {"--if-changed"}, "without --check, give one IDL file and its header"},
    {"ThreeOperands", {"a.idl", "a.h", "b.h"}, "without --check, give one IDL file and its header"},
    {"StrictAndSilentHeader", {"--werror", "-w", "a", "b"}, "-w and --werror exclude each other"},
    {"HeaderWithADirectory", {"-Id", "a", "b"}, "-I, --stamp and --depfile need --check"},
    {"HeaderWithAStamp", {"--stamp=s", "a", "b"}, "-I, --stamp and --depfile need --check"},
    {"HeaderWithADepfile", {"--depfile=s", "a", "b"}, "-I, --stamp and --depfile need --check"},
    {"UnknownOption", {"-x", "a", "b"}, "\"-x\" is not an option"},
    {"PartOfAnOption", {"--wer", "a", "b"}, "\"--wer\" is not an option"},
    {"PartOfAnOptionWithAValue", {"--check", "--sta=s", "a"}, "\"--sta=s\" is not an option"},
    {"ValueForAnOptionWithoutOne",
     {"--werror=1", "a", "b"},
     "\"--werror=1\" has a value, but takes none"},
    {"Check", {"--check", "a", "b", "c"}, "check a b c"},
    {"CheckNothing", {"--check"}, "there is no IDL file to check"},
    {"SilentCheck", {"--check", "-w", "a"}, "check a silent"},
    {"StrictCheck", {"--werror", "--check", "a"}, "check a strict"},
    {"StrictAndSilentCheck",
     {"--check", "-w", "--werror", "a"},
     "-w and --werror exclude each other"},
    {"CheckIfChanged", {"--check", "--if-changed", "a"}, "--check takes no --if-changed"},
    {"CheckInDirectories",
     {"--check", "-I", "c", "-Ib", "-wI", "a", "x"},
     "check x silent in c in b in a"},
    {"CheckInNoDirectory", {"--check", "-I"}, "\"-I\" needs a value"},
    {"CheckWithOutputs",
     {"--check", "--stamp", "s", "--depfile=d", "a"},
     "check a stamp s depfile d"},
    {"StampWithoutAValue", {"--check", "--stamp"}, "\"--stamp\" needs a value"},
    {"DepfileWithoutAStamp", {"--check", "--depfile", "d", "a"}, "--depfile needs --stamp"},
    {"StampAsDepfile",
     {"--check", "--stamp", "s", "--depfile", "s", "a"},
     "the stamp and the depfile are one file"},
    {"StampAsDepfileByAnotherPath",
     {"--check", "--stamp", "s", "--depfile", "./s", "a"},
     "the stamp and the depfile are one file"},
    {"OptionAfterAFile",
     {"--check", "a", "-w"},
     "\"-w\" is among the files, but options come first"},
    {"DashesAfterAFile",
     {"--check", "a", "--", "a"},
     "\"--\" is among the files, but options come first"},
    {"FileWithADash", {"--check", "--", "-a"}, "\"-a\" is among the files, but options come first"},
};
INSTANTIATE_TEST_SUITE_P(CommandLine, CommandLines, testing::ValuesIn(commandLines),
                         RowName<CommandLineRow>);

TEST(CommandLine, TakesArgumentsFromFiles) {
  const Scratch scratch;
  const std::string options = scratch.write("options", "-I\nmy dir\n\n--werror\n");
  const std::string files = scratch.write("files", "a b.idl\n@c\r\n");
  const std::string empty = scratch.write("empty", "\n");
  const auto meaning = [](const Arguments& arguments) {
    return Meaning(ParseCommandLine(arguments));
  };
  EXPECT_EQ(meaning({"--check", "@" + options, "@" + files, "x", "@" + empty}),
            "check a b.idl @c\r x strict in my dir");
  EXPECT_EQ(meaning({"--check", "@" + empty}), "there is no IDL file to check");
  EXPECT_EQ(meaning({"--check", "x", "@" + options}),
            "\"-I\" is among the files, but options come first");
  EXPECT_EQ(meaning({"@" + options, "--check", "x"}),  // It is not a check yet.
            "without --check, give one IDL file and its header");
  EXPECT_EQ(meaning({"--check", "--depfile", "d", "@" + scratch.path("none"), "x"}),
            "idlgen-header: " + scratch.path("none") + ": No such file or directory\n");
  EXPECT_EQ(ParseCommandLine({"--check", "@" + empty, "@" + files}).check.argumentFiles,
            (Arguments{empty, files}));
}

}  // namespace
}  // namespace zentho::idlgen
