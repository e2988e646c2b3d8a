#pragma once

#include <string>

#include "messages/examination.h"
#include "messages/outcome.h"
#include "schema/schema.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns the messages about one of the files, and whether it passes: those of its recovery, and
/// what the check has found in the words that are left. They are in the order of the places. Of
/// many, 20 are shown, errors rather than warnings.
[[nodiscard]] Outcome reportOn(Examination& examination, SourceFile& file, Warnings warnings);

/// Does the same for the text of the IDL file at `path`, without looking at any other. Fills the
/// empty `schema`, as far as the file is right.
[[nodiscard]] Outcome reportAlone(const std::string& path, std::string text, Schema& schema,
                                  Warnings warnings = Warnings::Report);

}  // namespace zentho::idlgen
