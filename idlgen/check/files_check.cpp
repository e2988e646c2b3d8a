#include "check/files_check.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "check/checker.h"

namespace zentho::idlgen {
namespace {

/// Finds the groups of files of which each includes all others, also indirectly. The files must not
/// be visited by recursion, because a chain of them may be long.
class CycleSearch {
 public:
  explicit CycleSearch(const Includes& fileIncludes)
      : includes(fileIncludes), visits(fileIncludes.size()) {
    for (std::size_t file = 0; file < includes.size(); ++file) {
      if (visits[file].number == 0) visitFrom(file);
    }
  }

  /// Returns a number for each file, which all files of one group share.
  [[nodiscard]] std::vector<std::size_t> groups() const {
    std::vector<std::size_t> numbers;
    for (const Visit& visit : visits) numbers.push_back(visit.group);
    return numbers;
  }

 private:
  struct Visit {
    std::size_t number = 0;  ///< In the order of the visits, from 1.
    std::size_t lowest = 0;  ///< The lowest number that can be reached and has no group.
    std::size_t group = nothing;
    std::size_t nextInclude = 0;
  };

  void visitFrom(std::size_t first) {
    std::vector<std::size_t> path;
    enter(first, path);
    while (!path.empty()) {
      const std::size_t file = path.back();
      Visit& visit = visits[file];
      if (visit.nextInclude < includes[file].size()) {
        const std::size_t next = includes[file][visit.nextInclude++].file;
        if (visits[next].number == 0) {
          enter(next, path);
        } else if (visits[next].group == nothing) {
          visit.lowest = std::min(visit.lowest, visits[next].number);
        }
        continue;
      }
      path.pop_back();
      if (!path.empty()) {
        visits[path.back()].lowest = std::min(visits[path.back()].lowest, visit.lowest);
      }
      if (visit.lowest == visit.number) close(file);
    }
  }

  void enter(std::size_t file, std::vector<std::size_t>& path) {
    visits[file].number = visits[file].lowest = ++count;
    path.push_back(file);
    open.push_back(file);
  }

  /// Gives a group to this file and to all that have been entered since.
  void close(std::size_t file) {
    for (bool isLast = false; !isLast; open.pop_back()) {
      isLast = open.back() == file;
      visits[open.back()].group = file;
    }
  }

  const Includes& includes;
  std::vector<Visit> visits;
  std::vector<std::size_t> open;  ///< The files without a group.
  std::size_t count = 0;
};

}  // namespace

void sort(std::vector<Finding>& findings) {
  const auto isBefore = [](const Finding& a, const Finding& b) { return a.word < b.word; };
  if (!std::is_sorted(findings.begin(), findings.end(), isBefore)) {
    std::stable_sort(findings.begin(), findings.end(), isBefore);
  }
}

void FilesCheck::add(const Words& words, const LeftOut& leftOut, Openness fileOpenness,
                     std::vector<Inclusion> inclusions) {
  declarations.add(words, leftOut);
  includes.push_back(std::move(inclusions));
  openness.push_back(fileOpenness);
}

void FilesCheck::replace(std::size_t file, const Words& words, const LeftOut& leftOut,
                         Openness fileOpenness, std::vector<Inclusion> inclusions) {
  declarations.replace(file, words, leftOut);
  includes[file] = std::move(inclusions);
  openness[file] = fileOpenness;
  cycles.clear();
  clashes.reset();
}

std::vector<Finding> FilesCheck::findings(std::size_t file) {
  sight.lookFrom(file, includes);
  Checker checker(declarations, sight, file, seesOpenFile(file));
  const std::size_t count = declarations.file(file).words->size();
  for (std::size_t i = 0; i < count; ++i) checker.checkWord(i);
  std::vector<Finding> findings = std::move(checker.findings);
  if (!includes[file].empty()) appendIncludeFindings(file, findings);
  sort(findings);
  return findings;
}

Lookup FilesCheck::lookupFrom(std::size_t file) {
  sight.lookFrom(file, includes);
  return {declarations, sight, file, seesOpenFile(file)};
}

/// Returns whether names may come from what has not been read.
bool FilesCheck::seesOpenFile(std::size_t file) const {
  const std::vector<std::size_t>& others = sight.others();
  const auto isNotClosed = [&](std::size_t other) { return openness[other] != Openness::Closed; };
  return openness[file] == Openness::Open || std::any_of(others.begin(), others.end(), isNotClosed);
}

void FilesCheck::appendIncludeFindings(std::size_t file, std::vector<Finding>& findings) {
  if (cycles.empty()) cycles = CycleSearch(includes).groups();
  const Words& words = *declarations.file(file).words;
  bool isInCycle = false;
  for (const Inclusion& inclusion : includes[file]) {
    if (cycles[inclusion.file] != cycles[file]) continue;
    isInCycle = true;
    const Rule& rule = inclusion.file == file ? rules::includesItself : rules::cycle;
    findings.push_back({&rule, inclusion.word, words.texts[inclusion.word]});
  }
  if (!isInCycle) appendMisfits(file, findings);
}

/// Returns all files that a file sees, and itself.
std::unordered_set<std::size_t> FilesCheck::closure(std::size_t file) const {
  std::unordered_set<std::size_t> files = {file};
  FollowIncludes(file, includes, [&](std::size_t other) { return files.insert(other).second; });
  return files;
}

/// Reports names that two of the included files declare, at the include that brings the second one.
/// If an included file sees both, it is told there.
void FilesCheck::appendMisfits(std::size_t file, std::vector<Finding>& findings) {
  if (!clashes.has_value()) clashes = declarations.clashes();
  std::vector<std::unordered_set<std::size_t>> brought;  // By each include, made when needed.
  for (const Clash& clash : *clashes) {
    const std::optional<ClashingWords> two = declarations.firstTwo(
        clash, [&](std::size_t other) { return other != file && sight.hasFile(other); });
    if (!two.has_value()) continue;
    for (std::size_t i = brought.size(); i < includes[file].size(); ++i) {
      brought.push_back(closure(includes[file][i].file));
    }
    bool hasFirst = false;
    bool hasSecond = false;
    for (std::size_t i = 0; i < brought.size(); ++i) {
      const bool bringsFirst = brought[i].count(two->first.file) > 0;
      const bool bringsSecond = brought[i].count(two->second.file) > 0;
      if (bringsFirst && bringsSecond) break;
      if ((bringsSecond && hasFirst) || (bringsFirst && hasSecond && two->inAnyOrder)) {
        const std::size_t word = includes[file][i].word;
        findings.push_back({&rules::misfit, word, two->name, two->first, two->second});
        break;
      }
      hasFirst = hasFirst || bringsFirst;
      hasSecond = hasSecond || bringsSecond;
    }
  }
}

bool FilesCheck::doesInclude(std::size_t includer, std::size_t included) const {
  return closure(includer).count(included) > 0;
}

std::vector<Finding> CheckAlone(const Words& words, const LeftOut& leftOut) {
  FilesCheck check;
  const bool hasInclude =
      std::find(words.roles.begin(), words.roles.end(), Role::IncludePath) != words.roles.end();
  using Openness = FilesCheck::Openness;
  check.add(words, leftOut, hasInclude ? Openness::Open : Openness::Closed);
  return check.findings(0);
}

}  // namespace zentho::idlgen
