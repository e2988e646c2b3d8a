#include "check/places.h"

#include <algorithm>

#include "reader/idl.h"

namespace zentho {
namespace {

/// The words follow each other in the text, with nothing but separators and comments between them.
template <typename IsWanted>
std::map<std::size_t, Place> PlacesBefore(std::size_t end, std::string_view text,
                                          const Words& words, const IsWanted& isWanted) {
  constexpr std::string_view separators = " :";
  std::map<std::size_t, Place> places;
  std::size_t index = 0;
  for (std::size_t lineNumber = 1; index < end && !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::string_view code = WithoutComment(line);
    std::size_t offset = code.find_first_not_of(separators);
    while (offset != std::string_view::npos) {
      if (isWanted(index)) places.insert(places.end(), {index, {lineNumber, line, offset}});
      offset = code.find_first_not_of(separators, offset + words.texts[index].size());
      ++index;
    }
  }
  return places;
}

}  // namespace

std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        const std::set<std::size_t>& wanted) {
  const std::size_t end = wanted.empty() ? 0 : *wanted.rbegin() + 1;
  return PlacesBefore(end, text, words, [&](std::size_t i) { return wanted.count(i) > 0; });
}

std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        std::size_t begin, std::size_t end) {
  return PlacesBefore(end, text, words, [&](std::size_t i) { return begin <= i && i < end; });
}

std::string_view Behind(const Place& place, std::string_view word) {
  return place.line.substr(std::min(place.offset + word.size(), place.line.size()));
}

}  // namespace zentho
