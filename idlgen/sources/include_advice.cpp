#include "sources/include_advice.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "io/file.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

constexpr std::size_t maxCompared = 5'000'000;  ///< Comparing more names takes long.

std::string_view Stem(std::string_view name) {
  return name.substr(0, name.rfind('.'));
}

std::string_view Extension(std::string_view name) {
  return name.substr(Stem(name).size());
}

std::string DigitsIn(std::string_view name) {
  std::string digits;
  std::copy_if(name.begin(), name.end(), std::back_inserter(digits),
               [](char byte) { return byte >= '0' && byte <= '9'; });
  return digits;
}

/// Returns whether an include statement with this path, in quotes, is read as such, and whether the
/// header that it becomes is that of this file.
bool CanBeIncluded(const std::string& path) {
  const bool isOneWord = path.find_first_of(" :#") == std::string::npos;
  return isOneWord && FormOfInclude('"' + path + '"') == IncludeForm::Path;
}

/// Notes at the includes of named files which ones are not found, and looks for the paths that are
/// meant.
class MissingIncludes {
 public:
  MissingIncludes(const std::deque<SourceFile>& files, PathCache& pathCache,
                  IncludeSearch& includeSearch)
      : cache(pathCache), search(includeSearch) {
    for (const SourceFile& file : files) {
      const std::string name = FileName(file.path);
      const auto [known, isNew] = fileOfName.try_emplace(name, &file);
      if (!isNew) known->second = nullptr;
      extensions.insert(std::string(Extension(name)));
    }
  }

  [[nodiscard]] bool isEmpty() const { return firstMissing.empty(); }

  /// Notes what is not found at the includes of a named file, each path once in a run.
  void noteAt(SourceFile& file) {
    std::unordered_set<std::string_view> seen;
    for (const std::string_view word : IncludeWords(file)) {
      if (!seen.insert(word).second) continue;
      Include& include = file.includes.at(word);
      note(file, word, include);
      std::vector<const SourceFile*> pending = {include.file};
      while (!pending.empty()) {
        const SourceFile* const brought = pending.back();
        pending.pop_back();
        if (brought == nullptr || brought->isNamed || !visited.insert(brought).second) continue;
        for (const std::string_view inner : IncludeWords(*brought)) {
          note(*brought, inner, include);
          pending.push_back(brought->includes.at(inner).file);
        }
      }
    }
  }

 private:
  /// Notes at an include of a named file if an include with this word is not found. The first one
  /// of a path counts the others.
  void note(const SourceFile& file, std::string_view word, Include& at) {
    const Include& include = file.includes.at(word);
    const bool isUnreadable = include.kind == IncludeKind::Unreadable;
    const bool isNoted = isUnreadable || include.kind == IncludeKind::Missing;
    if (!isNoted || FormOfInclude(word) != IncludeForm::Path) return;
    const std::string directory = DirectoryOf(file.path);
    const std::string path(IncludedPath(word));
    const std::string above = isUnreadable ? "" : directoryAbove(directory, path);
    const auto [first, isNew] = firstMissing.try_emplace(above.empty() ? path : '\0' + above);
    if (!isNew) {
      ++first->second->others;
      return;
    }
    std::string shown(word);
    if (!file.isNamed) shown += ", which " + Quoted(file.path) + " includes,";
    std::string advice = isUnreadable    ? include.reason
                         : above.empty() ? meantPath(directory, path)
                                         : "it is in " + Quoted(above) + ", which is not searched";
    at.missing.push_back({std::move(shown), std::move(advice), isUnreadable});
    first->second = &at.missing.back();
  }

  /// Returns the first directory above this one that has the file, but is not searched, or nothing.
  std::string directoryAbove(const std::string& directory, const std::string& path) {
    for (const std::string& above : Ancestors(directory)) {
      if (cache.look(Joined(above, path)).kind != Entry::Kind::File) continue;
      if (above.size() < 2) return above.empty() ? "." : above;
      return above.substr(0, above.size() - 1);
    }
    return {};
  }

