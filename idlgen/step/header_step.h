#pragma once

#include <exception>
#include <string>
#include <utility>

namespace zentho {

/// Why a header was not generated, as one or more lines for standard error.
struct StepError : std::exception {
  explicit StepError(std::string lines) : message(std::move(lines)) {}

  std::string message;
};

/// Generates the file `header` from the file `idl`, whole or not at all: the text is written to a
/// temporary file in the same directory, which is then renamed. Creates missing directories. With
/// `ifChanged`, leaves a header that already has this text untouched. Prints nothing.
///
/// Throws StepError, or std::bad_alloc. An older header has been removed then, unless that failed
/// or it must not be replaced: it is the IDL file, or could not be examined, or is neither a link
/// nor an empty file nor one that begins with "#pragma once".
void generateHeader(const std::string& idl, const std::string& header, bool ifChanged);

}  // namespace zentho
