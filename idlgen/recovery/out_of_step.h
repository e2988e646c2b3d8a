#pragma once

#include <cstddef>

#include "schema/words.h"

namespace zentho::idlgen {

/// Returns how many of the first `count` words have the role that they are meant for. The next one
/// shows that a word is missing or too many: it is a brace where a name, a type or a value should
/// be, or is glued to one, or has nothing that could be a name.
std::size_t WordsInStep(const Words& words, std::size_t count);

}  // namespace zentho::idlgen
