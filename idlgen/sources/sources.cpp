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

/// Returns the words of the paths that a file includes, in their order.
std::vector<std::string_view> IncludeWords(const SourceFile& file) {
  std::vector<std::string_view> words;
  for (std::size_t i = 0; i < file.words.size(); ++i) {
    if (file.words.role(i) == Role::IncludePath) words.push_back(file.words.text(i));
  }
  return words;
}

}  // namespace

Sources::Sources(SourceTree& sourceTree, std::vector<std::string> directories)
    : tree(sourceTree), search(sourceTree, std::move(directories)) {}

void Sources::load(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) loadNamed(path);
  for (SourceFile& file : sources) file.isNamed = true;
  // The files that are included are appended, so that the loop comes to them.
  // NOLINTNEXTLINE(modernize-loop-convert)
  for (std::size_t i = 0; i < sources.size(); ++i) findIncludes(sources[i]);
  indexNames();
  for (SourceFile& file : sources) {
    if (file.isNamed) noteMissing(file);
  }
  noteSameHeaders();
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
      input.file = &sources.emplace_back(path, std::move(text));
    } else {
      input.reason = ReasonOf(entry);
    }
  }
  return {&input, isNew};
}

Sources::Location Sources::locationOf(const std::string& path) {
  return {search.lookAtDirectory(DirectoryOf(path)).id, FileName(path)};
}

void Sources::findIncludes(SourceFile& file) {
  const std::string directory = DirectoryOf(file.path);
  for (const std::string_view word : IncludeWords(file)) {
    const auto [include, isNew] = file.includes.try_emplace(word);
    if (isNew) include->second = find(directory, word);
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

void Sources::indexNames() {
  for (const SourceFile& file : sources) {
    const std::string name = FileName(file.path);
    filesByName[name].push_back(&file);
    if (name.find('.') != std::string::npos) extensions.insert(name.substr(name.rfind('.')));
  }
}

/// Notes at the includes of a named file which ones are not found: its own, and those of files that
/// they bring and that are not named.
void Sources::noteMissing(SourceFile& file) {
  std::unordered_set<std::string_view> seen;
  for (const std::string_view word : IncludeWords(file)) {
    if (!seen.insert(word).second) continue;
    Include& include = file.includes.at(word);
    noteIfMissing(file, word, include);
    std::vector<const SourceFile*> pending = {include.file};
    while (!pending.empty()) {
      const SourceFile* const brought = pending.back();
      pending.pop_back();
      if (brought == nullptr || brought->isNamed || !visited.insert(brought).second) continue;
      for (const std::string_view inner : IncludeWords(*brought)) {
        noteIfMissing(*brought, inner, include);
        pending.push_back(brought->includes.at(inner).file);
      }
    }
  }
}

/// Notes at an include of a named file if an include with this word is not found. The first one of
/// a path counts the others.
void Sources::noteIfMissing(const SourceFile& file, std::string_view word, Include& at) {
  const Include& include = file.includes.at(word);
  const bool isUnreadable = include.kind == IncludeKind::Unreadable;
  const bool isNoted = isUnreadable || include.kind == IncludeKind::Missing;
  if (!isNoted || FormOfInclude(word) != IncludeForm::Path) return;
  const std::string_view path = IncludedPath(word);
  const std::string above = isUnreadable ? "" : search.directoryAbove(DirectoryOf(file.path), path);
  const auto [first, isNew] =
      firstMissing.try_emplace(above.empty() ? std::string(path) : '\0' + above);
  if (!isNew) {
    ++first->second->others;
    return;
  }
  std::string shown(word);
  if (!file.isNamed) shown += ", which " + Quoted(file.path) + " includes,";
  std::string reason = isUnreadable    ? include.reason
                       : above.empty() ? advice(file, path)
                                       : "it is in " + Quoted(above) + ", which is not searched";
  at.missing.push_back({std::move(shown), std::move(reason), isUnreadable});
  first->second = &at.missing.back();
}

/// Notes at each named file whether one before it has the same header.
void Sources::noteSameHeaders() {
  std::map<Location, const SourceFile*> filesByHeader;
  for (SourceFile& file : sources) {
    if (!file.isNamed) return;
    const std::string header = file.path.substr(0, file.path.rfind('.'));
    const auto [first, isNew] = filesByHeader.emplace(locationOf(header), &file);
    if (!isNew) file.sameHeaderAs = first->second->path;
  }
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
