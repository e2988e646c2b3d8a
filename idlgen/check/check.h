#pragma once

#include <cstddef>
#include <vector>

#include "check/rules.h"
#include "schema/parser.h"

namespace zentho {

/// Checks what the words of a file mean: whether each can be what its place means, and whether C++
/// compilers accept the header, as far as the file itself shows. Checks the first `count` words;
/// the others may still declare what these use. Returns the findings in the order of the words.
std::vector<Finding> Check(const Words& words, std::size_t count);

}  // namespace zentho
