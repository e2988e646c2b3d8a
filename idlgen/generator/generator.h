#pragma once

#include <string>

#include "io/line_writer.h"
#include "schema/schema.h"

namespace zentho {

/// Generates the C++ header of one IDL file. Refers to the model, which must outlive it. Names,
/// values and types are copied to the header unchecked.
///
/// A fixed interface, see CONTRIBUTING.md.
class Generator {
 public:
  explicit Generator(const Schema& model) : schema(&model) {}
  explicit Generator(Schema&&) = delete;  // It would be gone before the header is written.

  /// Writes the header of the IDL file at `idlPath`. The header's path is `idlPath` with everything
  /// from the last '.' replaced by ".h", even if that '.' is in a directory's name. Creates missing
  /// directories and overwrites an existing file.
  ///
  /// Prints nothing, and does not report write errors. Throws a plain std::exception if the path
  /// has no '.'; no file has been touched then.
  void generate(std::string idlPath) const;

  /// Writes the text of the header.
  void write(LineWriter& header) const;

 private:
  const Schema* schema;
};

}  // namespace zentho
