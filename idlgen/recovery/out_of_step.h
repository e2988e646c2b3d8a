#pragma once

#include <cstddef>

#include "schema/words.h"

namespace zentho::idlgen {

/// Returns the first of the first `count` words that cannot have its role, or `count`. It shows
/// that a word is missing or too many: it is a brace where a name, a type or a value should be, or
/// is glued to one, or has nothing that could be a name.
std::size_t FirstMisplacedWord(const Words& words, std::size_t count);

}  // namespace zentho::idlgen
