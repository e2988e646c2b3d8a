#pragma once

#include <cstddef>
#include <string_view>

#include "check/file_check.h"

namespace zentho::idlgen {

/// Checks the paths of a file and the names that it declares, but for those of members.
class NameCheck {
 public:
  explicit NameCheck(FileCheck& fileCheck) : check(fileCheck) {}

  void checkInclude(std::size_t i);
  void checkNamespace(std::size_t i);
  void checkRecordName(std::size_t i);
  void checkItemName(std::size_t i);

 private:
  /// Checks that no other declaration has the name of this one, in the file or in those it
  /// includes.
  void checkIsNew(std::size_t i);

  /// Returns whether the declaration of the name would be one of an existing namespace.
  [[nodiscard]] bool isGlobalNamespace(std::string_view name) const;

  /// Returns whether the header has functions, which those of enums do not need.
  [[nodiscard]] bool hasFunctions() const;

  FileCheck& check;
};

}  // namespace zentho::idlgen
