#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "check/declarations.h"

namespace zentho {

/// Which files and namespaces one file sees: itself, and all that it includes, also through others.
class Sight {
 public:
  /// The sight of a file that is checked alone.
  explicit Sight(const Declarations& fileDeclarations) : declarations(fileDeclarations) {}

  /// Looks from one of `count` files. `includesOf` returns what a file includes.
  template <typename IncludesOf>
  void lookFrom(std::size_t file, std::size_t count, const IncludesOf& includesOf);

  [[nodiscard]] bool hasFile(std::size_t file) const {
    return file == user || (file < fileMarks.size() && fileMarks[file] == looks);
  }
  [[nodiscard]] bool hasNamespace(std::size_t space) const;

  /// The files that are seen, apart from the one that looks.
  [[nodiscard]] const std::vector<std::size_t>& others() const { return seen; }

 private:
  const Declarations& declarations;
  std::size_t user = 0;
  std::size_t looks = 0;  ///< The number of looks so far.
  std::vector<std::size_t> seen;
  std::vector<std::size_t> fileMarks;   ///< The look that has last seen each file.
  std::vector<std::size_t> spaceMarks;  ///< The look that has last seen each namespace.
};

template <typename IncludesOf>
void Sight::lookFrom(std::size_t file, std::size_t count, const IncludesOf& includesOf) {
  user = file;
  ++looks;
  seen.clear();
  fileMarks.resize(count, 0);
  spaceMarks.resize(declarations.countNamespaces(), 0);
  fileMarks[file] = looks;
  std::vector<std::size_t> pending = {file};
  while (!pending.empty()) {
    const std::size_t next = pending.back();
    pending.pop_back();
    for (const auto& inclusion : includesOf(next)) {
      if (fileMarks[inclusion.file] == looks) continue;
      fileMarks[inclusion.file] = looks;
      seen.push_back(inclusion.file);
      pending.push_back(inclusion.file);
      for (const std::size_t space : declarations.file(inclusion.file).namespaces) {
        spaceMarks[space] = looks;
      }
    }
  }
  std::sort(seen.begin(), seen.end());
}

}  // namespace zentho
