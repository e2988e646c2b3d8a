#include "sources/include_search.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "io/file.h"

namespace zentho::idlgen {

IncludeSearch::IncludeSearch(PathCache& pathCache, std::vector<std::string> baseDirectories)
    : cache(pathCache) {
  for (std::string& path : baseDirectories) {
    if (!path.empty() && path.back() != '/') path += '/';
    const Entry& entry = cache.look(path);
    if (entry.kind == Entry::Kind::Directory) baseIds.insert(entry.id);
    bases.push_back({std::move(path), entry.id});
  }
}

IncludeSearch::Result IncludeSearch::find(const std::string& directory, const std::string& path) {
  constexpr std::size_t maxPathSize = 4096;  // The system opens no longer paths.
  if (path.size() > maxPathSize) return {};
  Result result = look(directory, path);
  if (result.kind != IncludeKind::Missing) return result;
  if (path.front() != '/') {
    for (const Base* const base : basesWithFile(path)) {
      result = look(base->path, path);
      if (result.kind != IncludeKind::Missing) break;
    }
    if (mayComeBefore(result, directory, path)) return {};
  }
  const bool isMissing = result.kind == IncludeKind::Missing;
  return isMissing && hasHeader(directory, path) ? Result() : result;
}

/// Returns whether another file than this result may have its header beside that of the includer.
bool IncludeSearch::mayComeBefore(const Result& result, const std::string& directory,
                                  const std::string& path) {
  for (const std::string& above : Ancestors(directory)) {
    const FileId id = cache.look(above).id;
    if (!isBase(id)) continue;
    const std::string pathInBase = Joined("", directory.substr(above.size()) + path);
    if (pathInBase.compare(0, 3, "../") == 0) continue;
    for (const Base* const base : basesWithFile(pathInBase)) {
      if (base->id == id) continue;
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
  return isIn(directory) || std::any_of(searched.begin(), searched.end(),
                                        [&](const Base* base) { return isIn(base->path); });
}

IncludeSearch::Result IncludeSearch::look(const std::string& directory, const std::string& path) {
  std::string joined = Joined(directory, path);
  const Entry entry = cache.look(joined);
  if (entry.kind == Entry::Kind::File) return {IncludeKind::Found, std::move(joined), entry.id};
  if (entry.kind != Entry::Kind::Unreadable) return {IncludeKind::Missing};
  return {IncludeKind::Unreadable, {}, {}, entry.error.message()};
}

const std::vector<std::string>& IncludeSearch::namesIn(const std::string& directory) {
  return index(directory).list;
}

/// Asking each base directory for each include would take long.
const IncludeSearch::Names& IncludeSearch::index(const std::string& directory) {
  const auto [known, isNew] = indexes.try_emplace(directory);
  Names& names = known->second;
  if (!isNew) return names;
  for (const Base& base : bases) {
    const std::string joined = Joined(base.path, directory);
    if (cache.look(joined).kind == Entry::Kind::Missing) continue;
    const Listing& listing = cache.list(joined);
    if (listing.error) names.unlisted.push_back(&base);
    for (const std::string& name : listing.names) {
      std::vector<const Base*>& with = names.bases[name];
      if (with.empty()) names.list.push_back(name);
      with.push_back(&base);
    }
  }
  return names;
}

/// Returns the base directories in which there may be such a file.
std::vector<const IncludeSearch::Base*> IncludeSearch::basesWithFile(const std::string& path) {
  const Names& names = index(DirectoryOf(path));
  const auto known = names.bases.find(FileName(path));
  if (known == names.bases.end()) return names.unlisted;
  std::vector<const Base*> with;
  std::set_union(known->second.begin(), known->second.end(), names.unlisted.begin(),
                 names.unlisted.end(), std::back_inserter(with));
  return with;
}

}  // namespace zentho::idlgen
