#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "sources/source_tree.h"

namespace zentho::idlgen {

/// What an include statement leads to.
enum class IncludeKind : std::uint8_t {
  Found,
  Missing,     ///< There is no file.
  Unreadable,  ///< There is one that cannot be read.
  Other  ///< Nobody says anything about it: a header, or a file that may not be the right one.
};

/// Finds the files that include statements mean, in the way in which a compiler finds their
/// headers.
class IncludeSearch {
 public:
  /// The files are searched for below the base directories, in this order.
  IncludeSearch(PathCache& pathCache, std::vector<std::string> baseDirectories);

  struct Result {
    IncludeKind kind = IncludeKind::Other;
    std::string path = {};    ///< Of the file that was found.
    FileId id = {};           ///< Of that file.
    std::string reason = {};  ///< Why it cannot be read.
  };

  /// Looks for a file that a file in `directory` includes: beside that file, then in the base
  /// directories. Passes over what is no file. Of a path that is too long for the system, nothing
  /// is said. Where there is only a header that the file may have become, the result is Other.
  ///
  /// The headers of several base directories may be generated into one directory. There, a header
  /// that comes from another base directory may stand beside that of the includer and come first.
  /// If there is such a file, and it is not the one that the search finds, the result is Other,
  /// too.
  Result find(const std::string& directory, const std::string& path);

  [[nodiscard]] bool isBase(const FileId& directory) const { return baseIds.count(directory) > 0; }

  /// Returns the names in a directory below all base directories.
  const std::vector<std::string>& namesIn(const std::string& directory);

 private:
  struct Base {
    std::string path;  ///< With a '/' at its end.
    FileId id;
  };

  /// What stands in a directory below all base directories.
  struct Names {
    std::vector<std::string> list;
    std::unordered_map<std::string, std::vector<const Base*>> bases;  ///< Those with the name.
    std::vector<const Base*> unlisted;  ///< Base directories that may have any name.
  };

  bool mayComeBefore(const Result& result, const std::string& directory, const std::string& path);
  bool hasHeader(const std::string& directory, const std::string& path);
  Result look(const std::string& directory, const std::string& path);
  const Names& index(const std::string& directory);
  std::vector<const Base*> basesWithFile(const std::string& path);

  PathCache& cache;
  std::vector<Base> bases;
  std::set<FileId> baseIds;                        ///< Of those that exist.
  std::unordered_map<std::string, Names> indexes;  ///< By the path below the base directories.
};

}  // namespace zentho::idlgen
