#include "sources/include_search.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

#include "io/file.h"
#include "reader/idl.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

constexpr std::size_t maxPathSize = 4096;       ///< The system opens no longer paths.
constexpr std::size_t maxCompared = 5'000'000;  ///< Comparing more names takes long.

/// Returns the directory above one that ends with a '/', if its path names it.
std::string Above(const std::string& directory) {
  const std::string path = directory.substr(0, directory.rfind('/'));
  const std::string name = FileName(path);
  if (name.empty() || name == "." || name == "..") return directory + "../";
  return DirectoryOf(path);
}

/// Joins a directory, which is empty or ends with a '/', and a path as text.
std::string Joined(std::string directory, std::string_view path) {
  if (!path.empty() && path.front() == '/') directory = "/";
  while (true) {
    const std::size_t slash = path.find('/');
    const std::string_view name = path.substr(0, slash);
    if (name == "..") {
      directory = Above(directory);
    } else if (!name.empty() && name != ".") {
      directory.append(name).append(slash == std::string_view::npos ? "" : "/");
    }
    if (slash == std::string_view::npos) return directory;
    path.remove_prefix(slash + 1);
  }
}

std::string Normal(const std::string& path) {
  return std::filesystem::path(path).lexically_normal().string();
}

std::string_view Stem(std::string_view name) {
  return name.substr(0, name.rfind('.'));
}

std::string Digits(std::string_view name) {
  std::string digits;
  for (const char byte : name) {
    if (byte >= '0' && byte <= '9') digits += byte;
  }
  return digits;
}

/// Returns whether the name of a file may be meant by another one: the digits are the same, and the
/// extension is one of these or differs by one letter.
bool MayBeMeant(std::string_view name, std::string_view wanted,
                const std::set<std::string>& extensions) {
  const std::string_view extension = name.substr(Stem(name).size());
  SimilarWord similar(wanted.substr(Stem(wanted).size()), 1);
  const bool isExtension =
      similar.compare(extension) || extensions.count(std::string(extension)) > 0;
  return isExtension && Digits(Stem(name)) == Digits(Stem(wanted));
}

bool LeadsOut(const std::string& normalPath) {
  return normalPath.compare(0, 2, "..") == 0 && (normalPath.size() == 2 || normalPath[2] == '/');
}

/// Returns whether an include statement with this path, in quotes, is read as such, and whether the
/// header that it becomes is that of this file.
bool CanBeIncluded(const std::string& path) {
  const std::string word = '"' + path + '"';
  IDL idl;
  idl.tokenize(word);
  const bool isOneWord = idl.tokenLines.size() == 1 && idl.tokenLines.front().size() == 1 &&
                         idl.tokenLines.front().front() == word;
  return isOneWord && FormOfInclude(word) == IncludeForm::Path;
}

}  // namespace

IncludeSearch::IncludeSearch(SourceTree& sourceTree, std::vector<std::string> baseDirectories)
    : tree(sourceTree) {
  for (std::string& path : baseDirectories) {
    if (!path.empty() && path.back() != '/') path += '/';
    const Entry& entry = lookAtDirectory(path);
    if (entry.kind == Entry::Kind::Directory) baseIds.insert(entry.id);
    bases.push_back({std::move(path), entry.id});
  }
}

const IncludeSearch::Result& IncludeSearch::find(const std::string& directory,
                                                 std::string_view path) {
  static const Result tooLong = {IncludeKind::Other};
  if (path.size() > maxPathSize) return tooLong;
  const std::string included(path);
  std::string key = directory + '\0' + included;
  const auto known = results.find(key);
  if (known != results.end()) return known->second;
  return results.emplace(std::move(key), search(directory, included)).first->second;
}

IncludeSearch::Result IncludeSearch::search(const std::string& directory, const std::string& path) {
  Result result = look(directory, path);
  const bool isRelative = path.front() != '/';
  if (result.kind == IncludeKind::Missing && isRelative) {
    for (const Base* const base : basesWithFile(path)) {
      result = look(base->path, path);
      if (result.kind != IncludeKind::Missing) break;
    }
    if (mayComeBefore(result, directory, path)) return {IncludeKind::Other};
  }
  const bool isMissing = result.kind == IncludeKind::Missing;
  return isMissing && hasHeader(directory, path) ? Result{IncludeKind::Other} : result;
}

/// Returns whether another file than this result may have its header beside that of the includer.
bool IncludeSearch::mayComeBefore(const Result& result, const std::string& directory,
                                  const std::string& path) {
  for (const Ancestor& ancestor : ancestors(directory)) {
    if (baseIds.count(ancestor.id) == 0) continue;
    const std::string pathInBase = Normal(ancestor.path + path);
    if (LeadsOut(pathInBase)) continue;
    for (const Base* const base : basesWithFile(pathInBase)) {
      if (base->id == ancestor.id) continue;
      const Result other = look(base->path, pathInBase);
      if (other.kind == IncludeKind::Missing) continue;
      if (other.kind != result.kind || other.id != result.id) return true;
    }
  }
  return false;
}

/// Returns whether the header of the path stands beside the includer or in a base directory.
bool IncludeSearch::hasHeader(const std::string& directory, const std::string& path) {
  const std::string header = path.substr(0, path.rfind('.')) + ".h";
  const auto isIn = [&](const std::string& base) {
    return look(base, header).kind == IncludeKind::Found;
  };
  const std::vector<const Base*> searched = basesWithFile(header);
  return isIn(directory) ||
         (path.front() != '/' && std::any_of(searched.begin(), searched.end(),
                                             [&](const Base* base) { return isIn(base->path); }));
}

