#include "names/type_lookup.h"

#include <algorithm>

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

}  // namespace

bool IsPartName(std::string_view name) {
  return name == "Request" || name == "Response";
}

TypeLookup::TypeLookup(const Lookup& lookupOfFile, const Scope& scopeOfMembers)
    : lookup(lookupOfFile),
      view(lookup.view),
      file(view.user()),
      namespaces(file.namespaces),
      scope(scopeOfMembers) {}

Found TypeLookup::find(std::string_view type) const {
  const bool isPath = type.find('.') != std::string_view::npos;
  const Found found = isPath ? findPath(Components(type)) : findName(type);
  const bool isNoType = found.meaning == Meaning::Unknown || found.meaning == Meaning::Namespace ||
                        found.meaning == Meaning::Item || found.meaning == Meaning::Service ||
                        (isPath && found.meaning == Meaning::Itself);
  if (isNoType && !found.isInnermost && mayBeElsewhere(type)) return {Meaning::Elsewhere};
  const bool isLater =
      found.meaning == Meaning::Unknown && scope.part == Scope::Part::Request && type == "Response";
  return isLater ? Found{Meaning::LaterPart} : found;
}

/// Returns whether one of the names of a type may be declared in what has not been read.
bool TypeLookup::mayBeElsewhere(std::string_view type) const {
  const Path path = Components(type);
  return std::any_of(path.begin(), path.end(),
                     [&](std::string_view name) { return lookup.mayBeElsewhere(name); });
}

Found TypeLookup::findName(std::string_view name) const {
  if (name == PartName(scope.part)) return {Meaning::Itself};
  if (IsNestedAbove(name, scope.part)) return {Meaning::Type};
  Found below = unknown;
  for (auto space = namespaces.rbegin(); space != namespaces.rend(); ++space) {
    const Found found = findIn(**space, name);
    if (found.meaning == Meaning::Below) {
      below = found;
    } else if (found.meaning != Meaning::Unknown) {
      const bool isOther = below.meaning == Meaning::Below && found.meaning != Meaning::Namespace;
      if (isOther) return {Meaning::OuterType, below.declaration};
      return space == namespaces.rbegin() ? Innermost(found) : found;
    }
  }
  return below;
}

/// Looks up a name in one namespace. Items come before all members, and hide a type of their name.
Found TypeLookup::findIn(const Namespace& space, std::string_view name) const {
  Found record = unknown;
  const Declaration* const item = view.find(space, name, [&](const Declaration& declaration) {
    const bool isBetter = record.meaning == Meaning::Unknown || record.meaning == Meaning::Below;
    if (!declaration.isItem() && isBetter) record = foundAs(declaration);
    return declaration.isItem();
  });
  if (item != nullptr) return {Meaning::Item, item};
  if (record.meaning == Meaning::Unknown && view.inner(space, name) != nullptr) {
    return {Meaning::Namespace};
  }
  return record;
}

/// Returns what a record is to the members.
Found TypeLookup::foundAs(const Declaration& record) const {
  const bool isService = record.role == Role::ServiceName;
  if (isOwn(record)) return {isService ? Meaning::Service : Meaning::Itself, &record};
  if (!isAbove(record)) return {Meaning::Below, &record};
  return {isService ? Meaning::Service : Meaning::Type, &record};
}

/// Looks up names with dots between them and perhaps before them.
Found TypeLookup::findPath(const Path& path) const {
  const std::string_view first = path.front();
  if (first.empty()) return findFromGlobal(path);
  if (first == "std" || first == "zentho") return {Meaning::Elsewhere};
  if (IsNestedAbove(first, scope.part)) return Innermost(unknown);
  const Declaration* const own = ownRecord();
  return own != nullptr && first == own->name ? findFromOwn(*own, path) : findOutwards(path);
}

