#pragma once

#include "reader/idl.h"
#include "schema/schema.h"

namespace zentho {

/// Reads the statements of an IDL file into its model. It has no state: one parser serves any
/// number of files.
class Parser {
 public:
  /// Reads all tokens of `idl`, in order and whatever their lines, and appends what they declare to
  /// `schema`, which is to be a new one. Prints one line for each completed statement.
  ///
  /// The first fault ends the file. Its diagnostic, an empty line, "lines:" and the tokens read so
  /// far are printed, one a line, and a plain std::exception is thrown. The schema then holds the
  /// statements before the failing one, and the includes, namespaces and flags met until then.
  void parse(const IDL& idl, Schema& schema) const;
};

}  // namespace zentho
