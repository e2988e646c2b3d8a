#include "names/lookup.h"

#include <algorithm>

#include "schema/builtin_types.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

constexpr Found unknown = {Meaning::Unknown};

Found Innermost(Found found) {
  found.isInnermost = true;
  return found;
}

std::string_view PartName(Scope::Part part) {
  if (part == Scope::Part::None) return {};
  return part == Scope::Part::Request ? "Request" : "Response";
}

/// Returns whether a type of this name is nested in a service at the place of a member.
bool IsNestedAbove(std::string_view name, Scope::Part part) {
  if (part == Scope::Part::None) return false;
  return name == "Request" || (name == "Response" && part == Scope::Part::Response);
}

/// Returns whether the file declares its names in the namespace of the framework, which has more.
bool IsInFramework(const File& file) {
  return file.namespaces.size() > 1 && file.namespaces[1]->name == "zentho";
}

}  // namespace

bool IsPartName(std::string_view name) {
  return name == "Request" || name == "Response";
}

Lookup::Lookup(const View& viewOfUser)
    : view(viewOfUser),
      file(viewOfUser.user()),
      words(file.words()),
      namespaces(file.namespaces),
      isInFramework(IsInFramework(file)) {}

Found Lookup::findType(std::string_view type, const Scope& user) const {
  const bool isPath = type.find('.') != std::string_view::npos;
  const Path path = isPath ? Components(type) : Path{type};
  const Found found = isPath ? findPath(path, user) : findName(type, user);
  const bool isNoType = found.meaning == Meaning::Unknown || found.meaning == Meaning::Namespace ||
                        found.meaning == Meaning::Item || found.meaning == Meaning::Service;
  const bool isElsewhere = std::any_of(path.begin(), path.end(),
                                       [&](std::string_view name) { return mayBeElsewhere(name); });
  if (isNoType && isElsewhere && !found.isInnermost) return {Meaning::Elsewhere};
  const bool isLater =
      found.meaning == Meaning::Unknown && user.part == Scope::Part::Request && type == "Response";
  return isLater ? Found{Meaning::LaterPart} : found;
}

bool Lookup::mayBeElsewhere(std::string_view name) const {
  if (view.mayMiss(name)) return true;
  if (!isInFramework) return false;
  SimilarWord builtin(name, 1);
  for (const BuiltinType& type : builtinTypes) builtin.compare(type.keyword);
  return builtin.found().empty();
}

Found Lookup::findName(std::string_view name, const Scope& user) const {
  if (name == PartName(user.part)) return {Meaning::Itself};
  if (IsNestedAbove(name, user.part)) return {Meaning::Type};
  Found below = unknown;
  for (auto space = namespaces.rbegin(); space != namespaces.rend(); ++space) {
    const Found found = findIn(**space, name, user);
    if (found.meaning == Meaning::Below) {
      below = found;
    } else if (found.meaning != Meaning::Unknown) {
      const bool isOther = below.meaning == Meaning::Below && found.meaning != Meaning::Namespace;
      if (isOther) return {Meaning::OuterOne, below.declaration};
      return space == namespaces.rbegin() ? Innermost(found) : found;
    }
  }
  return below;
}

/// Looks up a name in one namespace. Items come before all members, and hide a type of their name.
Found Lookup::findIn(const Namespace& space, std::string_view name, const Scope& user) const {
  Found record = unknown;
  const Declaration* const item = view.find(space, name, [&](const Declaration& declaration) {
    const bool isBetter = record.meaning == Meaning::Unknown || record.meaning == Meaning::Below;
    if (!declaration.isItem() && isBetter) record = use(declaration, user);
    return declaration.isItem();
  });
  if (item != nullptr) return {Meaning::Item, item};
  if (record.meaning == Meaning::Unknown && view.inner(space, name) != nullptr) {
    return {Meaning::Namespace};
  }
  return record;
}

/// Returns what a record is to its user.
Found Lookup::use(const Declaration& record, const Scope& user) const {
  const bool isService = record.role == Role::ServiceName;
  if (isOwn(record, user)) return {isService ? Meaning::Service : Meaning::Itself, &record};
  if (!isAbove(record, user)) return {Meaning::Below, &record};
  return {isService ? Meaning::Service : Meaning::Type, &record};
}

