#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
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
/// headers. Paths are joined as text: ".." takes a name off. Each answer is remembered.
class IncludeSearch {
 public:
  /// The files are searched for below the base directories, in this order.
  IncludeSearch(SourceTree& sourceTree, std::vector<std::string> baseDirectories);

  struct Result {
    IncludeKind kind;
    std::string path = {};    ///< Of the file that was found.
    FileId id = {};           ///< Of that file.
    std::string reason = {};  ///< Why it cannot be read.
  };

  /// Looks for a file that a file in `directory` includes: beside that file, then in the base
  /// directories. Passes over what is no file. Where there is only a header that the file may have
  /// become, the result is Other.
  ///
  /// The headers of several base directories may be generated into one directory. There, a header
  /// that comes from another base directory may stand beside that of the includer and come first.
  /// If there is such a file, and it is not the one that the search finds, the result is Other,
  /// too.
  const Result& find(const std::string& directory, std::string_view path);

  /// Returns what stands at the path of a directory, which is empty or has a '/' at its end.
  const Entry& lookAtDirectory(const std::string& directory);

  /// Returns a path that `find` finds and that leads to the same directory, to a file with a
  /// similar name and one of these extensions, or nothing.
  std::string similarPath(const std::string& directory, std::string_view path,
                          const std::set<std::string>& extensions);

  /// Returns the first directory above this one that has the file, but is not searched, or nothing.
  std::string directoryAbove(const std::string& directory, std::string_view path);

  /// Returns the shortest path by which `find` finds the file at `path`, or nothing.
  std::string shortestPath(const std::string& directory, const std::string& path);

 private:
  struct Base {
    std::string path;  ///< With a '/' at its end.
    FileId id;
  };

  /// A directory above another one, or that one itself.
  struct Ancestor {
    std::string directory;
    FileId id;
    std::string path;  ///< From there to the other one: empty, or with a '/' at its end.
  };

  /// What stands in a directory below all base directories.
  struct Names {
    std::vector<std::string> list;
    std::unordered_map<std::string, std::vector<const Base*>> bases;  ///< Those with the name.
    std::vector<const Base*> unlisted;  ///< Base directories that may have any name.
  };

  Result search(const std::string& directory, const std::string& path);
  bool mayComeBefore(const Result& result, const std::string& directory, const std::string& path);
  bool hasHeader(const std::string& directory, const std::string& path);
  Result look(const std::string& directory, const std::string& path);
  const std::vector<Ancestor>& ancestors(const std::string& directory);
  const std::vector<std::string>& namesBeside(const std::string& directory);
  const Names& namesIn(const std::string& directory);
  std::vector<const Base*> basesWithFile(const std::string& path);

  SourceTree& tree;
  std::vector<Base> bases;
  std::set<FileId> baseIds;                         ///< Of those that exist.
  std::unordered_map<std::string, Result> results;  ///< By the directory, a zero byte and the path.
  std::unordered_map<std::string, Entry> directories;  ///< What stands at these paths.
  std::unordered_map<std::string, std::vector<Ancestor>> ancestorsOf;
  std::unordered_map<std::string, std::vector<std::string>> lists;  ///< Of directories.
  std::unordered_map<std::string, Names> namesOf;  ///< By the path below the base directories.
  std::size_t compared = 0;  ///< The number of names that were compared with missing ones.
};

}  // namespace zentho::idlgen
