#pragma once

#include <string>

#include "header/warnings.h"
#include "schema/schema.h"

namespace zentho {

/// Whether a run succeeds, and what it has to say.
struct Outcome {
  bool succeeded;
  std::string messages;  ///< Lines for standard error. There may be warnings after success.
};

/// Parses and checks the text of the IDL file at `path`, without looking at any other. Fills the
/// empty `schema` if it succeeds.
[[nodiscard]] Outcome examine(const std::string& path, const std::string& text, Schema& schema,
                              Warnings warnings = Warnings::Tell);

}  // namespace zentho
