#include "messages/examination.h"

#include <ctime>

#include "memory_tree.h"
#include "messages/report.h"
#include "support.h"

// Whole messages about files that are checked together.

namespace zentho::idlgen {
namespace {

using Files = std::map<std::string, std::string>;

/// Checks the files at these paths. Returns their messages, and a last line if one of them fails.
std::string Told(const Files& files, const std::vector<std::string>& paths,
                 Warnings warnings = Warnings::Tell) {
  MemoryTree tree({files.begin(), files.end()});
  Sources sources(tree, {"base"});
  sources.load(paths);
  Examination examination(sources);
  std::string messages;
  bool succeeded = true;
  for (const Sources::Named& named : sources.named()) {
    const Outcome outcome = reportOn(examination, named.file, warnings);
    messages += outcome.messages;
    succeeded = succeeded && outcome.succeeded;
  }
  return messages + (succeeded ? "" : "failed\n");
}

TEST(Examination, ShowsOtherFilesInNotes) {
  const Files files = {{"nav/a.idl", "include \"geo/b.idl\"\nnamespace geo\nmessage P { x: Kind }"},
                       {"base/geo/b.idl",
                        "# Shapes\n\nnamespace geo enum Kind { A: 0 P: 1 }\n"
                        "  message P { }  # a point\n"}};
  EXPECT_EQ(Told(files, {"nav/a.idl"}),
            R"(nav/a.idl:3:9: error: "P" is already an item of Kind
    3 | message P { x: Kind }
      |         ^
base/geo/b.idl:3:32: note: declared here
    3 | namespace geo enum Kind { A: 0 P: 1 }
      |                                ^
failed
)");
}

TEST(Examination, ShowsBothFilesThatDoNotFitTogether) {
  const Files files = {{"a.idl", "include \"b.idl\"\n  include <c.idl>  # both\n"},
                       {"base/b.idl", "message Pose { }"},
                       {"c.idl", "\n message M { }  enum Pose { }"}};
  EXPECT_EQ(Told(files, {"a.idl"}),
            R"(a.idl:2:11: error: "Pose" is declared in an included file already
    2 |   include <c.idl>  # both
      |           ^~~~~~~
base/b.idl:1:9: note: declared here
    1 | message Pose { }
      |         ^~~~
c.idl:2:22: note: declared here
    2 |  message M { }  enum Pose { }
      |                      ^~~~
failed
)");
}

TEST(Examination, ShowsWhereTheWordsOfAFileAtFaultStand) {
  const Files files = {{"a.idl", "include \"b.idl\"\nmessage Q { }\nmessage R { s: Q }"},
                       {"b.idl", "message P {\n  x: int8 3\n}\n\tstruct R { } struct\tQ {\n}\n"}};
  EXPECT_EQ(Told(files, {"a.idl"}),
            R"(a.idl:2:9: error: "Q" is already declared
    2 | message Q { }
      |         ^
b.idl:4:22: note: declared here
    4 | \tstruct R { } struct\tQ {
      |                        ^
a.idl:3:9: error: "R" is already declared
    3 | message R { s: Q }
      |         ^
b.idl:4:9: note: declared here
    4 | \tstruct R { } struct\tQ {
      |          ^
failed
)");
}

TEST(Examination, TellsEachFileItsOwnMistakesInTheGivenOrder) {
  const Files files = {{"a.idl", "include \"b.idl\"\nmessage M { x: Q }"},
                       {"b.idl", "message P { x: Q }"},
                       {"c.idl", "message Q { y: R }"}};
  const std::string ofA = R"(a.idl:2:16: error: "Q" is not declared: is "c.idl" to be included?
    2 | message M { x: Q }
      |                ^
)";
  const std::string ofB = R"(b.idl:1:16: error: "Q" is not declared: is "c.idl" to be included?
    1 | message P { x: Q }
      |                ^
)";
  const std::string ofC = R"(c.idl:1:16: error: "R" is not declared
    1 | message Q { y: R }
      |                ^
)";
  EXPECT_EQ(Told(files, {"c.idl", "b.idl", "a.idl"}), ofC + ofB + ofA + "failed\n");
  EXPECT_EQ(Told(files, {"a.idl", "c.idl"}), ofA + ofC + "failed\n");
  EXPECT_EQ(Told(files, {"c.idl"}), ofC + "failed\n");
}

TEST(Examination, LooksAtWhatIsReadOfFilesThatHaveBeenExamined) {
  const Files items = {{"a.idl", "include \"b.idl\"\nenum F { X: B Y: A }"},
                       {"b.idl", "enum E {\n A: 0 1\n B: 2 3\n}"}};
  EXPECT_EQ(Told(items, {"b.idl", "a.idl"}), Told(items, {"b.idl"}));

  const Files tooMany = {
      {"a.idl", "include \"b.idl\"\nmessage P { }\nmessage Q { }\nmessage R { }"},
      {"b.idl", "message P {\n 1: required int32 x\n}\nmessage M {\n" +
                    Repeated(30, "a%: int8 3\n") + "}\nmessage Q { }\nmessage R { }\n"}};
  const std::string told = Told(tooMany, {"b.idl", "a.idl"});
  EXPECT_EQ(told.substr(told.find("a.idl:")), R"(a.idl:2:9: error: "P" is already declared
    2 | message P { }
      |         ^
b.idl:1:9: note: declared here
    1 | message P {
      |         ^
failed
)");
}

TEST(Examination, SuggestsNoIncludeThatCannotBeWritten) {
  const Files files = {{"a.idl", "message M { x: Pose }"}, {"geo,old.idl", "message Pose { }"}};
  EXPECT_EQ(Told(files, {"a.idl", "geo,old.idl"}), R"(a.idl:1:16: error: "Pose" is not declared
    1 | message M { x: Pose }
      |                ^~~~
failed
)");
}

TEST(Examination, GivesTheSameAdviceOnceALine) {
  const Files files = {{"a.idl", "message M {\n x: int8; y: int8; z: int8]\n w: int8; }"}};
  EXPECT_EQ(Told(files, {"a.idl"}), R"(a.idl:2:5: error: "int8;" is not a type: delete the ";"
    2 |  x: int8; y: int8; z: int8]
      |     ^~~~~
a.idl:2:23: error: "int8]" is not a type: count the brackets
    2 |  x: int8; y: int8; z: int8]
      |                       ^~~~~
a.idl:3:5: error: "int8;" is not a type: delete the ";"
    3 |  w: int8; }
      |     ^~~~~
failed
)");
}

