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
      return "wrong";
    case CommandLine::Kind::Failed:
      return "failed: " + line.error;
    case CommandLine::Kind::Help:
      return "help";
    case CommandLine::Kind::Version:
      return "version";
    case CommandLine::Kind::Header:
      return "header " + header.idl + " -> " + header.header + warnings(header.warnings) +
             (header.ifChanged ? " if changed" : "");
    case CommandLine::Kind::Check:
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
    {"Nothing", {}, "wrong"},
    {"Help", {"--help"}, "help"},
    {"Version", {"--version"}, "version"},
    {"HelpAndMore", {"--help", "a.h"}, "wrong"},
    {"VersionAndMore", {"--version", "a.idl", "a.h"}, "wrong"},
    {"HelpAboutTheCheck", {"--check", "--help", "a.idl"}, "wrong"},
    {"Header", {"a.idl", "a.h"}, "header a.idl -> a.h"},
    {"HeaderOfDashes", {"--", "-a.idl", "-"}, "header -a.idl -> -"},
    {"HeaderThatLooksLikeAnOption", {"a.idl", "--werror"}, "header a.idl -> --werror"},
    {"HeaderOfArgumentFiles", {"@a", "@b"}, "header @a -> @b"},
    {"HeaderIfChanged", {"-w", "--if-changed", "a", "b"}, "header a -> b silent if changed"},
    {"StrictHeader", {"--werror", "a", "b"}, "header a -> b strict"},
    {"OneOperand", {"a.idl"}, "wrong"},
    {"NoOperand", {"--if-changed"}, "wrong"},
    {"ThreeOperands", {"a.idl", "a.h", "b.h"}, "wrong"},
    {"StrictAndSilentHeader", {"--werror", "-w", "a", "b"}, "wrong"},
    {"HeaderWithADirectory", {"-Id", "a", "b"}, "wrong"},
    {"HeaderWithAStamp", {"--stamp=s", "a", "b"}, "wrong"},
    {"HeaderWithADepfile", {"--depfile=s", "a", "b"}, "wrong"},
    {"UnknownOption", {"-x", "a", "b"}, "wrong"},
    {"PartOfAnOption", {"--wer", "a", "b"}, "wrong"},
    {"PartOfAnOptionWithAValue", {"--check", "--sta=s", "a"}, "wrong"},
    {"ValueForAnOptionWithoutOne", {"--werror=1", "a", "b"}, "wrong"},
    {"Check", {"--check", "a", "b", "c"}, "check a b c"},
    {"CheckNothing", {"--check"}, "wrong"},
    {"SilentCheck", {"--check", "-w", "a"}, "check a silent"},
    {"StrictCheck", {"--werror", "--check", "a"}, "check a strict"},
    {"StrictAndSilentCheck", {"--check", "-w", "--werror", "a"}, "wrong"},
    {"CheckIfChanged", {"--check", "--if-changed", "a"}, "wrong"},
    {"CheckInDirectories",
     {"--check", "-I", "c", "-Ib", "-wI", "a", "x"},
     "check x silent in c in b in a"},
    {"CheckInNoDirectory", {"--check", "-I"}, "wrong"},
    {"CheckWithOutputs",
     {"--check", "--stamp", "s", "--depfile=d", "a"},
     "check a stamp s depfile d"},
    {"StampWithoutAValue", {"--check", "--stamp"}, "wrong"},
    {"DepfileWithoutAStamp", {"--check", "--depfile", "d", "a"}, "wrong"},
    {"StampAsDepfile", {"--check", "--stamp", "s", "--depfile", "s", "a"}, "wrong"},
    {"StampAsDepfileByAnotherPath", {"--check", "--stamp", "s", "--depfile", "./s", "a"}, "wrong"},
    {"OptionAfterAFile", {"--check", "a", "-w"}, "wrong"},
    {"DashesAfterAFile", {"--check", "a", "--", "a"}, "wrong"},
    {"FileWithADash", {"--check", "--", "-a"}, "wrong"},
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
  EXPECT_EQ(meaning({"--check", "@" + empty}), "wrong");
  EXPECT_EQ(meaning({"--check", "x", "@" + options}), "wrong");  // Options come before files.
  EXPECT_EQ(meaning({"@" + options, "--check", "x"}), "wrong");  // It is not a check yet.
  EXPECT_EQ(meaning({"--check", "@" + scratch.path("none"), "x"}),
            "failed: idlgen-header: " + scratch.path("none") + ": No such file or directory\n");
  EXPECT_EQ(ParseCommandLine({"--check", "@" + empty, "@" + files}).check.argumentFiles,
            (Arguments{empty, files}));
}

}  // namespace
}  // namespace zentho::idlgen
