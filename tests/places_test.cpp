#include "reader/places.h"

#include "support.h"

namespace zentho {
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

}  // namespace
}  // namespace zentho
