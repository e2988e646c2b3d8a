#pragma once

#include <cstddef>

#include "recovery/fix.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns the fix for a statement that is not complete at the end of the file.
Fix FixEnd(SourceFile& file);

/// Returns what is missing before this word to complete the statement that is open there.
Texts MissingBraces(const Words& words, std::size_t end);

}  // namespace zentho::idlgen
