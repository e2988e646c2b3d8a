#include "check/header_names.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "schema/builtin_types.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Whether no compiler accepts a header with the name. Functions are those of messages and
/// services.
enum class Harm : std::uint8_t {
  None,
  Warning,
  Error,
  WithOthers,        ///< An error if the header has functions for another record.
  WithFunctions,     ///< An error if the header has functions.
  WithOrWithoutThem  ///< The same, and a warning if it has none.
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

constexpr Harm none = Harm::None;
constexpr Harm always = Harm::Error;
constexpr Harm withOthers = Harm::WithOthers;
constexpr Harm functions = Harm::WithFunctions;
constexpr Harm either = Harm::WithOrWithoutThem;

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

/// Returns how many records have functions in the header.
std::ptrdiff_t CountWithFunctions(const Words& words) {
  return std::count_if(words.roles.begin(), words.roles.end(), HasMembers);
}

/// Reports a name that is declared in a namespace, if that is the global one or the framework's.
void checkName(Context& check, std::size_t i, std::string_view name, const Namespace& space) {
  const Namespace& global = *check.file.namespaces.front();
  const bool inFramework = global.inner("zentho") == &space;
  for (const HeaderName& row : headerNames) {
    if (row.name != name || row.inFramework != inFramework) continue;
    if (!inFramework && &space != &global) continue;
    const Harm harm = HarmOf(row, check.words.role(i));
    const std::ptrdiff_t count = CountWithFunctions(check.words);
    const bool isError = harm == Harm::Error || (harm == Harm::WithOthers && count > 1) ||
                         (harm >= Harm::WithFunctions && count > 0);
    const bool isNamespace = name == "std" || (name == "zentho" && !inFramework);
    if (isError) {
      check.report(isNamespace ? rules::globalNamespace : rules::frameworkName, i, name);
    } else if (harm == Harm::WithOrWithoutThem) {
      check.report(rules::frameworkNameToo, i, name);
    }
  }
}

bool NeedsStd(std::string_view type) {
  const std::optional<std::string_view> element = ElementType(type);
  if (!element.has_value()) return false;
  const BuiltinType* const builtin = FindBuiltinType(*element);
  const bool isOfLibrary = builtin != nullptr && builtin->cppType.substr(0, 5) == "std::";
  return isOfLibrary || element->size() < type.size();
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

void checkStd(Context& check, std::size_t i, std::string_view name) {
  if (name != "std") return;
  check.report(IsStdNeeded(check.words, i) ? rules::hidesNeededStd : rules::hidesStd, i, name);
}

}  // namespace

void checkHeaderName(Context& check, std::size_t i, std::string_view name) {
  const std::vector<const Namespace*>& spaces = check.file.namespaces;
  checkName(check, i, name, *spaces.back());
  const bool isType = IsRecordName(check.words.role(i));
  if (spaces.size() > 1 && isType) checkStd(check, i, name);
}

void checkNamespacePart(Context& check, std::size_t i, std::size_t level) {
  const std::vector<const Namespace*>& spaces = check.file.namespaces;
  const std::string_view name = spaces[level]->name;
  checkName(check, i, name, *spaces[level - 1]);
  if (level > 1) {
    checkStd(check, i, name);
  } else if (name == "std") {
    check.report(rules::hidesStd, i, name);
  }
}

}  // namespace zentho::idlgen
