#include "diagnostics/places.h"

#include <algorithm>

#include "reader/idl.h"

namespace zentho {

std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        const std::set<std::size_t>& wanted) {
  // The words follow each other in the text, with nothing but separators and comments between them.
  constexpr std::string_view separators = " :";
  std::map<std::size_t, Place> places;
  std::size_t index = 0;
  for (std::size_t lineNumber = 1; places.size() < wanted.size() && !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::string_view code = WithoutComment(line);
    std::size_t begin = code.find_first_not_of(separators);
    while (begin != std::string_view::npos) {
      if (wanted.count(index) > 0) places[index] = {lineNumber, line, begin};
      begin = code.find_first_not_of(separators, begin + words.texts[index].size());
      ++index;
    }
  }
  return places;
}

}  // namespace zentho
