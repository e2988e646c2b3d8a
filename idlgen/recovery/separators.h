#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "findings/diagnostic.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

// The words have places. Their roles are wrong until they are parsed.

/// If most lines end with CR LF, reads their last words without the CR, and returns what is wrong.
std::optional<Diagnostic> dropCarriageReturns(SourceFile& file);

/// If there are tabs beside or between words, reads them as spaces, and returns what is wrong.
std::optional<Diagnostic> dropTabs(SourceFile& file);

/// Returns whether the word consists of what other languages put between words.
bool IsSeparator(std::string_view word);

/// Returns the parts of the text between these separators. None is empty.
std::vector<std::string_view> Parts(std::string_view text, std::string_view separators);

}  // namespace zentho::idlgen
