#pragma once

#include <vector>

#include "findings/finding.h"
#include "messages/outcome.h"
#include "recovery/recovery.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns one finding of each pair with a colon, and one of the rest of its line, but none of a
/// line of which words are not read. It is the one that says most about the cause: by its symptom,
/// else an error, else the first one. Of an include it is all: they are about different files.
std::vector<Finding> FindingsToReport(const SourceFile& file, const RecoveryResult& result,
                                      Warnings warnings);

}  // namespace zentho::idlgen
