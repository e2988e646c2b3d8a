#pragma once

#include <string>
#include <string_view>

#include "diagnostics/diagnostic.h"
#include "recovery/recovery.h"

namespace zentho {

/// Returns the messages about the IDL file at `path`, which contains `text`: those of its recovery,
/// and what the check has found in the words that are left. They are in the order of the places.
/// Of many, 20 are shown, errors rather than warnings.
std::string Report(const std::string& path, std::string_view text, const Recovery& recovery);

}  // namespace zentho