IncludeSearch::Result IncludeSearch::look(const std::string& directory, const std::string& path) {
  std::string joined = Joined(directory, path);
  // Most files that are looked for in vain would be in a directory that does not exist either.
  const bool mayExist = lookAtDirectory(DirectoryOf(joined)).kind != Entry::Kind::Missing;
  const Entry entry = mayExist ? tree.look(joined) : Entry{Entry::Kind::Missing};
  if (entry.kind == Entry::Kind::File) return {IncludeKind::Found, std::move(joined), entry.id};
  if (entry.kind != Entry::Kind::Unreadable) return {IncludeKind::Missing};
  return {IncludeKind::Unreadable, {}, {}, entry.error.message()};
}

const Entry& IncludeSearch::lookAtDirectory(const std::string& directory) {
  const auto [known, isNew] = directories.try_emplace(directory);
  if (isNew) known->second = tree.look(directory.empty() ? "." : directory);
  return known->second;
}

/// Returns a directory and each one above it that its path names.
const std::vector<IncludeSearch::Ancestor>& IncludeSearch::ancestors(const std::string& directory) {
  const auto [known, isNew] = ancestorsOf.try_emplace(directory);
  std::vector<Ancestor>& result = known->second;
  if (!isNew) return result;
  result.push_back({directory, lookAtDirectory(directory).id, ""});
  std::string above = directory;
  while (true) {
    while (above.size() > 1 && above.back() == '/') above.pop_back();
    const std::string name = FileName(above);
    if (name.empty() || name == "..") return result;
    above = DirectoryOf(above);
    const std::string path = (name == "." ? "" : name + "/") + result.back().path;
    result.push_back({above, lookAtDirectory(above).id, path});
  }
}

const std::vector<std::string>& IncludeSearch::namesBeside(const std::string& directory) {
  const auto [known, isNew] = lists.try_emplace(directory);
  if (isNew) tree.list(directory.empty() ? "." : directory, known->second);
  return known->second;
}

/// Each directory is listed once: many includes may be looked for in many directories.
const IncludeSearch::Names& IncludeSearch::namesIn(const std::string& directory) {
  const auto [known, isNew] = namesOf.try_emplace(directory);
  Names& names = known->second;
  if (!isNew) return names;
  std::vector<std::string> found;
  for (const Base& base : bases) {
    const std::string joined = Joined(base.path, directory);
    if (lookAtDirectory(joined).kind == Entry::Kind::Missing) continue;
    if (tree.list(joined.empty() ? "." : joined, found)) names.unlisted.push_back(&base);
    for (const std::string& name : found) {
      std::vector<const Base*>& with = names.bases[name];
      if (with.empty()) names.list.push_back(name);
      with.push_back(&base);
    }
  }
  return names;
}

/// Returns the base directories in which there may be such a file.
std::vector<const IncludeSearch::Base*> IncludeSearch::basesWithFile(const std::string& path) {
  const Names& names = namesIn(DirectoryOf(path));
  const auto known = names.bases.find(FileName(path));
  if (known == names.bases.end()) return names.unlisted;
  std::vector<const Base*> with;
  std::set_union(known->second.begin(), known->second.end(), names.unlisted.begin(),
                 names.unlisted.end(), std::back_inserter(with));
  return with;
}

std::string IncludeSearch::similarPath(const std::string& directory, std::string_view path,
                                       const std::set<std::string>& extensions) {
  const std::string subdirectory = DirectoryOf(std::string(path));
  const std::string_view wanted = path.substr(subdirectory.size());
  SimilarWord stem(Stem(wanted), 2);
  std::string similar;
  for (const std::vector<std::string>* const names :
       {&namesBeside(Joined(directory, subdirectory)), &namesIn(subdirectory).list}) {
    compared += names->size();
    if (compared > maxCompared) break;
    for (const std::string& name : *names) {
      const std::string candidate = subdirectory + name;
      const bool isFound = MayBeMeant(name, wanted, extensions) && CanBeIncluded(candidate) &&
                           find(directory, candidate).kind == IncludeKind::Found;
      if (isFound && stem.compare(Stem(name))) similar = candidate;
    }
  }
  return similar;
}

std::string IncludeSearch::directoryAbove(const std::string& directory, std::string_view path) {
  for (const Ancestor& ancestor : ancestors(directory)) {
    const std::string& above = ancestor.directory;
    if (look(above, std::string(path)).kind != IncludeKind::Found) continue;
    return above.size() > 1 ? above.substr(0, above.size() - 1) : "." + above;
  }
  return {};
}

std::string IncludeSearch::shortestPath(const std::string& directory, const std::string& path) {
  const FileId id = tree.look(path).id;
  const FileId start = lookAtDirectory(directory).id;
  std::vector<std::string> paths;
  for (const Ancestor& ancestor : ancestors(DirectoryOf(path))) {
    const bool isSearched = ancestor.id == start || baseIds.count(ancestor.id) > 0;
    if (isSearched) paths.push_back(ancestor.path + FileName(path));
  }
  const std::filesystem::path from = Normal(directory.empty() ? "." : directory);
  paths.push_back(std::filesystem::path(Normal(path)).lexically_relative(from).string());
  std::stable_sort(paths.begin(), paths.end(),
                   [](const std::string& a, const std::string& b) { return a.size() < b.size(); });
  for (const std::string& candidate : paths) {
    if (candidate.empty() || !CanBeIncluded(candidate)) continue;
    const Result& result = find(directory, candidate);
    if (result.kind == IncludeKind::Found && result.id == id) return candidate;
  }
  return {};
}

}  // namespace zentho::idlgen
