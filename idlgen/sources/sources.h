#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "sources/include_search.h"
#include "sources/source_file.h"
#include "sources/source_tree.h"

namespace zentho::idlgen {

/// The IDL files of a run: those that it names, and all that these include, also indirectly. Each
/// file is read and parsed once, also if several paths lead to it.
class Sources {
 public:
  /// `directories` are searched for included files, in this order.
  Sources(SourceTree& sourceTree, std::vector<std::string> directories);

  /// A file that the run names, or why it cannot be read.
  struct Named {
    std::string path;
    SourceFile* file = nullptr;
    std::string reason = {};
  };

  /// Reads the named files and what they include. To be called once.
  void load(const std::vector<std::string>& paths);

  /// Returns the named files in their order. A file that is named again is left out.
  [[nodiscard]] const std::vector<Named>& named() const { return namedFiles; }

  /// Returns all files: the named ones first.
  [[nodiscard]] std::deque<SourceFile>& files() { return sources; }
  [[nodiscard]] const std::deque<SourceFile>& files() const { return sources; }

  /// Returns whether the run has read this file, or has tried to.
  [[nodiscard]] bool contains(const FileId& id) const { return filesById.count(id) > 0; }

  /// Returns the shortest path by which the file `from` can include the file `to`, or nothing.
  std::string includePath(const SourceFile& from, const SourceFile& to);

 private:
  void loadNamed(const std::string& path);
  Entry read(const std::string& path);
  void findIncludes(SourceFile& file);
  Include find(const std::string& directory, std::string_view word);

  SourceTree& tree;
  IncludeSearch search;
  std::vector<Named> namedFiles;
  std::deque<SourceFile> sources;
  std::map<FileId, SourceFile*> filesById;  ///< nullptr for those that cannot be read.
};

}  // namespace zentho::idlgen
