#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "check/rules.h"
#include "schema/parser.h"

namespace zentho {

/// Checks what the words of a file mean: whether each can be what its place means, and whether C++
/// compilers accept the header, as far as the file itself shows. Checks the first `count` words of
/// the text; the others may still declare what these use. Returns the findings in the order of the
/// words.
std::vector<Finding> Check(std::string_view text, const Words& words, std::size_t count);

}  // namespace zentho
