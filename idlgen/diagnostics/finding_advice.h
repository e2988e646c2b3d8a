#pragma once

#include <string>

#include "check/finding.h"
#include "check/located_words.h"

namespace zentho {

/// Returns what follows the sentence of the finding, or nothing.
std::string AdviceFor(const Finding& finding, const LocatedWords& file);

}  // namespace zentho
