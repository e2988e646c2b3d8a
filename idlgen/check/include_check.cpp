#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "check/word_checks.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// The rules that words break by their forms, in the order of `IncludeForm`, which begins with that
/// of a path.
constexpr auto rulesOfForms =
    Table<const Rule*>({nullptr, &rules::unquotedPath, &rules::unterminatedPath,
                        &rules::noExtension, &rules::notAPath});
static_assert(rulesOfForms.size() == static_cast<std::size_t>(IncludeForm::Invalid) + 1);

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

Misfit MisfitOf(const Declaration& first, const Declaration& second, bool inAnyOrder = true) {
  return {second.name, {first.file, first.word}, {second.file, second.word}, inAnyOrder};
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
    return MisfitOf(*item, *record, /*inAnyOrder=*/false);
  }
  const Declaration* const name = record != nullptr ? record : item;
  const CheckedFile* const inside = clash.space == nullptr ? nullptr : view.firstIn(*clash.space);
  if (name == nullptr || inside == nullptr) return std::nullopt;
  return Misfit{name->name, {name->file, name->word}, {inside, inside->namespaceWord}};
}

/// Returns the first include that brings one of the two files after another include has brought the
/// other, or nullptr. If a file that is included sees both, it is reported there.
const Inclusion* SecondInclude(const Misfit& misfit, const CheckedFile& user,
                               const std::vector<View>& brought) {
  bool hasFirst = false;
  bool hasSecond = false;
  for (std::size_t i = 0; i < brought.size(); ++i) {
    if (brought[i].has(&user)) continue;  // It sees both, and has been reported.
    const bool bringsFirst = brought[i].has(misfit.first.file);
    const bool bringsSecond = brought[i].has(misfit.second.file);
    if (bringsFirst && bringsSecond) return nullptr;
    if (bringsSecond && hasFirst) return &user.includes[i];
    if (bringsFirst && hasSecond && misfit.inAnyOrder) return &user.includes[i];
    hasFirst = hasFirst || bringsFirst;
    hasSecond = hasSecond || bringsSecond;
  }
  return nullptr;
}

/// Reports names that two of the included files declare: for two files and an include the first
/// one, with the number of the others.
void checkMisfits(Context& context) {
  struct Reported {
    std::size_t finding;
    std::size_t others;
  };
  const CheckedFile& user = context.file;
  std::map<std::tuple<std::size_t, const CheckedFile*, const CheckedFile*>, Reported> reported;
  std::vector<View> brought;  // By each include, if needed.
  for (const Clash& clash : context.view.all().clashes()) {
    const std::optional<Misfit> misfit = FindMisfit(clash, context.view);
    if (!misfit.has_value()) continue;
    for (std::size_t i = brought.size(); i < user.includes.size(); ++i) {
      brought.emplace_back(context.view.all(), *user.includes[i].file);
    }
    const Inclusion* const include = SecondInclude(*misfit, user, brought);
    if (include == nullptr) continue;
    const auto& [name, first, second, inAnyOrder] = *misfit;
    const auto [known, isNew] = reported.try_emplace({include->word, first.file, second.file},
                                                     Reported{context.findings.size(), 0});
    if (isNew) {
      context.report(rules::misfit, include->word, name,
                     {{first.file->source, first.word}, {second.file->source, second.word}});
    } else {
      const std::size_t others = ++known->second.others;
      context.findings[known->second.finding].advice = {"and " + std::to_string(others) +
                                                        (others == 1 ? " other" : " others")};
    }
  }
}

/// Reports the includes through which the file includes itself.
void checkCycles(Context& context) {
  for (const Inclusion& inclusion : context.file.includes) {
    if (!context.view.all().areInCycle(context.file, *inclusion.file)) continue;
    const bool isItself = inclusion.file == &context.file;
    context.report(isItself ? rules::includesItself : rules::cycle, inclusion.word);
  }
}

}  // namespace

void checkIncludePath(Context& context, std::size_t i) {
  const std::string_view word = context.words.text(i);
  const auto form = static_cast<std::size_t>(FormOfInclude(word));
  if (rulesOfForms[form] != nullptr) context.report(*rulesOfForms[form], i);
  const auto include = context.file.source->includes.find(word);
  if (include == context.file.source->includes.end() || include->second.missing.empty()) return;
  if (!context.reportedPaths.insert(word).second) return;  // At the first of its includes.
  for (const MissingInclude& missing : include->second.missing) {
    const Rule& rule = missing.isUnreadable ? rules::unreadable : rules::notFound;
    const std::size_t count = missing.others;
    const std::string others = count == 1
                                   ? " (and at 1 other include)"
                                   : " (and at " + std::to_string(count) + " other includes)";
    context.findings.push_back(
        {&rule, i, missing.path, {missing.advice + (count > 0 ? others : "")}});
  }
}

void checkIncludes(Context& context) {
  checkCycles(context);
  if (!context.file.includes.empty()) checkMisfits(context);
}

}  // namespace zentho::idlgen
