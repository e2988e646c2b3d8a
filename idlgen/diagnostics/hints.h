#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "check/places.h"
#include "schema/parser.h"

namespace zentho {

/// Returns what to do about a word that cannot play its role because of this part, or nothing.
std::string FormHint(std::string_view text, const Word& word);

/// Returns a type with a similar name, or where to put the type, or nothing.
std::string TypeHint(std::string_view type, std::size_t word, const Words& words);

/// Returns that an item needs a value, unless a colon shows that the word is meant as one.
std::string ItemHint(std::string_view text, const Word& word, const Place& place);

/// Returns how to write the C++ name with "::" that begins with this word.
std::string ColonsHint(const Word& word, const Place& place);

/// Returns what may have caused a grammar error, as far as its word and those beside it show. If it
/// is not the first error, the word alone.
std::string GrammarHint(const ParseError& error, const Words& words, const Place& place,
                        bool isFirst);

}  // namespace zentho
