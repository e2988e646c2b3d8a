#include "sources/include_search.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "reader/idl.h"
#include "sources/slip.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

using ResultKind = IncludeSearch::Result::Kind;

constexpr std::size_t maxPathSize = 4096;  ///< The system opens no longer paths.

std::string Joined(const std::string& directory, const std::string& path) {
  return !path.empty() && path.front() == '/' ? path : directory + path;
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

std::string DirectoryOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

IncludeSearch::IncludeSearch(SourceTree& sourceTree, std::vector<std::string> baseDirectories)
    : tree(sourceTree), bases(std::move(baseDirectories)) {
  for (std::string& base : bases) {
    base = WithSlash(std::move(base));
    baseIds.push_back(lookAtDirectory(base).id);
  }
}

const IncludeSearch::Result& IncludeSearch::find(const std::string& directory,
                                                 std::string_view path) {
  static const Result tooLong = {ResultKind::Uncertain};
  if (path.size() > maxPathSize) return tooLong;
  const std::string included(path);
  std::string key = directory + '\0' + included;
  const auto known = results.find(key);
  if (known != results.end()) return known->second;
  Result result = look(directory, included);
  if (result.kind == ResultKind::Missing && included.front() != '/') {
    for (std::size_t i = 0; i < bases.size() && result.kind == ResultKind::Missing; ++i) {
      result = look(bases[i], included);
    }
    if (mayComeBefore(result, directory, included)) result = {ResultKind::Uncertain};
  }
  return results.emplace(std::move(key), std::move(result)).first->second;
}

/// Returns whether another file than this result may have its header beside that of the includer.
bool IncludeSearch::mayComeBefore(const Result& result, const std::string& directory,
                                  const std::string& path) {
  for (const Position& position : positions(directory)) {
    const std::string place = Normal(position.path + path);
    if (LeadsOut(place)) continue;
    const bool isBelow = place.compare(0, position.path.size(), position.path) == 0;
    for (std::size_t i = 0; i < bases.size(); ++i) {
      if (baseIds[i] == baseIds[position.base]) continue;
      // Of many base directories, few have a directory of this name.
      const Entry& beside = lookAtDirectory(bases[i] + (isBelow ? position.path : ""));
      if (beside.kind == Entry::Kind::Missing) continue;
      const Result other = look(bases[i], place);
      if (other.kind == ResultKind::Missing) continue;
      if (other.kind != result.kind || other.id != result.id) return true;
    }
  }
  return false;
}

IncludeSearch::Result IncludeSearch::look(const std::string& directory, const std::string& path) {
  std::string joined = Joined(directory, path);
  // Most files that are looked for in vain would be in a directory that does not exist either.
  if (lookAtDirectory(DirectoryOf(joined)).kind == Entry::Kind::Missing)
    return {ResultKind::Missing};
  const Entry entry = tree.look(joined);
  if (entry.kind == Entry::Kind::File) return {ResultKind::Found, std::move(joined), entry.id};
  return {entry.kind == Entry::Kind::Unreadable ? ResultKind::Uncertain : ResultKind::Missing};
}

const Entry& IncludeSearch::lookAtDirectory(const std::string& directory) {
  const auto known = directories.find(directory);
  if (known != directories.end()) return known->second;
  return directories.emplace(directory, tree.look(directory.empty() ? "." : directory))
      .first->second;
}

const std::vector<std::string>& IncludeSearch::list(const std::string& directory) {
  const auto known = lists.find(directory);
  if (known != lists.end()) return known->second;
  return lists.emplace(directory, tree.list(directory.empty() ? "." : directory)).first->second;
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

std::string IncludeSearch::correction(const std::string& directory, std::string_view path) {
  const std::string included(path);
  if (included.front() == '/') return correctionBelow("", directory, included);
  std::string corrected = correctionBelow(directory, directory, included);
  for (std::size_t i = 0; i < bases.size() && corrected.empty(); ++i) {
    corrected = correctionBelow(bases[i], directory, included);
  }
  return corrected;
}

/// The same, with a slip in a name that stands below the base.
std::string IncludeSearch::correctionBelow(const std::string& base, const std::string& directory,
                                           const std::string& path) {
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const std::string above = path.substr(0, begin);
    const std::string name = path.substr(begin, end - begin);
    if (lookAtDirectory(base + above).kind != Entry::Kind::Directory) return {};
    for (const std::string& other : list(base + above)) {
      if (!IsSlip(name, other)) continue;
      std::string corrected = above + other + path.substr(end);
      if (CanBeIncluded(corrected) && find(directory, corrected).kind == ResultKind::Found) {
        return corrected;
      }
    }
    begin = end + 1;
  }
  return {};
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
