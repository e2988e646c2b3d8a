#pragma once

#include <optional>

#include "recovery/fix.h"

namespace zentho::idlgen {

/// Returns the fix if the cause is in the characters of the words or in two colons between them.
std::optional<Fix> FixCharacters(const LocatedWords& words, WordRange range);

/// Returns the fix if the cause is in the form of one of the words. It leaves out `line`, or splits
/// a word such as `};`.
std::optional<Fix> FixForm(const LocatedWords& words, WordRange range, WordRange line);

}  // namespace zentho::idlgen
