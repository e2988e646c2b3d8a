#pragma once

#include <string>

#include "header/outcome.h"
#include "schema/schema.h"

namespace zentho {

/// Parses and checks the text of the IDL file at `path`, without looking at any other. Fills the
/// empty `schema` if it succeeds.
[[nodiscard]] Outcome examine(const std::string& path, const std::string& text, Schema& schema,
                              Warnings warnings = Warnings::Tell);

}  // namespace zentho
