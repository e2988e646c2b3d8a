#pragma once

#include <cstddef>
#include <vector>

#include "names/declarations.h"

namespace zentho::idlgen {

/// An include statement that leads to a file which is checked, too.
struct Inclusion {
  std::size_t word;  ///< The index of the path.
  std::size_t file;
};

/// The inclusions of each file.
using Includes = std::vector<std::vector<Inclusion>>;

/// Follows the includes from a file. `enter` is called with each included file, and returns whether
/// to follow its includes: that it is new.
template <typename Enter>
void FollowIncludes(std::size_t file, const Includes& includes, const Enter& enter) {
  std::vector<std::size_t> pending = {file};
  while (!pending.empty()) {
    const std::size_t next = pending.back();
    pending.pop_back();
    for (const Inclusion& inclusion : includes[next]) {
      if (enter(inclusion.file)) pending.push_back(inclusion.file);
    }
  }
}

/// Which files and namespaces one file sees: itself, and all that it includes, also through others.
class Sight {
 public:
  /// The sight of a file that is checked alone.
  explicit Sight(const Declarations& fileDeclarations) : declarations(fileDeclarations) {}

  /// Looks from one of the files.
  void lookFrom(std::size_t file, const Includes& includes);

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

}  // namespace zentho::idlgen
