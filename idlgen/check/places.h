#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string_view>

#include "schema/parser.h"

namespace zentho {

/// Where a word begins in the text of a file.
struct Place {
  std::size_t lineNumber;  ///< Counts from 1.
  std::string_view line;
  std::size_t offset;  ///< In the line, in bytes.
};

/// Returns the places of the wanted words, which are given by their indexes. `words` are all words
/// of the text. Takes one pass over the text, so it is only called when there is something to say.
std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        const std::set<std::size_t>& wanted);

/// Returns the places of the words from one index up to another.
std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        std::size_t begin, std::size_t end);

/// Returns the rest of the line behind the word at this place.
std::string_view Behind(const Place& place, std::string_view word);

}  // namespace zentho
