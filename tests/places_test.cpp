#include "check/places.h"

#include "support.h"

namespace zentho {
namespace {

TEST(Places, AreWhereTheWordsStand) {
  // Words that also stand in comments, and that are split and glued in all ways.
  const std::string text =
      "# a b\na a::b :\n\n  b{a}{ {{b{ // a\n/a//b a#a\na/b // b\n\t\n: :a\r\n:#\nlast";
  IDL idl;
  idl.tokenize(text);
  Words words;
  std::set<std::size_t> all;
  for (const auto& line : idl.tokenLines) {
    for (const std::string& token : line) {
      all.insert(words.size());
      words.texts.push_back(token);
    }
  }
  const std::map<std::size_t, Place> places = FindPlaces(text, words, all);
  ASSERT_EQ(places.size(), words.size());
  std::string shown;
  for (const auto& [index, place] : places) {
    EXPECT_EQ(place.line.substr(place.offset, words.texts[index].size()), words.texts[index]);
    shown += std::to_string(place.lineNumber) + ":" + std::to_string(place.offset) + " ";
  }
  EXPECT_EQ(shown, "2:0 2:2 2:5 4:2 4:3 4:4 4:8 4:9 4:10 5:0 5:6 6:0 6:4 6:7 7:0 8:3 10:0 ");
}

}  // namespace
}  // namespace zentho
