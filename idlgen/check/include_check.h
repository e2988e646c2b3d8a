#pragma once

#include "check/context.h"

namespace zentho::idlgen {

/// Checks that the files that a file includes fit together, and do not include it.
void checkIncludes(Context& check);

}  // namespace zentho::idlgen
