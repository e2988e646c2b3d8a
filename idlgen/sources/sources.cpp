#include "sources/sources.h"

#include <cstddef>

#include "io/file.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns why nothing can be read there.
std::string ReasonOf(const Entry& entry) {
  return entry.error ? entry.error.message() : "is not a regular file";
}

}  // namespace

Sources::Sources(SourceTree& sourceTree, std::vector<std::string> directories)
    : tree(sourceTree), search(sourceTree, std::move(directories)) {}

void Sources::load(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) loadNamed(path);
  const std::size_t namedCount = sources.size();
  // The files that are included are appended, so that the loop comes to them.
  std::size_t next = 0;
  while (next < sources.size()) findIncludes(sources[next++]);

  std::unordered_set<const SourceFile*> names;
  for (const SourceFile& file : sources) {
    if (names.size() < namedCount) names.insert(&file);
    const std::string name = FileName(file.path);
    filesByName[name].push_back(&file);
    if (name.find('.') != std::string::npos) extensions.insert(name.substr(name.rfind('.')));
  }
  std::map<Location, const SourceFile*> filesByHeader;
  for (std::size_t i = 0; i < namedCount; ++i) {
    tellMissing(sources[i], names);
    const std::string header = sources[i].path.substr(0, sources[i].path.rfind('.'));
    const auto [first, isNew] = filesByHeader.emplace(locationOf(header), &sources[i]);
    if (!isNew) sources[i].rival = first->second->path;
  }
}

Sources::Location Sources::locationOf(const std::string& path) {
  const std::string directory = DirectoryOf(path);
  return {tree.look(directory.empty() ? "." : directory).id, path.substr(directory.size())};
}

void Sources::loadNamed(const std::string& path) {
  const Entry entry = tree.look(path);
  if (entry.kind != Entry::Kind::File) {
    namedFiles.push_back({path, nullptr, ReasonOf(entry)});
    return;
  }
  const auto [input, isNew] = read(path);
  if (isNew) namedFiles.push_back(*input);
}

/// Reads the file that `look` has found at a path, unless that has been tried by any path. Returns
/// what came of it, and whether it is new.
std::pair<const Sources::Input*, bool> Sources::read(const std::string& path) {
  const auto [known, isNew] = inputs.try_emplace(locationOf(path), Input{path});
  Input& input = known->second;
  if (isNew) {
    std::string text;
    const Entry entry = tree.read(path, text);
    ids.insert(entry.id);
    if (entry.kind == Entry::Kind::File) {
      input.file = &sources.emplace_back(ParseSource(path, std::move(text)));
    } else {
      input.reason = ReasonOf(entry);
    }
  }
  return {&input, isNew};
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
  if (result.kind != IncludeKind::Found) return {result.kind, nullptr, result.reason};
  const Input& input = *read(result.path).first;
  const bool isRead = input.file != nullptr;
  return {isRead ? IncludeKind::Found : IncludeKind::Unreadable, input.file, input.reason};
}

/// Notes at the includes of a named file which ones are not found: its own, and those of files that
/// they bring and that are not named.
void Sources::tellMissing(SourceFile& file, const std::unordered_set<const SourceFile*>& named) {
  std::unordered_set<std::string_view> seen;
  for (std::size_t i = 0; i < file.words.size(); ++i) {
    const std::string_view word = file.words.text(i);
    if (file.words.role(i) != Role::IncludePath || !seen.insert(word).second) continue;
    Include& include = file.includes.at(word);
    tellMissing(file, word, include, {}, include);
    std::vector<const SourceFile*> pending = {include.file};
    while (!pending.empty()) {
      const SourceFile* const next = pending.back();
      pending.pop_back();
      if (next == nullptr || named.count(next) > 0 || !told.insert(next).second) continue;
      for (std::size_t j = 0; j < next->words.size(); ++j) {
        const auto inner = next->includes.find(next->words.text(j));
        if (next->words.role(j) != Role::IncludePath || inner == next->includes.end()) continue;
        tellMissing(*next, inner->first, inner->second, next->path, include);
        pending.push_back(inner->second.file);
      }
    }
  }
}

/// Notes at an include that this one, in a file, is not found. The first one of a path has a
/// message with the number of the others.
void Sources::tellMissing(const SourceFile& file, std::string_view word, const Include& include,
                          std::string_view bringing, Include& at) {
  const bool isUnreadable = include.kind == IncludeKind::Unreadable;
  const bool isTold = isUnreadable || include.kind == IncludeKind::Missing;
  if (!isTold || FormOfInclude(word) != IncludeForm::Path) return;
  const std::string_view path = IncludedPath(word);
  const std::string above = isUnreadable ? "" : search.directoryAbove(DirectoryOf(file.path), path);
  const std::string key = above.empty() ? std::string(path) : '\0' + above;
  const auto [first, isNew] = firstMissing.try_emplace(key, &at, at.missing.size());
  if (!isNew) {
    ++first->second.first->missing[first->second.second].others;
    return;
  }
  std::string shown(word);
  if (!bringing.empty()) shown += ", which " + Quoted(bringing) + " includes,";
  std::string reason = isUnreadable    ? include.reason
                       : above.empty() ? advice(file, path)
                                       : "it is in " + Quoted(above) + ", which is not searched";
  at.missing.push_back({std::move(shown), std::move(reason), isUnreadable});
}

/// Returns what to do about a path that is not found.
std::string Sources::advice(const SourceFile& file, std::string_view path) {
  std::string similar = search.similarPath(DirectoryOf(file.path), path, extensions);
  if (similar.empty()) {
    const auto known = filesByName.find(FileName(path));
    const bool isOnlyOne = known != filesByName.end() && known->second.size() == 1;
    if (isOnlyOne) similar = includePath(file, *known->second.front());
    if (similar.find("..") != std::string::npos) similar.clear();
  }
  return similar.empty() ? "what it declares is not checked" : DidYouMean(similar);
}

std::string Sources::includePath(const SourceFile& from, const SourceFile& to) {
  return search.shortestPath(DirectoryOf(from.path), to.path);
}

}  // namespace zentho::idlgen
