#include "reader/idl.h"

#include "support.h"

using namespace std::string_literals;

namespace zentho::idlgen {
namespace {

using Lines = std::vector<std::list<std::string>>;

/// Puts '|' between the tokens of a line, and ';' after each line.
std::string Show(const Lines& lines) {
  std::string text;
  for (const std::list<std::string>& line : lines) {
    std::string separator;
    for (const std::string& token : line) {
      text += std::exchange(separator, "|") + token;
    }
    text += ';';
  }
  return text;
}

struct Text {
  const char* name;
  std::string text;
  std::string lines;
};
using Texts = testing::TestWithParam<Text>;

TEST_P(Texts, GiveTokenLines) {
  EXPECT_EQ(Show(Load(GetParam().text).tokenLines), GetParam().lines);
}

const std::vector<Text> texts = {
    {"EmptyFileHasNoLines", "", ""},
    {"IgnoresBlankAndCommentLines", "\n   \n# a\n  // b\n#\n//", ""},
    {"LastLineNeedsNoLineFeed", "a\nb", "a;b;"},
    {"CommentStartsAtTheFirstHash", "a#b#c\nd # e\n#f", "a;d;"},
    {"SlashesAreOrdinaryInLinesWithHash", "x: float64 // see #3\n// y # z",
     "x;float64;//;see;//;y;"},
    {"CommentStartsAtFirstSlashes", "x // y / z\nv//w", "x;v;"},
    {"SlashesAreOrdinaryAfterASingleSlash", "a/b: c // d", "a/b;c;//;d;"},
    {"LineMayEndWithSlash", "a /\nb/\n/", "a;/;b/;/;"},
    {"IgnoresRepeatedSpaces", "  a   b  ", "a;b;"},
    {"SplitsAtColonsWithinALine", "x:float64 y : z :w:", "x|float64;y;;z;w;"},
    {"WordOfColonsGivesAnEmptyLine", ":: a:::b", ";a|b;"},
    {"SplitsAtBraceBeforeText", "{x Pose{x a{b{c", "{|x;Pose|{|x;a|{|b|{|c;"},
    {"KeepsBraceAtTheEnd", "{ {{ Pose{ a{b{", "{;{|{;Pose{;a|{|b{;"},
    {"SplitsAtColonsBeforeBraces", "a:{b:c{d:{", "a|{|b|c|{|d|{;"},
    {"ClosingBraceIsOrdinary", "} x} }y", "};x};}y;"},
    {"TabsAndCarriageReturnsAreOrdinary", "\ta\tb {\r\n}\r\n", "\ta\tb;{|\r;}\r;"},
    {"KeepsAllOtherBytes", "a\0b \xff\x80\n\0"s, "a\0b;\xff\x80;\0;"s},
    {"FilesMayBeLongerThanABlock", std::string(70000, 'a') + " b",
     std::string(70000, 'a') + ";b;"}};
INSTANTIATE_TEST_SUITE_P(Reader, Texts, testing::ValuesIn(texts), RowName<Text>);

TEST(Reader, SplitAppendsNonEmptyPieces) {
  std::list<std::string> pieces{"old"};
  IDL::split(",a,,b c,", pieces, ',');
  IDL::split("", pieces, ',');
  IDL::split(",,", pieces, ',');
  IDL::split("whole", pieces, ',');
  EXPECT_EQ(Show({pieces}), "old|a|b c|whole;");
}

TEST(Reader, PassesAppendAndHandleEmptyLines) {
  Lines spaced{{"old"}};
  IDL::splitBySpace({"a b:c", "", "  ", "{d"}, spaced);
  EXPECT_EQ(Show(spaced), "old;a|b:c;;;{d;");

  Lines coloned{{"old"}};
  IDL::splitByColon({{"a", "b:c"}, {}, {":"}, {""}, {"{d"}}, coloned);
  EXPECT_EQ(Show(coloned), "old;a;b|c;;;{d;");

  Lines braced{{"old"}};
  IDL::splitByBrace(Lines{{"a{b", "c{"}, {}, {""}, {"{d"}}, braced);
  EXPECT_EQ(braced, (Lines{{"old"}, {"a", "{", "b", "c{"}, {}, {}, {"{", "d"}}));
}

TEST(Reader, DumpsTokensWithAndWithoutMarks) {
  IDL idl = Load("x:float64 :\n y{z");
  EXPECT_EQ(Printed([&] { idl.outputFinal(); }), "output final idl:\nxfloat64\n\ny{z\n");
  EXPECT_EQ(Printed([&] { IDL::output(idl.tokenLines); }),
            "output idl:\nx[~]float64[~]\n\ny[~]{[~]z[~]\n");
}

TEST(Reader, UnreadableFilesHaveNoLines) {
  const Scratch scratch;
  IDL idl;
  idl.tokenLines = {{"kept"}};
  for (const std::string& path : {scratch.path("missing.idl"), scratch.path("."), ""s}) {
    EXPECT_EQ(Printed([&] { idl.load(path); }), "idl path:" + path + "\n");
  }
  EXPECT_EQ(Show(idl.tokenLines), "kept;");
}

}  // namespace
}  // namespace zentho::idlgen
