#pragma once

#include <cstddef>
#include <vector>

#include "check/declarations.h"

namespace zentho {

/// Which files and namespaces one file sees: itself, and all that it includes, also through others.
class Sight {
 public:
  /// The sight of a file that is checked alone.
  explicit Sight(const Declarations& fileDeclarations) : declarations(fileDeclarations) {}

  /// Looks from a file. `includes` are, for each file, those that it includes.
  void lookFrom(std::size_t file, const std::vector<std::vector<std::size_t>>& includes);

  [[nodiscard]] bool hasFile(std::size_t file) const {
    return file == user || (file < fileMarks.size() && fileMarks[file] == user);
  }
  [[nodiscard]] bool hasNamespace(std::size_t space) const;

  /// The files that are seen, apart from the one that looks.
  [[nodiscard]] const std::vector<std::size_t>& others() const { return seen; }

 private:
  const Declarations& declarations;
  std::size_t user = 0;
  std::vector<std::size_t> seen;
  std::vector<std::size_t> fileMarks;   ///< The file that has last seen each file.
  std::vector<std::size_t> spaceMarks;  ///< The file that has last seen each namespace.
};

}  // namespace zentho