/// Looks up a path that begins with a dot.
Found TypeLookup::findFromGlobal(const Path& path) const {
  // The C library has many more names in the global namespace, but no namespaces.
  const bool isOther = path.size() < 3 || path[1] == "std" || path[1] == "zentho";
  return isOther ? Found{Meaning::Elsewhere} : findFrom(*namespaces.front(), path, 1);
}

/// Looks up a path that begins with the name of the record with the members.
Found TypeLookup::findFromOwn(const Declaration& own, const Path& path) const {
  // A type and a namespace of one name have been reported where they are declared.
  if (view.inner(*own.space, own.name) != nullptr) return {Meaning::Elsewhere};
  return Innermost(findNested(own, path, 1));
}

/// Looks up the first name from the inside out. Once it is found, there is no way back.
Found TypeLookup::findOutwards(const Path& path) const {
  const Declaration* below = nullptr;
  for (auto space = namespaces.rbegin(); space != namespaces.rend(); ++space) {
    const Declaration* const record = lookup.recordIn(**space, path.front());
    const Namespace* const inner = view.inner(**space, path.front());
    if (record != nullptr && isAbove(*record)) {
      if (inner != nullptr) return {Meaning::Elsewhere};
      const Found found = findNested(*record, path, 1);
      return space == namespaces.rbegin() ? Innermost(found) : found;
    }
    if (record != nullptr) below = record;
    if (inner != nullptr) return findFrom(*inner, path, 1);
  }
  if (below == nullptr) return unknown;
  if (!lookup.mayBeElsewhere(path.front())) return findInRecord(*below, path, 1);
  // An included file may have a namespace of that name, but not the global one of this file.
  return namespaces.size() > 1 ? unknown : Found{Meaning::Below, below};
}

/// Looks up the rest of a path in a namespace.
Found TypeLookup::findFrom(const Namespace& space, const Path& path, std::size_t next) const {
  const Namespace* outer = &space;
  for (; next + 1 < path.size(); ++next) {
    const Declaration* const record = lookup.recordIn(*outer, path[next]);
    const Namespace* const inner = view.inner(*outer, path[next]);
    if (record != nullptr && inner != nullptr) return {Meaning::Elsewhere};
    if (record != nullptr) return findInRecord(*record, path, next + 1);
    if (inner == nullptr) return unknown;
    outer = inner;
  }
  return findIn(*outer, path[next]);
}

/// Looks up the rest of a path in a record that may come later in the header.
Found TypeLookup::findInRecord(const Declaration& record, const Path& path,
                               std::size_t next) const {
  const Found found = findNested(record, path, next);
  const bool isBelow = !isOwn(record) && !isAbove(record);
  return isBelow && found.meaning != Meaning::Unknown ? Found{Meaning::Below, &record} : found;
}

/// Looks up the rest of a path in a record. Only services have types inside, among them themselves.
Found TypeLookup::findNested(const Declaration& record, const Path& path, std::size_t next) const {
  if (record.role != Role::ServiceName) return unknown;
  while (next + 1 < path.size() && path[next] == record.name) ++next;
  const std::string_view name = path[next];
  if (next + 1 < path.size() || !IsPartName(name)) return unknown;
  if (!isOwn(record)) return {Meaning::Type, &record};
  if (name == PartName(scope.part)) return {Meaning::Itself, &record};
  return {IsNestedAbove(name, scope.part) ? Meaning::Type : Meaning::LaterPart, &record};
}

/// Returns the declaration of the record with the members, or the first one of its name.
const Declaration* TypeLookup::ownRecord() const {
  const Declaration* const own = view.all().declaredAt(file, scope.record);
  if (own != nullptr) return own;
  return lookup.recordIn(*namespaces.back(), file.words().text(scope.record));
}

bool TypeLookup::isAbove(const Declaration& record) const {
  if (record.file != &file) return true;
  const Role user = file.words().role(scope.record);
  if (record.role != user) return record.role < user;  // Roles are in the order of the header.
  return record.word < scope.record;
}

bool TypeLookup::isOwn(const Declaration& record) const {
  return record.file == &file && record.word == scope.record;
}

}  // namespace zentho::idlgen
