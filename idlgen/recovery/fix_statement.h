#pragma once

#include <cstddef>

#include "recovery/fix.h"

namespace zentho::idlgen {

/// Returns the fix for a word that stands outside of the lists of members or items.
Fix FixStatement(const LocatedWords& words, std::size_t word);

}  // namespace zentho::idlgen
