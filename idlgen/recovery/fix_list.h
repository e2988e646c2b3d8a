#pragma once

#include <cstddef>

#include "recovery/fix.h"
#include "recovery/list.h"

namespace zentho::idlgen {

/// Returns the fix for a word that stands in this list.
Fix FixList(const List& list, std::size_t word);

}  // namespace zentho::idlgen
