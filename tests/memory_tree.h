#pragma once

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "sources/source_tree.h"

namespace zentho::idlgen {

/// Files in memory, for tests. Their paths are relative to a current directory, and directories are
/// what contains a file.
class MemoryTree final : public SourceTree {
 public:
  explicit MemoryTree(std::map<std::string, std::string> textOfPath)
      : texts(std::move(textOfPath)) {}

  Entry look(const std::string& path) override {
    const std::string name = Normal(path);
    if (texts.count(name) > 0 && path.back() != '/') return {Entry::Kind::File, idOf(name)};
    const std::string prefix = name.empty() || name == "/" ? name : name + "/";
    const auto inside = texts.lower_bound(prefix);
    if (inside != texts.end() && inside->first.compare(0, prefix.size(), prefix) == 0) {
      return {Entry::Kind::Directory, idOf(name)};
    }
    return {Entry::Kind::Missing, {}, std::make_error_code(std::errc::no_such_file_or_directory)};
  }

  Entry read(const std::string& path, std::string& text) override {
    const Entry entry = look(path);
    if (entry.kind == Entry::Kind::File) text = texts.at(Normal(path));
    return entry;
  }

  Listing list(const std::string& directory) override {
    const std::string name = Normal(directory);
    const std::string prefix = name.empty() || name == "/" ? name : name + "/";
    std::vector<std::string> names;
    for (auto inside = texts.lower_bound(prefix); inside != texts.end(); ++inside) {
      if (inside->first.compare(0, prefix.size(), prefix) != 0) break;
      const std::string rest = inside->first.substr(prefix.size());
      names.push_back(rest.substr(0, rest.find('/')));
    }
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return {names, {}};
  }

 private:
  /// Returns the path as the map has it: without "." and "..", as far as possible.
  static std::string Normal(const std::string& path) {
    std::string normal = std::filesystem::path(path).lexically_normal().string();
    if (normal.size() > 1 && normal.back() == '/') normal.pop_back();
    return normal == "." ? std::string() : normal;
  }

  FileId idOf(const std::string& name) { return {0, ids.emplace(name, ids.size()).first->second}; }

  std::map<std::string, std::string> texts;
  std::map<std::string, std::size_t> ids;
};

}  // namespace zentho::idlgen
