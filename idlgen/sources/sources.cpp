#include "sources/sources.h"

#include <cstddef>
#include <utility>

namespace zentho::idlgen {

Sources::Sources(SourceTree& sourceTree, std::vector<std::string> directories)
    : tree(sourceTree), search(sourceTree, std::move(directories)) {}

void Sources::load(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) loadNamed(path);
  // The files that are included are appended, so that the loop comes to them.
  std::size_t next = 0;
  while (next < sources.size()) findIncludes(sources[next++]);
}

void Sources::loadNamed(const std::string& path) {
  Entry entry = tree.look(path);
  if (entry.kind == Entry::Kind::File) {
    if (!filesById.emplace(entry.id, nullptr).second) return;
    entry = read(path);
  }
  if (entry.kind == Entry::Kind::File) {
    namedFiles.push_back({path, &sources.back()});
  } else {
    namedFiles.push_back(
        {path, nullptr, entry.error ? entry.error.message() : "is not a regular file"});
  }
}

/// Reads a file that `look` has found, and appends it if there is no error.
Entry Sources::read(const std::string& path) {
  std::string text;
  Entry entry = tree.read(path, text);
  if (entry.kind == Entry::Kind::File) {
    filesById[entry.id] = &sources.emplace_back(ParseSource(path, std::move(text)));
  }
  return entry;
}

void Sources::findIncludes(SourceFile& file) {
  const std::string directory = DirectoryOf(file.path);
  for (std::size_t i = 0; i < file.words.size(); ++i) {
    if (file.words.role(i) != Role::IncludePath) continue;
    const auto [include, isNew] = file.includes.try_emplace(file.words.text(i));
    if (isNew) include->second = find(directory, include->first);
  }
}

/// Finds the file that a file in this directory includes, and reads it if that has not been done.
/// Nobody looks for headers of C++.
Include Sources::find(const std::string& directory, std::string_view word) {
  const std::string_view path = IncludedPath(word);
  const bool isHeader = path.size() >= 2 && path.substr(path.size() - 2) == ".h";
  if (path.empty() || isHeader) return {};
  const IncludeSearch::Result& result = search.find(directory, path);
  if (result.kind == IncludeSearch::Result::Kind::Missing && word.front() == '"') {
    return {nullptr, search.correction(directory, path)};
  }
  if (result.kind != IncludeSearch::Result::Kind::Found) return {};
  const auto [known, isNew] = filesById.emplace(result.id, nullptr);
  if (isNew) (void)read(result.path);
  return {known->second};
}

std::string Sources::includePath(const SourceFile& from, const SourceFile& to) {
  return search.shortestPath(DirectoryOf(from.path), to.path);
}

}  // namespace zentho::idlgen
