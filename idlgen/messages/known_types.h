#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/files_check.h"

namespace zentho::idlgen {

/// The types that may be meant by a name that one of the files uses.
class KnownTypes {
 public:
  KnownTypes(FilesCheck& filesCheck, std::size_t userFile);

  /// Returns the files that the user does not see and in which it would find the type.
  [[nodiscard]] std::vector<std::size_t> filesThatDeclare(std::string_view type) const;

  /// Returns the built-in type or the declared one whose name is most similar, as the user must
  /// write it, or nothing.
  [[nodiscard]] std::string mostSimilar(std::string_view type) const;

 private:
  [[nodiscard]] std::string_view textOf(const Declaration& declaration) const;
  [[nodiscard]] std::string nameOf(const Declaration& declaration) const;

  const Declarations& declarations;
  std::size_t user;
  Lookup lookup;
  const Sight& sight;
};

}  // namespace zentho::idlgen
