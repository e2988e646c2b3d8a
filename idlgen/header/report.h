#pragma once

#include <cstddef>

#include "header/examination.h"
#include "header/outcome.h"

namespace zentho {

/// Returns the messages about one of the files, and whether it passes: those of its recovery, and
/// what the check has found in the words that are left. They are in the order of the places. Of
/// many, 20 are shown, errors rather than warnings.
[[nodiscard]] Outcome reportOn(Examination& examination, std::size_t file, Warnings warnings);

}  // namespace zentho