TEST(Examination, TellsPairsOfALineApart) {
  const Files files = {{"a.idl", "message M { x: int8; y: int8] }"}};
  EXPECT_EQ(Told(files, {"a.idl"}), R"(a.idl:1:16: error: "int8;" is not a type: delete the ";"
    1 | message M { x: int8; y: int8] }
      |                ^~~~~
a.idl:1:25: error: "int8]" is not a type: count the brackets
    1 | message M { x: int8; y: int8] }
      |                         ^~~~~
failed
)");
}

TEST(Examination, NotesOneIncludeThatIsAComment) {
  const Files files = {{"a.idl",
                        "# include\n  #include \"b.idl\"\n#include <c.idl>\n"
                        "message M { b: Bbbb c: Cccc }\n"}};
  EXPECT_EQ(Told(files, {"a.idl"}), R"(a.idl:4:16: error: "Bbbb" is not declared
    4 | message M { b: Bbbb c: Cccc }
      |                ^~~~
a.idl:2:3: note: this is a comment: write include "...", without "#"
    2 |   #include "b.idl"
      |   ^~~~~~~~~~~~~~~~
a.idl:4:24: error: "Cccc" is not declared
    4 | message M { b: Bbbb c: Cccc }
      |                        ^~~~
failed
)");
}

TEST(Examination, EscapesPathsAndNames) {
  const Files files = {{"a\n.idl", "include \"b.idl\"\nmessage \xc2\xad { }"},
                       {"b.idl", "message \xc2\xad { }"}};
  EXPECT_EQ(Told(files, {"a\n.idl"}),
            R"(a\n.idl:2:9: error: "\u00ad" is not a name: it contains "\u00ad"
    2 | message \u00ad { }
      |         ^~~~~~
failed
)");
}

struct WarningsRow {
  const char* name;
  std::string idl;
  Warnings warnings;
  std::string messages;
};
using WarningsOfARun = testing::TestWithParam<WarningsRow>;

