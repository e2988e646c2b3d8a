#include "findings/places.h"

#include <algorithm>

#include "reader/idl.h"

namespace zentho::idlgen {

std::vector<Place> FindPlaces(std::string_view text, const std::vector<std::string_view>& words) {
  // The words follow each other in the text, with nothing but separators and comments between them.
  constexpr std::string_view separators = " :";
  std::vector<Place> places;
  places.reserve(words.size());
  for (std::size_t lineNumber = 1; places.size() < words.size(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const std::string_view code = WithoutComment(line);
    std::size_t offset = code.find_first_not_of(separators);
    while (offset != std::string_view::npos) {
      const std::size_t size = words[places.size()].size();
      places.push_back({lineNumber, line, code, offset});
      offset = code.find_first_not_of(separators, offset + size);
    }
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return places;
}

bool HasColonsInWord(std::string_view text) {
  for (std::size_t colons = text.find("::"); colons != std::string_view::npos;
       colons = text.find("::")) {
    const std::size_t begin = text.rfind('\n', colons) + 1;  // 0 in the first line.
    const std::string_view line = text.substr(begin, text.find('\n', colons) - begin);
    const std::string_view code = WithoutComment(line);
    std::size_t next = code.find("::");
    for (; next != std::string_view::npos; next = code.find("::", next)) {
      next += 2;
      if (next < code.size() && code[next] != ' ' && code[next] != ':') return true;
    }
    text.remove_prefix(begin + line.size());
  }
  return false;
}

std::string_view CodeAfter(const Place& place, std::string_view word) {
  return place.code.substr(std::min(place.offset + word.size(), place.code.size()));
}

}  // namespace zentho::idlgen