  /// Asks whether another path is meant, if there is one.
  std::string meantPath(const std::string& directory, const std::string& path) {
    std::string meant = similarPath(directory, path);
    const auto known = fileOfName.find(FileName(path));
    if (meant.empty() && known != fileOfName.end() && known->second != nullptr) {
      meant = ShortestPath(directory, known->second->path, cache, search);
      if (meant.find("..") != std::string::npos) meant.clear();
    }
    return meant.empty() ? "what it declares is not checked" : DidYouMean(meant);
  }

  /// Returns a path that is found and leads to the same directory, to a file with a similar name,
  /// or nothing.
  std::string similarPath(const std::string& directory, const std::string& path) {
    const std::string subdirectory = DirectoryOf(path);
    const std::string wanted = FileName(path);
    SimilarWord stem(Stem(wanted), 2);
    std::string similar;
    for (const std::vector<std::string>* const names :
         {&cache.list(Joined(directory, subdirectory)).names, &search.namesIn(subdirectory)}) {
      compared += names->size();
      if (compared > maxCompared) break;
      for (const std::string& name : *names) {
        const std::string candidate = subdirectory + name;
        const bool isFound = mayBeMeant(name, wanted) && CanBeIncluded(candidate) &&
                             search.find(directory, candidate).kind == IncludeKind::Found;
        if (isFound && stem.compare(Stem(name))) similar = candidate;
      }
    }
    return similar;
  }

  /// Returns whether the name of a file may be meant by another one: the letters before the
  /// extension are similar and the digits the same, and the extension is that of a file or differs
  /// by one letter.
  [[nodiscard]] bool mayBeMeant(std::string_view name, std::string_view wanted) const {
    const std::string extension(Extension(name));
    const bool isExtension =
        extensions.count(extension) > 0 || SimilarWord(Extension(wanted), 1).compare(extension);
    return isExtension && SimilarWord(Stem(wanted), 2).compare(Stem(name)) &&
           DigitsIn(Stem(name)) == DigitsIn(Stem(wanted));
  }

  PathCache& cache;
  IncludeSearch& search;
  std::unordered_map<std::string, const SourceFile*> fileOfName;  ///< nullptr if there are several.
  std::set<std::string> extensions;                               ///< Of the files.
  std::unordered_set<const SourceFile*> visited;  ///< Included files whose own were noted.
  /// By the path, or after a zero byte the directory that is not searched.
  std::unordered_map<std::string, MissingInclude*> firstMissing;
  std::size_t compared = 0;  ///< The number of names that were compared with missing ones.
};

}  // namespace

bool noteMissingIncludes(std::deque<SourceFile>& files, PathCache& cache, IncludeSearch& search) {
  MissingIncludes missing(files, cache, search);
  for (SourceFile& file : files) {
    if (file.isNamed) missing.noteAt(file);
  }
  return !missing.isEmpty();
}

std::string ShortestPath(const std::string& directory, const std::string& path, PathCache& cache,
                         IncludeSearch& search) {
  const FileId id = cache.look(path).id;
  const FileId start = cache.look(directory).id;
  std::vector<std::string> paths;
  for (const std::string& above : Ancestors(DirectoryOf(path))) {
    const FileId aboveId = cache.look(above).id;
    const bool isSearched = aboveId == start || search.isBase(aboveId);
    if (isSearched) paths.push_back(Joined("", path.substr(above.size())));
  }
  const std::filesystem::path to = std::filesystem::path(path).lexically_normal();
  const std::filesystem::path from = directory.empty() ? "." : directory;
  paths.push_back(to.lexically_relative(from.lexically_normal()).string());
  std::stable_sort(paths.begin(), paths.end(),
                   [](const std::string& a, const std::string& b) { return a.size() < b.size(); });
  for (const std::string& candidate : paths) {
    if (candidate.empty() || !CanBeIncluded(candidate)) continue;
    const IncludeSearch::Result result = search.find(directory, candidate);
    if (result.kind == IncludeKind::Found && result.id == id) return candidate;
  }
  return {};
}

}  // namespace zentho::idlgen
