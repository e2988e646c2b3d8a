#pragma once

#include "check/file_check.h"

namespace zentho::idlgen {

/// Checks that the files that a file includes fit together, and do not include it.
void checkIncludes(FileCheck& check);

}  // namespace zentho::idlgen
