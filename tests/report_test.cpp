#include "messages/report.h"

#include "support.h"

// Whole messages, with the lines that show the place.

namespace zentho::idlgen {
namespace {

struct ExcerptRow {
  const char* name;
  std::string idl;
  std::string messages;
};
using Excerpts = testing::TestWithParam<ExcerptRow>;

TEST_P(Excerpts, ShowTheirPlaces) {
  Schema schema;
  EXPECT_EQ(reportAlone("a.idl", GetParam().idl, schema).messages, GetParam().messages);
}

const std::string noStatement =
    " is not a statement: a statement begins with include, namespace, enum, message or service\n";

/// Returns the message about a word at the beginning of a file.
std::string FirstWord(const std::string& shown) {
  return "a.idl:1:1: error: \"" + shown + '"' + noStatement;
}

const std::vector<ExcerptRow> excerpts = {
    {"PartOfAWord", "namespace robot.a-b.c\nenum E { A: 1|B }",
     R"(a.idl:1:11: error: "a-b" is not a name: write "_" instead of "-"
    1 | namespace robot.a-b.c
      |           ^~~~~~~~~~~
a.idl:2:13: warning: "B" is not an item above
    2 | enum E { A: 1|B }
      |             ^~~
)"},
    {"LastOfEqualWords", "enum e { e: 1 f: 2 } e # e",
     "a.idl:1:22: error: \"e\"" + noStatement + R"(    1 | enum e { e: 1 f: 2 } e # e
      |                      ^
)"},
    {"CharactersOfSeveralBytes", "message M { größe: int8, 温度: Größe }",
     R"(a.idl:1:22: error: "int8," is not a type: delete the ","
    1 | message M { größe: int8, 温度: Größe }
      |                    ^~~~~
a.idl:1:36: error: "Größe" is not declared
    1 | message M { größe: int8, 温度: Größe }
      |                              ^~~~~
)"},
    {"Escapes", "\tmessage M\xff\x1b\xc2\x9b\xe2\x80\x8b\xf3\xa0\x80\x81{\r.",
     R"(a.idl:1:1: error: there are tabs between words: use spaces
    1 | \tmessage M\xff\x1b\u009b\u200b\U000e0001{\r.
      | ^~
)"},
    {"LineNumberOfSixDigits", Repeated(123455, "#\n") + "+",
     "a.idl:123456:1: error: \"+\"" + noStatement + "123456 | +\n       | ^\n"},
    {"LineOf200Bytes", "+ " + Repeated(198, "."),
     FirstWord("+") + "    1 | + " + Repeated(198, ".") + "\n      | ^\n"},
    {"LineOf201BytesIsCut", "+ " + Repeated(199, "."),
     FirstWord("+") + "    1 | + " + Repeated(198, ".") + "...\n      | ^\n"},
    {"WordAfter160Bytes", "enum " + Repeated(154, "E") + " (" + Repeated(50, "."),
     "a.idl:1:161: error: \"(" + Repeated(50, ".") +
         "\" is not \"{\": only a name stands before it\n    1 | enum " + Repeated(154, "E") +
         " (" + Repeated(39, ".") + "...\n      | " + Repeated(160, " ") + "^" + Repeated(39, "~") +
         "\n"},
    {"WordAfter161BytesBeginsTheLineLater", "enum " + Repeated(155, "E") + " (" + Repeated(50, "."),
     "a.idl:1:162: error: \"(" + Repeated(50, ".") +
         "\" is not \"{\": only a name stands before it\n    1 | ..." + Repeated(39, "E") + " (" +
         Repeated(50, ".") + "\n      | " + Repeated(43, " ") + "^" + Repeated(50, "~") + "\n"},
    {"CutBetweenCharacters", "a" + Repeated(101, "é"),
     FirstWord("a" + Repeated(99, "é") + "...") + "    1 | a" + Repeated(99, "é") +
         "...\n      | ^" + Repeated(99, "~") + "\n"},
    {"BeginsBetweenCharacters", "enum b" + Repeated(100, "é") + " (",
     "a.idl:1:208: error: \"(\" is not \"{\": only a name stands before it\n    1 | ..." +
         Repeated(20, "é") + " (\n      | " + Repeated(24, " ") + "^\n"},
};
INSTANTIATE_TEST_SUITE_P(Report, Excerpts, testing::ValuesIn(excerpts), RowName<ExcerptRow>);

}  // namespace
}  // namespace zentho::idlgen