/// The first name is looked up from the inside out. Once it is found, there is no way back.
Found Lookup::findPath(const Path& path, const Scope& user) const {
  const std::string_view first = path.front();
  if (first == "std" || first == "zentho") return {Meaning::Elsewhere};
  if (first.empty()) {
    // The C library has many more names in the global namespace, but no namespaces.
    const bool isOther = path.size() < 3 || path[1] == "std" || path[1] == "zentho";
    return isOther ? Found{Meaning::Elsewhere} : findFrom(*namespaces.front(), path, 1, user);
  }
  if (IsNestedAbove(first, user.part)) return Innermost(unknown);
  const Declaration* const own = ownRecord(user);
  if (own != nullptr && first == own->name) {
    // A type and a namespace of one name have been reported where they are declared.
    if (view.inner(*own->space, first) != nullptr) return {Meaning::Elsewhere};
    return Innermost(findNested(*own, path, 1, user));
  }
  const Declaration* below = nullptr;
  for (auto space = namespaces.rbegin(); space != namespaces.rend(); ++space) {
    const Declaration* const record = recordIn(**space, first);
    const Namespace* const inner = view.inner(**space, first);
    if (record != nullptr && isAbove(*record, user)) {
      if (inner != nullptr) return {Meaning::Elsewhere};
      const Found found = findNested(*record, path, 1, user);
      return space == namespaces.rbegin() ? Innermost(found) : found;
    }
    if (record != nullptr) below = record;
    if (inner != nullptr) return findFrom(*inner, path, 1, user);
  }
  if (below == nullptr) return unknown;
  // An included file may have a namespace of that name, but not the global one of this file.
  if (mayBeElsewhere(first)) return namespaces.size() > 1 ? unknown : Found{Meaning::Below, below};
  const Found nested = findNested(*below, path, 1, user);
  return nested.meaning == Meaning::Unknown ? unknown : Found{Meaning::Below, below};
}

/// Looks up the rest of a path in a namespace.
Found Lookup::findFrom(const Namespace& space, const Path& path, std::size_t next,
                       const Scope& user) const {
  const Namespace* outer = &space;
  for (; next + 1 < path.size(); ++next) {
    const Declaration* const record = recordIn(*outer, path[next]);
    const Namespace* const inner = view.inner(*outer, path[next]);
    if (record != nullptr && inner != nullptr) return {Meaning::Elsewhere};
    if (record != nullptr) {
      const Found found = findNested(*record, path, next + 1, user);
      const bool isBelow = !isOwn(*record, user) && !isAbove(*record, user);
      return isBelow && found.meaning != Meaning::Unknown ? Found{Meaning::Below, record} : found;
    }
    if (inner == nullptr) return unknown;
    outer = inner;
  }
  return findIn(*outer, path[next], user);
}

/// Looks up the rest of a path in a record. Only services have types inside, among them themselves.
Found Lookup::findNested(const Declaration& record, const Path& path, std::size_t next,
                         const Scope& user) const {
  if (record.role != Role::ServiceName) return unknown;
  while (next + 1 < path.size() && path[next] == record.name) ++next;
  const std::string_view name = path[next];
  if (next + 1 < path.size() || !IsPartName(name)) return unknown;
  if (!isOwn(record, user)) return {Meaning::Type, &record};
  if (name == PartName(user.part)) return {Meaning::Itself, &record};
  return {IsNestedAbove(name, user.part) ? Meaning::Type : Meaning::LaterPart, &record};
}

/// Returns the declaration of the record that contains the user, or the first one of its name.
const Declaration* Lookup::ownRecord(const Scope& user) const {
  const Declaration* const own = view.all().declaredAt(file, user.record);
  return own != nullptr ? own : recordIn(*namespaces.back(), words.text(user.record));
}

Meaning Lookup::findInValue(std::string_view name, std::size_t word, std::size_t enumName) const {
  const Meaning unread = mayBeElsewhere(name) ? Meaning::Elsewhere : Meaning::Unknown;
  for (auto space = namespaces.rbegin(); space != namespaces.rend(); ++space) {
    const Declaration* record = nullptr;
    const Declaration* const item = view.find(**space, name, [&](const Declaration& declared) {
      const bool isOther = declared.file != &file;
      // The item itself is the word before its value.
      if (declared.isItem()) return isOther || declared.word + 1 < word;
      const bool isEnum = declared.role == Role::EnumName;
      if (isOther || (isEnum && declared.word <= enumName)) record = &declared;
      return false;
    });
    if (item != nullptr) return Meaning::Item;
    if (record != nullptr) {
      const bool isItself = record->file == &file && record->word == enumName;
      if (isItself || record->role != Role::EnumName) return Meaning::Unknown;
      return unread == Meaning::Elsewhere ? unread : Meaning::Type;
    }
    if (view.inner(**space, name) != nullptr) return Meaning::Unknown;
  }
  return unread;
}

bool Lookup::hasRecord(std::string_view name) const {
  return std::any_of(namespaces.begin(), namespaces.end(),
                     [&](const Namespace* space) { return recordIn(*space, name) != nullptr; });
}

std::size_t Lookup::ownWord(std::string_view name, bool isItem) const {
  for (const Declaration* const declaration : namespaces.back()->chain(name)) {
    const bool isOwn = declaration->file == &file && declaration->isItem() == isItem;
    if (isOwn) return declaration->word;
  }
  return noWord;
}

/// Returns the first record of this name in a namespace, as far as the file sees it, or nullptr.
const Declaration* Lookup::recordIn(const Namespace& space, std::string_view name) const {
  return view.find(space, name,
                   [](const Declaration& declaration) { return !declaration.isItem(); });
}

bool Lookup::isAbove(const Declaration& record, const Scope& user) const {
  if (record.file != &file) return true;
  const Role userRole = words.role(user.record);
  // The roles are in the order of the header.
  if (record.role != userRole) return record.role < userRole;
  return record.word < user.record;
}

bool Lookup::isOwn(const Declaration& record, const Scope& user) const {
  return record.file == &file && record.word == user.record;
}

}  // namespace zentho::idlgen
