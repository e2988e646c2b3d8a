#pragma once

#include <string_view>
#include <unordered_set>
#include <vector>

#include "check/finding.h"
#include "schema/parser.h"

namespace zentho {

/// What stands in a file but is not among the words that are checked.
struct LeftOut {
  std::unordered_set<std::string_view> names;  ///< May be declared there.
  bool mayDeclareAnything = false;             ///< Such as an include.
};

/// Checks what the words of a file mean: whether each can be what its place means, and whether C++
/// compilers accept the header, as far as the file itself shows. The words must have been parsed.
/// Returns the findings in the order of the words.
std::vector<Finding> Check(const Words& words, const LeftOut& leftOut = {});

}  // namespace zentho
