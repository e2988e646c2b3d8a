#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "findings/finding.h"
#include "names/lookup.h"

namespace zentho::idlgen {

/// Returns what a name is to the value, as `Lookup::findInValue` does. A `Type` is an enum.
using MeaningOf = std::function<Meaning(std::string_view name)>;

/// Checks the value of an item: literals and names with operators, parentheses and casts. Evaluates
/// nothing. `word` is its index. Returns one error, or warnings in the order of the text.
std::vector<Finding> CheckValue(std::string_view text, std::size_t word,
                                const MeaningOf& meaningOf);

}  // namespace zentho::idlgen
