#pragma once

#include <string_view>

namespace zentho::idlgen {

/// Returns whether a file or directory name may be a slip for another one: one letter is missing,
/// too many or another one, or two neighbours are swapped. Short names, names with other digits and
/// names with another first letter are names of their own.
bool IsSlip(std::string_view written, std::string_view meant);

}  // namespace zentho::idlgen
