#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/places.h"
#include "schema/parser.h"

namespace zentho {

/// Returns what to do about a word that cannot play its role because of this part, or nothing.
std::string FormHint(std::string_view text, const Word& word);

/// Returns a type with a similar name, or how to write one, or nothing.
std::string TypeHint(std::string_view type, std::size_t word, const Words& words,
                     const Place& place);

/// Returns what may have caused a grammar error, as far as its word and those beside it show.
std::string GrammarHint(const ParseError& error, const Words& words, const Place& place);

}  // namespace zentho
