#include "check/places.h"

#include <algorithm>

#include "reader/idl.h"

namespace zentho {

void visitPlaces(std::string_view text, const Words& words, std::size_t end,
                 const PlaceVisitor& visitor) {
  // The words follow each other in the text, with nothing but separators and comments between them.
  constexpr std::string_view separators = " :";
  std::size_t index = 0;
  for (std::size_t lineNumber = 1; index < end && !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::string_view code = WithoutComment(line);
    std::size_t offset = code.find_first_not_of(separators);
    while (offset != std::string_view::npos && index < end) {
      visitor(index, {lineNumber, line, offset});
      offset = code.find_first_not_of(separators, offset + words.texts[index].size());
      ++index;
    }
  }
}

std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        const std::set<std::size_t>& wanted) {
  std::map<std::size_t, Place> places;
  const std::size_t end = wanted.empty() ? 0 : *wanted.rbegin() + 1;
  visitPlaces(text, words, end, [&](std::size_t word, const Place& place) {
    if (wanted.count(word) > 0) places[word] = place;
  });
  return places;
}

std::string_view Behind(const Place& place, std::string_view word) {
  return place.line.substr(std::min(place.offset + word.size(), place.line.size()));
}

}  // namespace zentho
