#include "names/cycles.h"

namespace zentho::idlgen {
namespace {

using Files = std::vector<const CheckedFile*>;

/// Returns the files in the order in which a walk along the includes leaves them: each one after
/// those that it includes, except in a cycle. No recursion, because a chain of files may be long.
Files InOrderOfLeaving(const std::list<CheckedFile>& files) {
  Files left;
  std::vector<char> isEntered(files.size());
  std::vector<std::size_t> next(files.size());  // The include to follow next.
  Files path;
  for (const CheckedFile& start : files) {
    if (isEntered[start.number] == 0) path.push_back(&start);
    while (!path.empty()) {
      const CheckedFile& file = *path.back();
      isEntered[file.number] = 1;
      if (next[file.number] == file.includes.size()) {
        left.push_back(&file);
        path.pop_back();
        continue;
      }
      const CheckedFile* const included = file.includes[next[file.number]++].file;
      if (isEntered[included->number] == 0) path.push_back(included);
    }
  }
  return left;
}

}  // namespace

// Kosaraju's algorithm: whoever includes the file that is left last is in a cycle with it, since
// any other one would have been left later. So it is with the rest, once that cycle has its number.
std::vector<std::size_t> CyclesOf(const std::list<CheckedFile>& files) {
  std::vector<Files> includers(files.size());
  for (const CheckedFile& file : files) {
    for (const Inclusion& inclusion : file.includes) {
      includers[inclusion.file->number].push_back(&file);
    }
  }
  std::vector<std::size_t> cycles(files.size(), files.size());
  const Files left = InOrderOfLeaving(files);
  Files pending;
  for (auto last = left.rbegin(); last != left.rend(); ++last) {
    pending.push_back(*last);
    while (!pending.empty()) {
      const std::size_t file = pending.back()->number;
      pending.pop_back();
      if (cycles[file] < files.size()) continue;
      cycles[file] = (*last)->number;
      pending.insert(pending.end(), includers[file].begin(), includers[file].end());
    }
  }
  return cycles;
}

}  // namespace zentho::idlgen
