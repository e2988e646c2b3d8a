#pragma once

#include <vector>

#include "findings/finding.h"
#include "names/declarations.h"

namespace zentho::idlgen {

/// Checks what the words of a file mean: whether each can be what its place means, and whether C++
/// compilers accept the header, as far as the files show that it includes. Returns the findings
/// in the order of the words.
std::vector<Finding> FindingsIn(const Declarations& declarations, const CheckedFile& file);

}  // namespace zentho::idlgen