TEST_P(WarningsOfARun, AreToldIgnoredOrFail) {
  const Files files = {{"a.idl", GetParam().idl}};
  EXPECT_EQ(Told(files, {"a.idl"}, GetParam().warnings), GetParam().messages);
}

const std::string warned = "enum _E { }";
const std::string warning =
    R"(a.idl:1:6: warning: "_E" is reserved for the compiler: names should not begin like this
    1 | enum _E { }
      |      ^~
)";
const std::string wrong = "\nmessage M { x: N }";
const std::string error = R"(a.idl:2:16: error: "N" is not declared
    2 | message M { x: N }
      |                ^
)";
const std::string unread = "\nmessage }";
const std::string fault = R"(a.idl:2:9: error: "}" is not a name
    2 | message }
      |         ^
)";

const std::vector<WarningsRow> warningsRows = {
    {"NothingToTell", "enum E { }", Warnings::Tell, ""},
    {"NothingToFail", "enum E { }", Warnings::Fail, ""},
    {"Told", warned, Warnings::Tell, warning},
    {"Ignored", warned, Warnings::Ignore, ""},
    {"Fail", warned, Warnings::Fail, warning + "failed\n"},
    {"ToldBesideAnError", warned + wrong, Warnings::Tell, warning + error + "failed\n"},
    {"IgnoredBesideAnError", warned + wrong, Warnings::Ignore, error + "failed\n"},
    {"FailBesideAnError", warned + wrong, Warnings::Fail, warning + error + "failed\n"},
    {"ToldBesideAFault", warned + unread, Warnings::Tell, warning + fault + "failed\n"},
    {"IgnoredBesideAFault", warned + unread, Warnings::Ignore, fault + "failed\n"},
};
INSTANTIATE_TEST_SUITE_P(Examination, WarningsOfARun, testing::ValuesIn(warningsRows),
                         RowName<WarningsRow>);

TEST(Examination, ShowsNoErrorLessForWarningsThatAreIgnored) {
  const std::string idl = "message M {\n" + Repeated(21, "_A%: string\n") + "x: Missing }";
  EXPECT_EQ(Told({{"a.idl", idl}}, {"a.idl"}, Warnings::Ignore),
            R"(a.idl:23:4: error: "Missing" is not declared
   23 | x: Missing }
      |    ^~~~~~~
failed
)");
}

struct ShapeRow {
  const char* name;
  std::string begin;
  std::string repeated;
  std::string end;
};
using TimesOfExamination = testing::TestWithParam<ShapeRow>;

TEST_P(TimesOfExamination, GrowWithTheFile) {
  const auto ticksFor = [](int count) {
    const auto& [name, begin, repeated, end] = GetParam();
    const std::string idl = begin + Repeated(count, repeated) + end;
    const std::clock_t start = std::clock();
    EXPECT_NE(Told({{"a.idl", idl}}, {"a.idl"}), "");
    return std::clock() - start;
  };
  // Of the processor, so that other processes make no difference. Quadratic time grows by 256.
  EXPECT_LT(ticksFor(12800), 64 * ticksFor(800));
}

const std::vector<ShapeRow> shapes = {
    {"OneList", "message M {\n", "x%: int8\n", "y = int8\n}"},
    {"FaultBeforeAList", "message M {\ny = int8\n", "x%: int8\n", "}"},
    {"OneLine", "message M { ", "x%: int8 ", "y }"},
    {"WrongLines", "message M {\n", "x = int8\n", "}"},
    {"Messages", "", "message M% { x: int8 }\n", "}"},
    {"OpenMessages", "", "message M% {\n", ""},
    {"Braces", "", "{", ""},
    {"Comment", "message M {\n/* x y\n", "z%: int8\n", "}"},
    {"Colons", "message M { x: int8 y }\n", ":::::", ""},
    {"TypesOfTheLibrary", "message M {\n", "x%: time_t\n", "}"},
    {"Items", "enum E { A: 0\n", "x%: A\n", "y: y }"},
    {"UnknownTypes", "message M { ", "M x% ", "}"}};
INSTANTIATE_TEST_SUITE_P(Examination, TimesOfExamination, testing::ValuesIn(shapes),
                         RowName<ShapeRow>);

}  // namespace
}  // namespace zentho::idlgen
