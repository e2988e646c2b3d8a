#pragma once

#include <cstddef>

#include "check/context.h"

namespace zentho::idlgen {

// Each of these checks a word of a role: a path, or a name that is declared, but for that of a
// member.

void checkIncludePath(Context& check, std::size_t i);
void checkNamespacePath(Context& check, std::size_t i);
void checkRecordName(Context& check, std::size_t i);
void checkItemName(Context& check, std::size_t i);

}  // namespace zentho::idlgen
