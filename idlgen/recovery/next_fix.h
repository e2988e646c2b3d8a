#pragma once

#include <optional>
#include <vector>

#include "findings/finding.h"
#include "recovery/fix.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns whether the parser refuses the file, or a word cannot have its role, or perhaps cannot
/// because of a "::" or a tab. The words need no places.
bool NeedsFix(const SourceFile& file);

/// Returns the fix for the first word that the parser refuses or that cannot have its role, or
/// nothing. The words have places.
std::optional<Fix> FixWords(SourceFile& file);

/// Returns the fix for the first list with a finding in or below a line that cannot be read in
/// pairs, or nothing: all words after that line have a wrong role.
std::optional<Fix> FixFindings(const LocatedWords& words, const std::vector<Finding>& findings);

}  // namespace zentho::idlgen
