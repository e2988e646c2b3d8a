#include <algorithm>
#include <cstdint>
#include <optional>

#include "check/checks.h"
#include "schema/builtin_types.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

bool NeedsStd(std::string_view type) {
  const std::optional<std::string_view> element = ElementType(type);
  if (!element.has_value()) return false;
  const BuiltinType* const builtin = FindBuiltinType(*element);
  const bool isOfLibrary = builtin != nullptr && builtin->cppType.substr(0, 5) == "std::";
  return isOfLibrary || element->size() < type.size();
}

namespace {

/// Whether no compiler accepts a header with the name. Functions are those of messages and
/// services.
enum Harm : std::uint8_t {
  none,
  always,
  withOthers,  ///< An error if the header has functions for another record.
  functions,   ///< An error if the header has functions.
  either       ///< The same, and a warning if it has none.
};

/// A name that the header needs, if it is declared in the global namespace or in the framework's.
struct HeaderName {
  std::string_view name;
  bool inFramework;
  Harm ofMessage;
  Harm ofEnum;
  Harm ofService;
  Harm ofItem;
  Harm ofNamespace;
};

constexpr auto headerNames = Table<HeaderName>({
    {"std", false, always, always, always, always, none},
    {"zentho", false, always, always, always, always, none},
    {"BytesBuffer", false, none, none, none, none, functions},
    {"zentho", true, always, functions, withOthers, none, functions},
    {"BytesBuffer", true, always, always, always, functions, always},
    {"serialize", true, always, none, none, either, either},
    {"deserialize", true, always, none, none, either, either},
});

Harm HarmOf(const HeaderName& row, Role role) {
  if (role == Role::MessageName) return row.ofMessage;
  if (role == Role::EnumName) return row.ofEnum;
  if (role == Role::ServiceName) return row.ofService;
  return role == Role::ItemName ? row.ofItem : row.ofNamespace;
}

/// Returns whether no compiler accepts the header of a file with these words.
bool IsError(Harm harm, const Words& words) {
  const auto count = std::count_if(words.roles.begin(), words.roles.end(), HasMembers);
  switch (harm) {
    case none:
      return false;
    case always:
      return true;
    case withOthers:
      return count > 1;
    case functions:
    case either:
      return count > 0;
  }
  return false;
}

/// Reports a name that is declared in a namespace, if that is the global one or the framework's.
void checkName(Context& context, std::size_t i, std::string_view name, const Namespace& space) {
  const Namespace& global = *context.file.namespaces.front();
  const bool inFramework = global.inner("zentho") == &space;
  if (!inFramework && &space != &global) return;
  for (const HeaderName& row : headerNames) {
    if (row.name != name || row.inFramework != inFramework) continue;
    const Harm harm = HarmOf(row, context.words.role(i));
    const bool isNamespace = name == "std" || (name == "zentho" && !inFramework);
    if (IsError(harm, context.words)) {
      context.report(isNamespace ? rules::globalNamespace : rules::frameworkName, i, name);
    } else if (harm == either) {
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
