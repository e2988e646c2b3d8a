#pragma once

#include "reader/idl.h"
#include "schema/schema.h"

namespace zentho {

/// Parses IDL files into their models. Has no state, so one parser can be used for many files.
class Parser {
 public:
  /// Parses the tokens of `idl` and appends the declarations to `schema`, which must be empty.
  /// Prints one line per completed statement.
  ///
  /// The first error prints a diagnostic, an empty line, "lines:" and each token read so far on its
  /// own line, and throws a plain std::exception. The schema then contains the statements before
  /// the error, and the includes, namespaces and flags found so far.
  void parse(const IDL& idl, Schema& schema) const;
};

}  // namespace zentho
