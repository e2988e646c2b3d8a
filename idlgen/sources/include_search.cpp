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

using ResultKind = IncludeSearch::Result::Kind;

constexpr std::size_t maxPathSize = 4096;       ///< The system opens no longer paths.
constexpr std::size_t maxCompared = 5'000'000;  ///< Comparing more names takes long.

/// Returns the directory above one that ends with a '/', if its path names it.
std::string Above(const std::string& directory) {
  const std::size_t end = directory.empty() ? 0 : directory.size() - 1;
  const std::size_t begin = end == 0 ? 0 : directory.rfind('/', end - 1) + 1;
  const std::string_view name = std::string_view(directory).substr(begin, end - begin);
  if (name.empty() || name == "." || name == "..") return directory + "../";
  return directory.substr(0, begin);
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

std::string WithSlash(std::string directory) {
  if (!directory.empty() && directory.back() != '/') directory += '/';
  return directory;
}

/// Calls `visit(above, path)` for a directory and each one above it that its path names. `path`
/// leads from there to the directory, and is empty or has a '/' at its end.
template <typename Visit>
void walkUp(std::string directory, const Visit& visit) {
  std::string path;
  while (true) {
    visit(directory, path);
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
    const std::string name = directory.substr(directory.rfind('/') + 1);
    if (name.empty() || name == "..") return;
    directory.erase(directory.size() - name.size());
    if (name != ".") path.insert(0, name + "/");
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

/// Looks for the name of a file that is most similar to another one: two letters may differ, the
/// case, and the extension, if it is one of these or differs by one letter.
class SimilarName {
 public:
  SimilarName(std::string_view wanted, const std::set<std::string>& knownExtensions)
      : name(wanted), stem(Stem(wanted), 2), extensions(knownExtensions) {}

  [[nodiscard]] bool mayBe(std::string_view other) const {
    const std::string_view extension = other.substr(Stem(other).size());
    SimilarWord similarExtension(name.substr(Stem(name).size()), 1);
    const bool isExtension =
        similarExtension.compare(extension) || extensions.count(std::string(extension)) > 0;
    return isExtension && Digits(Stem(other)) == Digits(Stem(name));
  }

  void compare(const std::string& other) {
    if (stem.compare(Stem(other))) similar = other;
  }

  [[nodiscard]] const std::string& found() const { return similar; }

 private:
  std::string_view name;
  SimilarWord stem;
  const std::set<std::string>& extensions;
  std::string similar;
};

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
    : tree(sourceTree), bases(std::move(baseDirectories)) {
  for (std::string& base : bases) {
    base = WithSlash(std::move(base));
    baseIds.push_back(lookAtDirectory(base).id);
  }
}

const IncludeSearch::Result& IncludeSearch::find(const std::string& directory,
                                                 std::string_view path) {
  static const Result tooLong = {ResultKind::Ambiguous};
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
  if (result.kind == ResultKind::Missing && isRelative) {
    for (const std::size_t i : basesWithFile(path)) {
      result = look(bases[i], path);
      if (result.kind != ResultKind::Missing) break;
    }
    if (mayComeBefore(result, directory, path)) return {ResultKind::Ambiguous};
  }
  const bool isMissing = result.kind == ResultKind::Missing;
  return isMissing && hasHeader(directory, path) ? Result{ResultKind::Header} : result;
}

/// Returns whether another file than this result may have its header beside that of the includer.
bool IncludeSearch::mayComeBefore(const Result& result, const std::string& directory,
                                  const std::string& path) {
  for (const Position& position : positions(directory)) {
    const std::string place = Normal(position.path + path);
    if (LeadsOut(place)) continue;
    for (const std::size_t i : basesWithFile(place)) {
      if (baseIds[i] == baseIds[position.base]) continue;
      const Result other = look(bases[i], place);
      if (other.kind == ResultKind::Missing) continue;
      if (other.kind != result.kind || other.id != result.id) return true;
    }
  }
  return false;
}

/// Returns whether the header of the path stands beside the includer or in a base directory.
bool IncludeSearch::hasHeader(const std::string& directory, const std::string& path) {
  const std::string header = path.substr(0, path.rfind('.')) + ".h";
  const auto isIn = [&](const std::string& base) {
    return look(base, header).kind == ResultKind::Found;
  };
  const std::vector<std::size_t> searched = basesWithFile(header);
  return isIn(directory) ||
         (path.front() != '/' && std::any_of(searched.begin(), searched.end(),
                                             [&](std::size_t i) { return isIn(bases[i]); }));
}

IncludeSearch::Result IncludeSearch::look(const std::string& directory, const std::string& path) {
  std::string joined = Joined(directory, path);
  // Most files that are looked for in vain would be in a directory that does not exist either.
  const bool mayExist = lookAtDirectory(DirectoryOf(joined)).kind != Entry::Kind::Missing;
  const Entry entry = mayExist ? tree.look(joined) : Entry{Entry::Kind::Missing};
  if (entry.kind == Entry::Kind::File) return {ResultKind::Found, std::move(joined), entry.id};
  const bool isUnreadable = entry.kind == Entry::Kind::Unreadable;
  return {isUnreadable ? ResultKind::Unreadable : ResultKind::Missing, {}, {}, entry.error};
}

/// Returns the indexes of the base directories that have such a directory: of many, few have.
const std::vector<std::size_t>& IncludeSearch::basesWith(const std::string& directory) {
  const auto [known, isNew] = basesOf.try_emplace(directory);
  for (std::size_t i = 0; isNew && i < bases.size(); ++i) {
    const Entry& entry = lookAtDirectory(Joined(bases[i], directory));
    if (entry.kind != Entry::Kind::Missing) known->second.push_back(i);
  }
  return known->second;
}

/// Each directory is listed once: many includes may be looked for in many directories.
const IncludeSearch::Names& IncludeSearch::namesIn(const std::string& directory) {
  const auto [known, isNew] = namesOf.try_emplace(directory);
  Names& names = known->second;
  if (!isNew) return names;
  std::vector<std::string> found;
  for (const std::size_t i : basesWith(directory)) {
    const std::string joined = Joined(bases[i], directory);
    if (tree.list(joined.empty() ? "." : joined, found)) names.unlisted.push_back(i);
    for (const std::string& name : found) {
      std::vector<std::size_t>& with = names.bases[name];
      if (with.empty()) names.list.push_back(name);
      with.push_back(i);
    }
  }
  return names;
}

/// Returns the indexes of the base directories in which there may be such a file.
std::vector<std::size_t> IncludeSearch::basesWithFile(const std::string& path) {
  const std::string directory = DirectoryOf(path);
  const Names& names = namesIn(directory);
  const auto known = names.bases.find(path.substr(directory.size()));
  if (known == names.bases.end()) return names.unlisted;
  std::vector<std::size_t> with;
  std::set_union(known->second.begin(), known->second.end(), names.unlisted.begin(),
                 names.unlisted.end(), std::back_inserter(with));
  return with;
}

const Entry& IncludeSearch::lookAtDirectory(const std::string& directory) {
  const auto known = directories.find(directory);
  if (known != directories.end()) return known->second;
  return directories.emplace(directory, tree.look(directory.empty() ? "." : directory))
      .first->second;
}

const std::vector<IncludeSearch::Position>& IncludeSearch::positions(const std::string& directory) {
  const auto [known, isNew] = positionsOf.try_emplace(directory);
  std::vector<Position>& result = known->second;
  if (!isNew) return result;
  walkUp(directory, [&](const std::string& above, const std::string& path) {
    const Entry& entry = lookAtDirectory(above);
    if (entry.kind != Entry::Kind::Directory) return;
    for (std::size_t i = 0; i < bases.size(); ++i) {
      if (baseIds[i] == entry.id) result.push_back({i, path});
    }
  });
  return result;
}

std::string IncludeSearch::similarPath(const std::string& directory, std::string_view path,
                                       const std::set<std::string>& extensions) {
  const std::string above = DirectoryOf(std::string(path));
  SimilarName name(path.substr(above.size()), extensions);
  const std::string beside = Joined(directory, above);
  const auto [known, isNew] = namesBeside.try_emplace(beside);
  if (isNew) tree.list(beside.empty() ? "." : beside, known->second);
  const std::vector<std::string>* const searched[] = {&known->second, &namesIn(above).list};
  for (const std::vector<std::string>* const list : searched) {
    compared += list->size();
    if (compared > maxCompared) break;
    for (const std::string& other : *list) {
      const std::string candidate = above + other;
      const bool isFound = name.mayBe(other) && CanBeIncluded(candidate) &&
                           find(directory, candidate).kind == ResultKind::Found;
      if (isFound) name.compare(other);
    }
  }
  return name.found().empty() ? std::string() : above + std::string(name.found());
}

std::string IncludeSearch::directoryAbove(const std::string& directory, std::string_view path) {
  std::string found;
  walkUp(directory, [&](const std::string& above, const std::string& /*below*/) {
    const bool isThere = look(above, std::string(path)).kind == ResultKind::Found;
    if (found.empty() && isThere)
      found = above.size() > 1 ? above.substr(0, above.size() - 1) : "." + above;
  });
  return found;
}

std::string IncludeSearch::shortestPath(const std::string& directory, const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  const FileId id = tree.look(path).id;
  const FileId start = lookAtDirectory(directory).id;
  std::vector<std::string> paths;
  walkUp(DirectoryOf(path), [&](const std::string& above, const std::string& rest) {
    if (lookAtDirectory(above).id == start) paths.push_back(rest + name);
  });
  for (const Position& position : positions(DirectoryOf(path))) {
    paths.push_back(position.path + name);
  }
  const std::filesystem::path from = Normal(directory.empty() ? "." : directory);
  paths.push_back(std::filesystem::path(Normal(path)).lexically_relative(from).string());
  std::stable_sort(paths.begin(), paths.end(),
                   [](const std::string& a, const std::string& b) { return a.size() < b.size(); });
  for (const std::string& candidate : paths) {
    if (candidate.empty() || !CanBeIncluded(candidate)) continue;
    const Result& result = find(directory, candidate);
    if (result.kind == ResultKind::Found && result.id == id) return candidate;
  }
  return {};
}

}  // namespace zentho::idlgen
