#include "sources/sources.h"

#include <string_view>
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
    if (!indexes.emplace(entry.id, noFile).second) return;
    entry = read(path);
  }
  if (entry.kind == Entry::Kind::File) {
    namedFiles.push_back({path, sources.size() - 1});
  } else {
    namedFiles.push_back(
        {path, noFile, entry.error ? entry.error.message() : "is not a regular file"});
  }
}

/// Reads a file that `look` has found, and appends it if there is no error.
Entry Sources::read(const std::string& path) {
  std::string text;
  Entry entry = tree.read(path, text);
  if (entry.kind == Entry::Kind::File) {
    indexes[entry.id] = sources.size();
    sources.push_back(ParseSource(path, std::move(text)));
  }
  return entry;
}

void Sources::findIncludes(SourceFile& file) {
  const std::string directory = DirectoryOf(file.path);
  for (Include& include : file.includes) {
    const std::string_view word = file.words.texts[include.word];
    const std::string_view path = IncludedPath(word);
    if (include.kind == Include::Kind::Header || path.empty()) continue;
    const IncludeSearch::Result& result = search.find(directory, path);
    if (result.kind == IncludeSearch::Result::Kind::Missing && word.front() == '"') {
      include.correction = search.correction(directory, path);
    }
    if (result.kind != IncludeSearch::Result::Kind::Found) continue;
    const auto [known, isNew] = indexes.emplace(result.id, noFile);
    if (isNew) (void)read(result.path);
    include.file = known->second;
    if (include.file != noFile) include.kind = Include::Kind::Found;
  }
}

std::string Sources::includePath(std::size_t from, std::size_t to) {
  return search.shortestPath(DirectoryOf(sources[from].path), sources[to].path);
}

}  // namespace zentho::idlgen
