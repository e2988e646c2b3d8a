#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "sources/source_tree.h"

namespace zentho::idlgen {

/// Finds the files that include statements mean, in the way in which a compiler finds their
/// headers. Paths are joined as text: ".." takes a name off. Each answer is remembered.
class IncludeSearch {
 public:
  /// The files are searched for below the base directories, in this order.
  IncludeSearch(SourceTree& sourceTree, std::vector<std::string> baseDirectories);

  struct Result {
    enum class Kind : std::uint8_t {
      Found,
      Missing,     ///< There is no file.
      Header,      ///< There is none, but a header that it may have become.
      Unreadable,  ///< There is one that cannot be read.
      Ambiguous    ///< Which one it is depends on where the headers are.
    };

    Kind kind;
    std::string path = {};       ///< Of the file that was found.
    FileId id = {};              ///< Of that file.
    std::error_code error = {};  ///< Why it cannot be read.
  };

  /// Looks for a file that a file in `directory` includes: beside that file, then in the base
  /// directories. Passes over what is no file.
  ///
  /// The headers of several base directories may be generated into one directory. There, a header
  /// that comes from another base directory may stand beside that of the includer and come first.
  /// If there is such a file, and it is not the one that the search finds, the result is ambiguous.
  const Result& find(const std::string& directory, std::string_view path);

  /// Returns a path that `find` finds and that leads to the same directory, to a file with a
  /// similar name and one of these extensions, or nothing.
  std::string similarPath(const std::string& directory, std::string_view path,
                          const std::set<std::string>& extensions);

  /// Returns the first directory above this one that has the file, but is not searched, or nothing.
  std::string directoryAbove(const std::string& directory, std::string_view path);

  /// Returns the shortest path by which `find` finds the file at `path`, or nothing.
  std::string shortestPath(const std::string& directory, const std::string& path);

 private:
  /// A directory seen from a base directory.
  struct Position {
    std::size_t base;  ///< The index of the base directory.
    std::string path;  ///< Empty, or with a '/' at its end.
  };

  /// What stands in a directory below all base directories.
  struct Names {
    std::vector<std::string> list;
    std::unordered_map<std::string, std::vector<std::size_t>> bases;  ///< That have the name.
    std::vector<std::size_t> unlisted;  ///< Base directories that may have any name.
  };

  Result search(const std::string& directory, const std::string& path);
  bool mayComeBefore(const Result& result, const std::string& directory, const std::string& path);
  bool hasHeader(const std::string& directory, const std::string& path);
  Result look(const std::string& directory, const std::string& path);
  const Entry& lookAtDirectory(const std::string& directory);
  const std::vector<std::size_t>& basesWith(const std::string& directory);
  const Names& namesIn(const std::string& directory);
  std::vector<std::size_t> basesWithFile(const std::string& path);
  const std::vector<Position>& positions(const std::string& directory);

  SourceTree& tree;
  std::vector<std::string> bases;  ///< Each with a '/' at its end.
  std::vector<FileId> baseIds;
  std::unordered_map<std::string, Result> results;  ///< By the directory, a zero byte and the path.
  std::unordered_map<std::string, Entry> directories;  ///< What stands at these paths.
  std::unordered_map<std::string, std::vector<std::string>> namesBeside;
  std::size_t compared = 0;  ///< The number of names that were compared with missing ones.
  std::unordered_map<std::string, std::vector<std::size_t>> basesOf;  ///< That have a directory.
  std::unordered_map<std::string, Names> namesOf;
  std::unordered_map<std::string, std::vector<Position>> positionsOf;
};

}  // namespace zentho::idlgen
