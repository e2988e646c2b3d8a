#include "check/include_check.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace zentho::idlgen {
namespace {

/// Two declarations of one name, in different files.
struct Misfit {
  std::string_view name;
  WordOf first;
  WordOf second;
  const File* firstFile;
  const File* secondFile;
  bool inAnyOrder = true;  ///< Otherwise they only clash if the first one comes first.
};

Misfit MisfitOf(const Declaration& first, const Declaration& second, bool inAnyOrder) {
  return {second.name,
          {first.file->source, first.word},
          {second.file->source, second.word},
          first.file,
          second.file,
          inAnyOrder};
}

/// Returns the first two files among those that are included which clash, if there are any.
std::optional<Misfit> FindMisfit(const Clash& clash, const View& view) {
  const Declaration* record = nullptr;
  const Declaration* item = nullptr;
  for (const Declaration* next = clash.first; next != nullptr; next = next->next) {
    if (next->file == &view.user() || !view.has(next->file)) continue;
    const Declaration*& first = next->isItem() ? item : record;
    if (first == nullptr) {
      first = next;
    } else if (first->file != next->file) {
      return MisfitOf(*first, *next, true);
    }
  }
  if (record != nullptr && item != nullptr && record->role == Role::MessageName &&
      record->file != item->file) {
    return MisfitOf(*item, *record, false);
  }
  const Declaration* const name = record != nullptr ? record : item;
  const File* const inside = clash.space == nullptr ? nullptr : view.firstIn(*clash.space);
  if (name == nullptr || inside == nullptr) return std::nullopt;
  return Misfit{name->name,
                {name->file->source, name->word},
                {inside->source, inside->namespaceWord},
                name->file,
                inside};
}

/// Reports names that two of the included files declare, at the include that brings the second one.
/// If an included file sees both, it is told there.
void checkMisfits(FileCheck& check) {
  std::vector<View> brought;  // By each include, made when needed.
  for (const Clash& clash : check.declarations.clashes()) {
    const std::optional<Misfit> misfit = FindMisfit(clash, check.view);
    if (!misfit.has_value()) continue;
    const std::vector<Inclusion>& includes = check.file.includes;
    for (std::size_t i = brought.size(); i < includes.size(); ++i) {
      brought.emplace_back(check.declarations, *includes[i].file);
    }
    bool hasFirst = false;
    bool hasSecond = false;
    for (std::size_t i = 0; i < brought.size(); ++i) {
      const bool bringsFirst = brought[i].has(misfit->firstFile);
      const bool bringsSecond = brought[i].has(misfit->secondFile);
      if (bringsFirst && bringsSecond) break;
      if ((bringsSecond && hasFirst) || (bringsFirst && hasSecond && misfit->inAnyOrder)) {
        check.findings.push_back(
            {&rules::misfit, includes[i].word, misfit->name, {}, {misfit->first, misfit->second}});
        break;
      }
      hasFirst = hasFirst || bringsFirst;
      hasSecond = hasSecond || bringsSecond;
    }
  }
}

}  // namespace

void checkIncludes(FileCheck& check) {
  const std::vector<const File*> cycle = check.view.filesThatIncludeUser();
  bool isInCycle = false;
  for (const Inclusion& inclusion : check.file.includes) {
    const bool isItself = inclusion.file == &check.file;
    const bool isBack = std::find(cycle.begin(), cycle.end(), inclusion.file) != cycle.end();
    if (!isItself && !isBack) continue;
    isInCycle = true;
    check.report(isItself ? rules::includesItself : rules::cycle, inclusion.word);
  }
  if (!isInCycle && !check.file.includes.empty()) checkMisfits(check);
}

}  // namespace zentho::idlgen
