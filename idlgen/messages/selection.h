#pragma once

#include <vector>

#include "findings/finding.h"
#include "messages/outcome.h"
#include "recovery/recovery.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns the findings that are told: of each pair with a colon one, and one of the rest of its
/// line, but none of a line of which words are not read. The one that says most about the cause is
/// told: by its symptom, else an error rather than a warning, else the first one. All are told of
/// an include: they are about different files.
std::vector<Finding> Selection(const SourceFile& file, const Examined& examined, Warnings warnings);

}  // namespace zentho::idlgen
