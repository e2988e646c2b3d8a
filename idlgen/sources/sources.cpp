#include "sources/sources.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "io/file.h"
#include "sources/include_advice.h"

namespace zentho::idlgen {
namespace {

/// Returns why nothing can be read there.
std::string ReasonOf(const Entry& entry) {
  return entry.error ? entry.error.message() : "is not a regular file";
}

}  // namespace

Sources::Sources(SourceTree& sourceTree, std::vector<std::string> baseDirectories)
    : tree(sourceTree), cache(tree), search(cache, std::move(baseDirectories)) {}

void Sources::load(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) loadNamed(path);
  // The files that are included are appended, so that the loop comes to them.
  // NOLINTNEXTLINE(modernize-loop-convert)
  for (std::size_t i = 0; i < sources.size(); ++i) findIncludes(sources[i]);
  if (isMissing) isMissing = noteMissingIncludes(sources, cache, search);
}

void Sources::loadNamed(const std::string& path) {
  const Entry entry = tree.look(path);
  if (entry.kind != Entry::Kind::File) {
    namedFiles.push_back({path, nullptr, ReasonOf(entry)});
    return;
  }
  FileKey key = keyOf(path);
  if (inputs.count(key) > 0) return;
  const Input& input = read(path);
  namedFiles.push_back(input);
  if (input.file == nullptr) return;
  input.file->isNamed = true;
  key.second.resize(std::min(key.second.rfind('.'), key.second.size()));
  const auto [first, isNew] = filesByHeader.emplace(std::move(key), input.file);
  if (!isNew) input.file->sameHeaderAs = first->second->path;
}

/// Reads the file that `look` has found at a path, unless that has been tried by any path.
const Sources::Input& Sources::read(const std::string& path) {
  const auto [known, isNewPath] = inputsByPath.try_emplace(path);
  if (!isNewPath) return *known->second;
  const auto [place, isNew] = inputs.try_emplace(keyOf(path));
  Input& input = place->second;
  known->second = &input;
  if (!isNew) return input;
  input.path = path;
  std::string text;
  const Entry entry = tree.read(path, text);
  ids.insert(entry.id);
  if (entry.kind == Entry::Kind::File) {
    input.file = &sources.emplace_back(path, std::move(text));
  } else {
    input.reason = ReasonOf(entry);
  }
  return input;
}

Sources::FileKey Sources::keyOf(const std::string& path) {
  return {cache.look(DirectoryOf(path)).id, FileName(path)};
}

void Sources::findIncludes(SourceFile& file) {
  const std::string directory = DirectoryOf(file.path);
  for (const std::string_view word : IncludeWords(file)) {
    const auto [include, isNew] = file.includes.try_emplace(word);
    if (!isNew) continue;
    include->second = find(directory, word);
    const IncludeKind kind = include->second.kind;
    isMissing = isMissing || kind == IncludeKind::Missing || kind == IncludeKind::Unreadable;
  }
}

/// Finds the file that a file in this directory includes, and reads it if that has not been done.
/// Nobody looks for headers of C++.
Include Sources::find(const std::string& directory, std::string_view word) {
  const std::string_view path = IncludedPath(word);
  const bool isHeader = path.size() >= 2 && path.substr(path.size() - 2) == ".h";
  if (path.empty() || isHeader) return {};
  const IncludeSearch::Result result = search.find(directory, std::string(path));
  if (result.kind != IncludeKind::Found) return {result.kind, nullptr, result.reason};
  const Input& input = read(result.path);
  const bool isRead = input.file != nullptr;
  return {isRead ? IncludeKind::Found : IncludeKind::Unreadable, input.file, input.reason};
}

std::string Sources::includePath(const SourceFile& from, const SourceFile& to) {
  return ShortestPath(DirectoryOf(from.path), to.path, cache, search);
}

}  // namespace zentho::idlgen
