#include "check/name_check.h"

#include <algorithm>
#include <vector>

#include "words/similar.h"
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

}  // namespace

void NameCheck::checkInclude(std::size_t i) {
  const std::string_view word = check.words.text(i);
  if (const Rule* const rule = RuleOfForm(FormOfInclude(word))) check.report(*rule, i);
  const auto include = check.file.source->includes.find(word);
  if (include == check.file.source->includes.end() || include->second.correction.empty()) return;
  check.findings.push_back({&rules::similarPath, i, word, DidYouMean(include->second.correction)});
}

void NameCheck::checkNamespace(std::size_t i) {
  const std::vector<std::string_view> parts = Components(check.words.text(i));
  for (const std::string_view part : parts) {
    if (part.empty()) continue;
    if (check.checkNewName(i, part) && part == "std") check.report(rules::hidesStd, i, part);
  }
  const std::vector<const Namespace*>& spaces = check.file.namespaces;
  // The first part is empty before a leading dot.
  if (spaces.size() == 1 || std::count(parts.begin() + 1, parts.end(), "") > 0) {
    check.report(rules::emptyNamespace, i);
  }
  if (spaces.size() == 1) return;
  // The functions of the header stand in the namespace of the framework.
  const std::size_t top = spaces[1]->name == "zentho" ? 2 : 1;
  const std::string_view name = top < spaces.size() ? spaces[top]->name : std::string_view();
  const bool hidesName = name == "BytesBuffer" || (top == 2 && name == "zentho");
  if (hidesName && hasFunctions()) check.report(rules::frameworkName, i, name);
  // No file may declare a part of the namespace as something else.
  for (std::size_t level = 1; level < spaces.size(); ++level) {
    const auto isBrought = [&](const Declaration& other) { return other.file != &check.file; };
    const std::string_view part = spaces[level]->name;
    const Declaration* const other = check.view.find(*spaces[level - 1], part, isBrought);
    if (other != nullptr) check.report(rules::declaredTwice, i, part, *other);
  }
  const Namespace* const framework = check.view.inner(*spaces[0], "zentho");
  if (framework == nullptr || !hasFunctions()) return;
  check.reportHiding(rules::hiddenNamespace, i, spaces[1]->name, *framework, spaces[1]->name);
}

void NameCheck::checkRecordName(std::size_t i) {
  const std::string_view name = check.words.text(i);
  if (!check.checkNewName(i, name)) return;
  const bool isService = check.words.role(i) == Role::ServiceName;
  const std::vector<const Namespace*>& spaces = check.file.namespaces;
  const bool hidesFramework = !isService && name == "zentho" && spaces.size() == 2 &&
                              spaces.back()->name == "zentho" && hasFunctions();
  if (isGlobalNamespace(name)) {
    check.report(rules::globalNamespace, i);
  } else if (hidesFramework) {
    check.report(rules::frameworkName, i);
  } else if (name == "std") {
    check.report(rules::hidesStd, i);
  }
  const bool hasPartName = name == "Request" || name == "Response";
  if (isService && hasPartName) check.report(rules::nestedTypeAsService, i);
  checkIsNew(i);
}

void NameCheck::checkItemName(std::size_t i) {
  const std::string_view name = check.words.text(i);
  if (!check.checkNewName(i, name)) return;
  if (isGlobalNamespace(name)) check.report(rules::globalNamespace, i);
  checkIsNew(i);
}

void NameCheck::checkIsNew(std::size_t i) {
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
    return check.report(other->isItem() ? rules::itemTwice : rules::declaredTwice, i, name, *other);
  }
  const Namespace* const inner = check.view.inner(space, name);
  if (inner != nullptr) check.report(rules::isNamespace, i, name, *inner);
}

bool NameCheck::isGlobalNamespace(std::string_view name) const {
  return check.file.namespaces.size() == 1 && (name == "std" || name == "zentho");
}

bool NameCheck::hasFunctions() const {
  const std::vector<Role>& roles = check.words.roles;
  return std::any_of(roles.begin(), roles.end(), [](Role role) {
    return role == Role::MessageName || role == Role::ServiceName;
  });
}

}  // namespace zentho::idlgen
