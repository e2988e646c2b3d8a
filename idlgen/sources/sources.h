#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "sources/include_search.h"
#include "sources/source_file.h"
#include "sources/source_tree.h"

namespace zentho::idlgen {

/// The IDL files of a run: those that it names, and all that these include, also indirectly. Each
/// file is read and parsed once. A file is a directory and a name in it, since includes are
/// searched for from there: a link in another directory is another file.
class Sources {
 public:
  /// The base directories are searched for included files, in this order.
  Sources(SourceTree& sourceTree, std::vector<std::string> baseDirectories);

  /// A file that the run reads, or why it cannot be read.
  struct Input {
    std::string path;
    SourceFile* file = nullptr;
    std::string reason = {};
  };

  /// Reads the named files and what they include. To be called once.
  void load(const std::vector<std::string>& paths);

  /// Returns the named files in their order. A file that is named again is left out.
  [[nodiscard]] const std::vector<Input>& named() const { return namedFiles; }

  /// Returns all files: the named ones first.
  [[nodiscard]] std::deque<SourceFile>& files() { return sources; }
  [[nodiscard]] const std::deque<SourceFile>& files() const { return sources; }

  /// Returns whether the run has read this file, or has tried to.
  [[nodiscard]] bool contains(const FileId& id) const { return ids.count(id) > 0; }

  /// Returns whether an include has not been found, or cannot be read.
  [[nodiscard]] bool hasMissing() const { return isMissing; }

  /// Returns the shortest path by which the file `from` can include the file `to`, or nothing.
  std::string includePath(const SourceFile& from, const SourceFile& to);

 private:
  using FileKey = std::pair<FileId, std::string>;  ///< The directory, and the name there.

  [[nodiscard]] FileKey keyOf(const std::string& path);
  void loadNamed(const std::string& path);
  const Input& read(const std::string& path);
  void findIncludes(SourceFile& file);
  Include find(const std::string& directory, std::string_view word);

  SourceTree& tree;
  PathCache cache;
  IncludeSearch search;
  std::vector<Input> namedFiles;
  std::deque<SourceFile> sources;
  std::map<FileKey, Input> inputs;
  std::unordered_map<std::string, const Input*> inputsByPath;
  std::set<FileId> ids;
  std::map<FileKey, const SourceFile*> filesByHeader;  ///< The first named file of each.
  bool isMissing = false;
};

}  // namespace zentho::idlgen
