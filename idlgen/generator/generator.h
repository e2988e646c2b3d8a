#pragma once

#include <string>

#include "schema/schema.h"

namespace zentho {

/// Writes the C++ header of one IDL file. It refers to the file's model, which must outlive it, and
/// changes nothing in it; names, values and types go into the header as they stand, unchecked.
class Generator {
 public:
  explicit Generator(const Schema& model) : schema(&model) {}

  /// Writes the header of the IDL file at `idlPath`: its path is that one up to the last '.', be it
  /// in a directory's name, and ".h". Missing directories are made, an earlier file is replaced.
  ///
  /// Prints nothing. A header that cannot be opened or written to its end is not reported. Throws a
  /// plain std::exception, before it touches any file, if the path holds no '.'.
  void generate(std::string idlPath) const;

 private:
  const Schema* schema;
};

}  // namespace zentho
