#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zentho::idlgen {

/// Where a word begins in the text of a file.
struct Place {
  std::size_t lineNumber;  ///< Counts from 1.
  std::string_view line;
  std::string_view code;  ///< The line without its comment.
  std::size_t offset;     ///< In the line, in bytes.
};

/// Returns the places of all words of the text, in their order. Takes one pass over the text.
std::vector<Place> FindPlaces(std::string_view text, const std::vector<std::string_view>& words);

/// Returns whether two colons stand right before other characters, as in `a::B`, apart from
/// comments.
bool HasColonsInWord(std::string_view text);

/// Returns the rest of the line's code after the word at this place.
std::string_view CodeAfter(const Place& place, std::string_view word);

}  // namespace zentho::idlgen
