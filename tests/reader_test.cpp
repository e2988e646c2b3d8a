#include "reader/idl.h"
#include "support.h"

using namespace std::string_literals;

namespace zentho {
namespace {

using Lines = std::vector<std::list<std::string>>;

/// The tokens of a line joined by '|', and ';' after each line.
std::string Show(const Lines& lines) {
  std::string text;
  for (const std::list<std::string>& line : lines) {
    for (const std::string& token : line) text += (&token == &line.front() ? "" : "|") + token;
    text += ';';
  }
  return text;
}

struct Case {
  const char* name;
  std::string text;
  std::string lines;
};

TEST(Reader, CutsTextIntoTokenLines) {
  const std::vector<Case> cases = {
      {"NothingGivesNothing", "", ""},
      {"BlankAndCommentLinesLeaveNoLine", "\n   \n# a\n  // b\n#\n//", ""},
      {"LastLineNeedsNoLineFeed", "a\nb", "a;b;"},
      {"CommentStartsAtTheFirstHash", "a#b#c\nd # e\n#f", "a;d;"},
      {"HashMakesSlashesOrdinary", "x: float64 // see #3\n// y # z", "x;float64;//;see;//;y;"},
      {"CommentStartsAtSlashesThatComeFirst", "x // y / z\nv//w", "x;v;"},
      {"ALoneSlashMakesLaterOnesOrdinary", "a/b: c // d", "a/b;c;//;d;"},
      {"SlashMayEndTheLine", "a /\nb/\n/", "a;/;b/;/;"},
      {"SpacesOnlySeparate", "  a   b  ", "a;b;"},
      {"ColonsCutATokenWithinItsLine", "x:float64 y : z :w:", "x|float64;y;;z;w;"},
      {"ColonsAloneLeaveAnEmptyLine", ":: a:::b", ";a|b;"},
      {"BraceBeforeMoreTextIsCutOut", "{x Pose{x a{b{c", "{|x;Pose|{|x;a|{|b|{|c;"},
      {"BraceAtTheEndStays", "{ {{ Pose{ a{b{", "{;{|{;Pose{;a|{|b{;"},
      {"ColonsCutBeforeBraces", "a:{b:c{d:{", "a|{|b|c|{|d|{;"},
      {"ClosingBraceIsOrdinary", "} x} }y", "};x};}y;"},
      {"TabsAndReturnsAreOrdinary", "\ta\tb {\r\n}\r\n", "\ta\tb;{|\r;}\r;"},
      {"EveryOtherByteIsKept", "a\0b \xff\x80\n\0"s, "a\0b;\xff\x80;\0;"s},
      {"LinesLongerThanABlock", std::string(20000, 'a') + " b", std::string(20000, 'a') + ";b;"}};
  for (const Case& row : cases) EXPECT_EQ(Show(Load(row.text).tokenLines), row.lines) << row.name;
}

TEST(Reader, SplitAppendsThePiecesThatAreNotEmpty) {
  std::list<std::string> pieces{"old"};
  IDL::split(",a,,b c,", pieces, ',');
  IDL::split("", pieces, ',');
  IDL::split(",,", pieces, ',');
  IDL::split("whole", pieces, ',');
  EXPECT_EQ(Show({pieces}), "old|a|b c|whole;");
}

TEST(Reader, PassesAppendAndKeepTheLinesThatTheyShould) {
  Lines spaced{{"old"}};
  IDL::splitBySpace({"a b:c", "", "  ", "{d"}, spaced);
  EXPECT_EQ(Show(spaced), "old;a|b:c;;;{d;");

  Lines coloned{{"old"}};
  IDL::splitByColon({{"a", "b:c"}, {}, {":"}, {"{d"}}, coloned);
  EXPECT_EQ(Show(coloned), "old;a;b|c;;{d;");

  Lines braced{{"old"}};
  IDL::splitByBrace(Lines{{"a{b", "c{"}, {}, {""}, {"{d"}}, braced);
  EXPECT_EQ(braced, (Lines{{"old"}, {"a", "{", "b", "c{"}, {}, {}, {"{", "d"}}));
}

TEST(Reader, DumpsMarkTokensOnlyInTheGeneralForm) {
  IDL idl = Load("x:float64 :\n y{z");
  EXPECT_EQ(Printed([&] { idl.outputFinal(); }), "output final idl:\nxfloat64\n\ny{z\n");
  EXPECT_EQ(Printed([&] { IDL::output(idl.tokenLines); }),
            "output idl:\nx[~]float64[~]\n\ny[~]{[~]z[~]\n");
}

TEST(Reader, FilesThatCannotBeReadHaveNoLines) {
  const Scratch scratch;
  IDL idl;
  idl.tokenLines = {{"kept"}};
  for (const std::string& path : {scratch.path("missing.idl"), scratch.path("."), ""s}) {
    EXPECT_EQ(Printed([&] { idl.load(path); }), "idl path:" + path + "\n");
  }
  EXPECT_EQ(Show(idl.tokenLines), "kept;");
}

}  // namespace
}  // namespace zentho
