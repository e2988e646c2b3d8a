#include "words/places.h"

#include "words/located_words.h"
#include "sources/source_file.h"
#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(Places, AreWhereTheWordsStand) {
  // Words that also stand in comments, and that are split and glued in all ways.
  const std::string text =
      "# a b\na a::b :\n\n  b{a}{ {{b{ // a\n/a//b a#a\na/b // b\n\t\n: :a\r\n:#\nlast";
  IDL idl;
  idl.tokenize(text);
  std::vector<std::string_view> words;
  for (const auto& line : idl.tokenLines) words.insert(words.end(), line.begin(), line.end());
  const std::vector<Place> places = FindPlaces(text, words);
  ASSERT_EQ(places.size(), words.size());
  std::string shown;
  for (std::size_t i = 0; i < words.size(); ++i) {
    EXPECT_EQ(places[i].code.substr(places[i].offset, words[i].size()), words[i]);
    shown += std::to_string(places[i].lineNumber) + ":" + std::to_string(places[i].offset) + " ";
  }
  EXPECT_EQ(shown, "2:0 2:2 2:5 4:2 4:3 4:4 4:8 4:9 4:10 5:0 5:6 6:0 6:4 6:7 7:0 8:3 10:0 ");
}

/// Returns the texts of the words for which this holds, with spaces between them.
template <typename Holds>
std::string WordsThat(const LocatedWords& file, const Holds& holds) {
  std::string texts;
  for (std::size_t i = 0; i < file.size(); ++i) {
    if (holds(file, i)) texts += (texts.empty() ? "" : " ") + std::string(file.text(i));
  }
  return texts;
}

/// Reads words that need not be a file of IDL.
class Located {
 public:
  explicit Located(const std::string& text) : source(ParseSource("a.idl", text)) {
    file.words = source.words;
    file.places = FindPlaces(source.text, file.words.texts);
  }
  const LocatedWords* operator->() const { return &file; }
  const LocatedWords& operator*() const { return file; }

 private:
  SourceFile source;
  LocatedWords file;
};

TEST(LocatedWords, KnowTheColonsAroundThem) {
  const Located file("a: b c :d e : : f\ng:#h\n:i j");
  EXPECT_EQ(WordsThat(*file, IsBeforeColon), "a c e g");
  EXPECT_EQ(WordsThat(*file, IsAfterColon), "b d f i");
}

TEST(LocatedWords, AreJoinedByTwoColonsWithoutASpace) {
  const Located file("a::b c:: d e : :f g:h i::: j::\tk l::\r\nm::#n\no::p//q\nr::");
  EXPECT_EQ(WordsThat(*file, IsJoinedByColons), "a o");
}

TEST(LocatedWords, StandInLines) {
  const Located file("a b\n\n# x\nc\nd e");
  EXPECT_TRUE(AreOnOneLine(*file, 0, 1));
  EXPECT_FALSE(AreOnOneLine(*file, 1, 2));
  EXPECT_EQ(LineEnd(*file, 0), 2U);
  EXPECT_EQ(LineEnd(*file, 1), 2U);
  EXPECT_EQ(LineEnd(*file, 2), 3U);
  EXPECT_EQ(LineEnd(*file, 3), 5U);
}

struct BraceRow {
  const char* name;
  const char* text;
  std::size_t opening;
  std::size_t closing;
  std::ptrdiff_t open;
};
using Braces = testing::TestWithParam<BraceRow>;

TEST_P(Braces, BelongTogether) {
  const Located file(GetParam().text);
  EXPECT_EQ(OpeningBrace(*file, 0), GetParam().opening);
  EXPECT_EQ(OpenBraces(*file), GetParam().open);
  if (GetParam().opening == noWord) return;
  EXPECT_EQ(ClosingBrace(*file, GetParam().opening), GetParam().closing);
}

const std::vector<BraceRow> braces = {
    {"InOneLine", "a b { c } d }", 2, 4, -1},
    {"InSeveralLines", "a {\nb {\n}\n}", 1, 5, 0},
    {"Glued", "a {\nb{ c\nd}\n};", 1, 5, 0},
    {"InTheNextLine", "a b\n{ c }", 2, 4, 0},
    {"NotInTheLineAfter", "a\nb {\n}", noWord, noWord, 0},
    {"WithoutAnEnd", "a { b c\nd {\n}", 1, 3, 1},
    {"None", "a b", noWord, noWord, 0},
    {"OnlyGlued", "a{", noWord, noWord, 1},
};
INSTANTIATE_TEST_SUITE_P(LocatedWords, Braces, testing::ValuesIn(braces), RowName<BraceRow>);

}  // namespace
}  // namespace zentho::idlgen
