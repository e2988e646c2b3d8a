#pragma once

#include <cstddef>
#include <functional>
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

using PlaceVisitor = std::function<void(std::size_t word, const Place& place)>;

/// Calls the visitor for each word of the text up to the index `end`. `words` are all of its words.
/// Takes one pass over the text, so it is only called when there is something to say.
void visitPlaces(std::string_view text, const Words& words, std::size_t end,
                 const PlaceVisitor& visitor);

/// Returns the places of the wanted words, which are given by their indexes.
std::map<std::size_t, Place> FindPlaces(std::string_view text, const Words& words,
                                        const std::set<std::size_t>& wanted);

/// Returns the rest of the line behind the word at this place.
std::string_view Behind(const Place& place, std::string_view word);

}  // namespace zentho
