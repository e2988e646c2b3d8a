#include "check/name_check.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "check/header_names.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns the rule that the word breaks by its form, or nullptr if it is a path.
const Rule* RuleOfForm(IncludeForm form) {
  switch (form) {
    case IncludeForm::Path:
      return nullptr;
    case IncludeForm::Unquoted:
      return &rules::unquotedPath;
    case IncludeForm::Unterminated:
      return &rules::unterminatedPath;
    case IncludeForm::NoExtension:
      return &rules::noExtension;
    case IncludeForm::Invalid:
      return &rules::notAPath;
  }
  return nullptr;
}

/// Checks that no other declaration has the name of this one, in the file or in those it includes.
void checkIsNew(Context& check, std::size_t i) {
  const std::string_view name = check.words.text(i);
  const Namespace& space = *check.file.namespaces.back();
  const Role role = check.words.role(i);
  const auto clashes = [&](const Declaration& other) {
    const bool isOwn = other.file == &check.file;
    if (isOwn && other.word >= i) return false;
    // In the header, the items of a file come first. A type before an item of its name is hidden.
    const bool isHidden = role == Role::ItemName ? !isOwn || other.role != Role::MessageName
                                                 : role != Role::MessageName;
    return other.isItem() == (role == Role::ItemName) || !isHidden;
  };
  if (const Declaration* const other = check.view.find(space, name, clashes)) {
    check.report(other->isItem() ? rules::itemTwice : rules::declaredTwice, i, name, *other);
    return;
  }
  check.reportNamespace(rules::isNamespace, i, name, check.view.inner(space, name));
}

/// Checks that no other file declares a part of the namespace as something else.
void checkIsOnlyNamespace(Context& check, std::size_t i, const Namespace& space,
                          std::string_view part) {
  const auto isBrought = [&](const Declaration& other) { return other.file != &check.file; };
  const Declaration* const other = check.view.find(space, part, isBrought);
  if (other != nullptr) check.report(rules::declaredTwice, i, part, *other);
}

}  // namespace

void checkIncludePath(Context& check, std::size_t i) {
  const std::string_view word = check.words.text(i);
  if (const Rule* const rule = RuleOfForm(FormOfInclude(word))) check.report(*rule, i);
  const auto include = check.file.source->includes.find(word);
  const bool isKnown = include != check.file.source->includes.end();
  // What is told of a path is told at the first of its includes.
  if (!isKnown || include->second.missing.empty() || !check.toldPaths.insert(word).second) return;
  for (const MissingInclude& missing : include->second.missing) {
    const Rule& rule = missing.isUnreadable ? rules::unreadable : rules::notFound;
    const std::size_t count = missing.others;
    const std::string others = count == 1
                                   ? " (and at 1 other include)"
                                   : " (and at " + std::to_string(count) + " other includes)";
    check.findings.push_back({&rule, i, missing.path, missing.advice + (count > 0 ? others : "")});
  }
}

void checkNamespacePath(Context& check, std::size_t i) {
  const std::vector<std::string_view> parts = Components(check.words.text(i));
  for (const std::string_view part : parts) {
    if (!part.empty()) check.checkNewName(i, part);
  }
  const std::vector<const Namespace*>& spaces = check.file.namespaces;
  // The first part is empty before a leading dot.
  const bool hasEmptyPart = std::count(parts.begin() + 1, parts.end(), "") > 0;
  if (spaces.size() == 1 || hasEmptyPart) check.report(rules::emptyNamespace, i);
  for (std::size_t level = 1; level < spaces.size(); ++level) {
    checkNamespacePart(check, i, level);
    checkIsOnlyNamespace(check, i, *spaces[level - 1], spaces[level]->name);
  }
  const Namespace* const framework = check.view.inner(*spaces[0], "zentho");
  const std::vector<Role>& roles = check.words.roles;
  const bool hasFunctions = std::any_of(roles.begin(), roles.end(), HasMembers);
  if (spaces.size() == 1 || framework == nullptr || !hasFunctions) return;
  // The functions of the header stand in the namespace of the framework.
  check.reportHiding(rules::hiddenNamespace, i, spaces[1]->name, *framework, spaces[1]->name);
}

void checkRecordName(Context& check, std::size_t i) {
  const std::string_view name = check.words.text(i);
  if (!check.checkNewName(i, name)) return;
  checkHeaderName(check, i, name);
  const bool isService = check.words.role(i) == Role::ServiceName;
  if (isService && IsPartName(name)) check.report(rules::nestedTypeAsService, i);
  checkIsNew(check, i);
}

void checkItemName(Context& check, std::size_t i) {
  const std::string_view name = check.words.text(i);
  if (!check.checkNewName(i, name)) return;
  checkHeaderName(check, i, name);
  checkIsNew(check, i);
}

}  // namespace zentho::idlgen
