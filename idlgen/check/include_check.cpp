#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "check/checks.h"

namespace zentho::idlgen {
namespace {

/// A word of a file that is checked.
struct FileWord {
  const CheckedFile* file;
  std::size_t word;
};

/// Two declarations of one name, in different files.
struct Misfit {
  std::string_view name;
  FileWord first;
  FileWord second;
  bool inAnyOrder = true;  ///< Otherwise they only clash if the first one comes first.
};

Misfit MisfitOf(const Declaration& first, const Declaration& second) {
  return {second.name, {first.file, first.word}, {second.file, second.word}};
}

/// Returns the first two files among those that are included which clash, if there are any.
std::optional<Misfit> FindMisfit(const Clash& clash, const View& view) {
  const Declaration* record = nullptr;
  const Declaration* item = nullptr;
  const Declaration* first = nullptr;
  const auto isSecond = [&](const Declaration& next) {
    if (next.file == &view.user()) return false;
    const Declaration*& known = next.isItem() ? item : record;
    first = known == nullptr ? &next : known;
    if (known == nullptr) known = &next;
    return first->file != next.file;
  };
  const Declaration* const second =
      view.find(*clash.chain->front()->space, clash.chain->front()->name, isSecond);
  if (second != nullptr) return MisfitOf(*first, *second);
  if (record != nullptr && item != nullptr && record->role == Role::MessageName &&
      record->file != item->file) {
    Misfit misfit = MisfitOf(*item, *record);
    misfit.inAnyOrder = false;
    return misfit;
  }
  const Declaration* const name = record != nullptr ? record : item;
  const CheckedFile* const inside = clash.space == nullptr ? nullptr : view.firstIn(*clash.space);
  if (name == nullptr || inside == nullptr) return std::nullopt;
  return Misfit{name->name, {name->file, name->word}, {inside, inside->namespaceWord}};
}

/// Reports names that two of the included files declare, at the include that brings the second one.
/// If an included file sees both, it is told there.
void checkMisfits(Context& context) {
  std::vector<View> brought;  // By each include, made when needed.
  for (const Clash& clash : context.view.all().clashes()) {
    const std::optional<Misfit> misfit = FindMisfit(clash, context.view);
    if (!misfit.has_value()) continue;
    const std::vector<Inclusion>& includes = context.file.includes;
    for (std::size_t i = brought.size(); i < includes.size(); ++i) {
      brought.emplace_back(context.view.all(), *includes[i].file);
    }
    bool hasFirst = false;
    bool hasSecond = false;
    for (std::size_t i = 0; i < brought.size(); ++i) {
      if (brought[i].has(&context.view.user())) continue;  // It brings all, and has been told.
      const bool bringsFirst = brought[i].has(misfit->first.file);
      const bool bringsSecond = brought[i].has(misfit->second.file);
      if (bringsFirst && bringsSecond) break;
      if ((bringsSecond && hasFirst) || (bringsFirst && hasSecond && misfit->inAnyOrder)) {
        context.report(rules::misfit, includes[i].word, misfit->name,
                       {{misfit->first.file->source, misfit->first.word},
                        {misfit->second.file->source, misfit->second.word}});
        break;
      }
      hasFirst = hasFirst || bringsFirst;
      hasSecond = hasSecond || bringsSecond;
    }
  }
}

}  // namespace

void checkIncludes(Context& context) {
  const std::vector<const CheckedFile*> cycle = context.view.filesThatIncludeUser();
  for (const Inclusion& inclusion : context.file.includes) {
    const bool isItself = inclusion.file == &context.file;
    const bool isBack = std::find(cycle.begin(), cycle.end(), inclusion.file) != cycle.end();
    if (isItself) context.report(rules::includesItself, inclusion.word);
    if (isBack) context.report(rules::cycle, inclusion.word);
  }
  if (!context.file.includes.empty()) checkMisfits(context);
}

}  // namespace zentho::idlgen
