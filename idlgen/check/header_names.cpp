#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>

#include "check/word_checks.h"
#include "schema/builtin_types.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

namespace {

/// More records than any header has.
constexpr auto never = std::numeric_limits<std::ptrdiff_t>::max();

/// A name that the header needs, if it is declared in the global namespace or in the framework's.
/// No compiler accepts it once the header has functions for so many messages and services: each
/// kind of declaration has a number of its own.
struct HeaderName {
  std::string_view name;
  bool inFramework;
  std::ptrdiff_t ofMessage;
  std::ptrdiff_t ofEnum;
  std::ptrdiff_t ofService;
  std::ptrdiff_t ofItem;
  std::ptrdiff_t ofNamespace;
  bool isFunction = false;  ///< Other headers need it, too.
};

constexpr auto headerNames = Table<HeaderName>({
    {"std", false, 0, 0, 0, 0, never},
    {"zentho", false, 0, 0, 0, 0, never},
    {"BytesBuffer", false, never, never, never, never, 1},
    {"zentho", true, 0, 1, 2, never, 1},
    {"BytesBuffer", true, 0, 0, 0, 1, 0},
    {"serialize", true, 0, never, never, 1, 1, true},
    {"deserialize", true, 0, never, never, 1, 1, true},
});

/// Returns the number of records from which on the name is an error in a word of this role.
std::ptrdiff_t LimitOf(const HeaderName& row, Role role) {
  if (role == Role::MessageName) return row.ofMessage;
  if (role == Role::EnumName) return row.ofEnum;
  if (role == Role::ServiceName) return row.ofService;
  return role == Role::ItemName ? row.ofItem : row.ofNamespace;
}

/// Reports a name that is declared in a namespace, if that is the global one or the framework's.
void checkName(Context& context, std::size_t i, std::string_view name, const Namespace& space) {
  const Namespace& global = *context.file.namespaces.front();
  const bool inFramework = global.inner("zentho") == &space;
  if (!inFramework && &space != &global) return;
  const std::vector<Role>& roles = context.words.roles;
  for (const HeaderName& row : headerNames) {
    if (row.name != name || row.inFramework != inFramework) continue;
    const std::ptrdiff_t limit = LimitOf(row, context.words.role(i));
    const bool isNamespace = name == "std" || (name == "zentho" && !inFramework);
    if (std::count_if(roles.begin(), roles.end(), HasMembers) >= limit) {
      context.report(isNamespace ? rules::globalNamespace : rules::frameworkName, i, name);
    } else if (row.isFunction && limit != never) {
      context.report(rules::frameworkNameToo, i, name);
    }
  }
}

/// Returns whether a type that stands in the header after the name of this word needs the namespace
/// of the C++ library. There, enums come first, and services last.
bool IsStdNeeded(const Words& words, std::size_t name) {
  Role record = Role::Unread;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (HasMembers(words.role(i))) record = words.role(i);
    if (words.role(i) != Role::MemberType || !NeedsStd(words.text(i))) continue;
    if (record > words.role(name) || (record == words.role(name) && i > name)) return true;
  }
  return false;
}

void checkStd(Context& context, std::size_t i, std::string_view name) {
  if (name != "std") return;
  context.report(IsStdNeeded(context.words, i) ? rules::hidesNeededStd : rules::hidesStd, i, name);
}

}  // namespace

bool NeedsStd(std::string_view type) {
  const std::optional<std::string_view> element = ElementType(type);
  if (!element.has_value()) return false;
  const BuiltinType* const builtin = FindBuiltinType(*element);
  const bool isOfLibrary = builtin != nullptr && builtin->cppType.substr(0, 5) == "std::";
  return isOfLibrary || element->size() < type.size();
}

void checkHeaderName(Context& context, std::size_t i, std::string_view name) {
  const std::vector<const Namespace*>& spaces = context.file.namespaces;
  checkName(context, i, name, *spaces.back());
  const bool isType = IsRecordName(context.words.role(i));
  if (spaces.size() > 1 && isType) checkStd(context, i, name);
}

void checkNamespacePart(Context& context, std::size_t i, std::size_t level) {
  const std::vector<const Namespace*>& spaces = context.file.namespaces;
  const std::string_view name = spaces[level]->name;
  checkName(context, i, name, *spaces[level - 1]);
  if (level > 1) {
    checkStd(context, i, name);
  } else if (name == "std") {
    context.report(rules::hidesStd, i, name);
  }
}

}  // namespace zentho::idlgen
