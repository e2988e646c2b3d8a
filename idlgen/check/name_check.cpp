#include <algorithm>
#include <cstddef>
#include <vector>

#include "check/word_checks.h"
#include "names/type_lookup.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Checks that no other declaration has the name of this one, in the file or in those it includes.
/// If an enum is declared twice, so are its items, of which nothing is reported.
void checkIsNew(Context& context, std::size_t i) {
  const std::string_view name = context.words.text(i);
  const Namespace& space = *context.file.namespaces.back();
  const Role role = context.words.role(i);
  if (role == Role::ItemName && context.isEnumRepeated) return;
  context.isEnumRepeated = false;
  const auto clashes = [&](const Declaration& other) {
    const bool isOwn = other.file == &context.file;
    if (isOwn && other.word >= i) return false;
    // In the header, the items of a file come first. A type before an item of its name is hidden.
    const bool isHidden = role == Role::ItemName ? !isOwn || other.role != Role::MessageName
                                                 : role != Role::MessageName;
    return other.isItem() == (role == Role::ItemName) || !isHidden;
  };
  if (const Declaration* const other = context.view.find(space, name, clashes)) {
    context.report(other->isItem() ? rules::itemTwice : rules::declaredTwice, i, name, *other);
    context.isEnumRepeated = role == Role::EnumName && other->role == role;
    return;
  }
  context.reportNamespace(rules::isNamespace, i, name, context.view.inner(space, name));
}

/// Checks that no other file declares a part of the namespace as something else.
void checkIsOnlyNamespace(Context& context, std::size_t i, const Namespace& space,
                          std::string_view part) {
  const auto isBrought = [&](const Declaration& other) { return other.file != &context.file; };
  const Declaration* const other = context.view.find(space, part, isBrought);
  if (other != nullptr) context.report(rules::declaredTwice, i, part, *other);
}

}  // namespace

void checkNamespacePath(Context& context, std::size_t i) {
  const std::vector<std::string_view> parts = Components(context.words.text(i));
  for (const std::string_view part : parts) {
    if (!part.empty()) context.checkNewName(i, part);
  }
  const std::vector<const Namespace*>& spaces = context.file.namespaces;
  // The first part is empty before a leading dot.
  const bool hasEmptyPart = std::count(parts.begin() + 1, parts.end(), "") > 0;
  if (spaces.size() == 1 || hasEmptyPart) context.report(rules::emptyNamespace, i);
  for (std::size_t level = 1; level < spaces.size(); ++level) {
    checkNamespacePart(context, i, level);
    checkIsOnlyNamespace(context, i, *spaces[level - 1], spaces[level]->name);
  }
  const Namespace* const framework = context.view.inner(*spaces[0], "zentho");
  const std::vector<Role>& roles = context.words.roles;
  const bool hasFunctions = std::any_of(roles.begin(), roles.end(), HasMembers);
  if (spaces.size() == 1 || framework == nullptr || !hasFunctions) return;
  // The functions of the header stand in the namespace of the framework.
  context.reportHiding(rules::hiddenNamespace, i, spaces[1]->name, *framework, spaces[1]->name);
}

void checkDeclaredName(Context& context, std::size_t i) {
  const std::string_view name = context.words.text(i);
  if (!context.checkNewName(i, name)) return;
  checkHeaderName(context, i, name);
  const bool isService = context.words.role(i) == Role::ServiceName;
  if (isService && IsPartName(name)) context.report(rules::nestedTypeAsService, i);
  checkIsNew(context, i);
}

}  // namespace zentho::idlgen
