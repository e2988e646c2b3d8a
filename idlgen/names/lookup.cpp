#include "names/lookup.h"

#include <algorithm>

#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

constexpr Found unknown = {Result::Unknown};

Found Near(Found found) {
  found.isNear = true;
  return found;
}

std::string_view PartName(Scope::Part part) {
  if (part == Scope::Part::None) return {};
  return part == Scope::Part::Request ? "Request" : "Response";
}

bool IsPartName(std::string_view name) {
  return name == "Request" || name == "Response";
}

/// Returns whether a type of this name is nested in a service at the place of a member.
bool IsNestedAbove(std::string_view name, Scope::Part part) {
  if (part == Scope::Part::None) return false;
  return name == "Request" || (name == "Response" && part == Scope::Part::Response);
}

bool BeginsInZentho(const Declarations& declarations, std::size_t file) {
  const std::vector<std::size_t>& namespaces = declarations.file(file).namespaces;
  return namespaces.size() > 1 && namespaces[1] == declarations.nested(0, "zentho");
}

}  // namespace

Lookup::Lookup(const Declarations& fileDeclarations, const Sight& fileSight, std::size_t userFile,
               bool isOpen)
    : declarations(fileDeclarations),
      sight(fileSight),
      file(userFile),
      words(*fileDeclarations.file(userFile).words),
      namespaces(fileDeclarations.file(userFile).namespaces),
      mayBeUnread(isOpen || BeginsInZentho(fileDeclarations, userFile)) {}

Found Lookup::findType(std::string_view type, const Scope& user) const {
  const bool isPath = type.find('.') != std::string_view::npos;
  const Path path = isPath ? Components(type) : Path{type};
  const Found found = isPath ? findPath(path, user) : findName(type, user);
  const bool isMissing = found.result == Result::Unknown || found.result == Result::Namespace;
  const bool isNoType = found.result == Result::Item || found.result == Result::Service;
  const bool isLeftOut = std::any_of(path.begin(), path.end(),
                                     [&](std::string_view name) { return mayBeLeftOut(name); });
  if (isMissing && isLeftOut) return {Result::Elsewhere};
  if ((isMissing || isNoType) && mayBeUnread && !found.isNear) return {Result::Elsewhere};
  const bool isLater =
      found.result == Result::Unknown && user.part == Scope::Part::Request && type == "Response";
  return isLater ? Found{Result::LaterPart} : found;
}

bool Lookup::mayBeElsewhere(std::string_view name) const {
  return mayBeUnread || mayBeLeftOut(name);
}

bool Lookup::mayBeLeftOut(std::string_view name) const {
  const Declarations::File& own = declarations.file(file);
  return own.leftOut->mayDeclareAnything || own.leftOut->names.count(name) > 0 ||
         own.namesInOthers.count(name) > 0;
}

Found Lookup::findName(std::string_view name, const Scope& user) const {
  if (name == PartName(user.part)) return {Result::Itself};
  if (IsNestedAbove(name, user.part)) return {Result::Type};
  Found below = unknown;
  for (std::size_t level = namespaces.size(); level-- > 0;) {
    const Found found = findIn(namespaces[level], name, user);
    if (found.result == Result::Below) {
      below = found;
    } else if (found.result != Result::Unknown) {
      const bool isOther = below.result == Result::Below && found.result != Result::Namespace;
      if (isOther) return {Result::NotBelow, below.declaration};
      return level + 1 == namespaces.size() ? Near(found) : found;
    }
  }
  return below;
}

/// Looks up a name in one namespace. Items come before all members, and hide a type of their name.
Found Lookup::findIn(std::size_t space, std::string_view name, const Scope& user) const {
  Found record = unknown;
  for (std::size_t i = declarations.firstIn(space, name); i != nothing; i = declarations[i].next) {
    const Declaration& declaration = declarations[i];
    if (!sight.hasFile(declaration.file)) continue;
    if (declaration.isItem()) return {Result::Item, i};
    if (record.result == Result::Unknown || record.result == Result::Below) record = use(i, user);
  }
  if (record.result == Result::Unknown && seenNamespace(space, name) != nothing) {
    return {Result::Namespace};
  }
  return record;
}

/// Returns what a record is to its user.
Found Lookup::use(std::size_t declaration, const Scope& user) const {
  const bool isService = declarations[declaration].role == Role::ServiceName;
  if (isOwn(declaration, user)) return {isService ? Result::Service : Result::Itself, declaration};
  if (!isAbove(declaration, user)) return {Result::Below, declaration};
  return {isService ? Result::Service : Result::Type, declaration};
}

/// The first name is looked up from the inside out. Once it is found, there is no way back.
Found Lookup::findPath(const Path& path, const Scope& user) const {
  const std::string_view first = path.front();
  if (first == "std" || first == "zentho") return {Result::Elsewhere};
  if (first.empty()) {
    // The C library has many more names in the global namespace, but no namespaces.
    const bool isOther = path.size() < 3 || path[1] == "std" || path[1] == "zentho";
    return isOther ? Found{Result::Elsewhere} : findFrom(0, path, 1, user);
  }
  if (IsNestedAbove(first, user.part)) return Near(unknown);
  if (first == words.texts[user.record]) {
    return Near(findNested(ownRecord(user), path, 1, user));
  }
  std::size_t below = nothing;
  for (std::size_t level = namespaces.size(); level-- > 0;) {
    const std::size_t record = recordIn(namespaces[level], first);
    const std::size_t space = seenNamespace(namespaces[level], first);
    if (record != nothing && isAbove(record, user)) {
      // A type and a namespace of one name have been reported where they are declared.
      if (space != nothing) return {Result::Elsewhere};
      const Found found = findNested(record, path, 1, user);
      return level + 1 == namespaces.size() ? Near(found) : found;
    }
    if (record != nothing) below = record;
    if (space != nothing) return findFrom(space, path, 1, user);
  }
  if (below == nothing) return unknown;
  // An included file may have a namespace of that name, but not the global one of this file.
  if (mayBeElsewhere(first)) return namespaces.size() > 1 ? unknown : Found{Result::Below, below};
  const Found nested = findNested(below, path, 1, user);
  return nested.result == Result::Unknown ? unknown : Found{Result::Below, below};
}

/// Looks up the rest of a path in a namespace.
Found Lookup::findFrom(std::size_t space, const Path& path, std::size_t next,
                       const Scope& user) const {
  while (next + 1 < path.size()) {
    const std::size_t record = recordIn(space, path[next]);
    if (record != nothing && seenNamespace(space, path[next]) != nothing) {
      return {Result::Elsewhere};
    }
    if (record != nothing) {
      const Found found = findNested(record, path, next + 1, user);
      const bool isBelow = !isOwn(record, user) && !isAbove(record, user);
      return isBelow && found.result != Result::Unknown ? Found{Result::Below, record} : found;
    }
    space = seenNamespace(space, path[next]);
    if (space == nothing) return unknown;
    ++next;
  }
  return findIn(space, path[next], user);
}

/// Looks up the rest of a path in a record. Only services have types inside, among them themselves.
Found Lookup::findNested(std::size_t declaration, const Path& path, std::size_t next,
                         const Scope& user) const {
  if (declarations[declaration].role != Role::ServiceName) return unknown;
  while (next + 1 < path.size() && path[next] == text(declaration)) ++next;
  const std::string_view name = path[next];
  if (next + 1 < path.size() || !IsPartName(name)) return unknown;
  if (!isOwn(declaration, user)) return {Result::Type, declaration};
  if (name == PartName(user.part)) return {Result::Itself, declaration};
  return {IsNestedAbove(name, user.part) ? Result::Type : Result::LaterPart, declaration};
}

/// Returns the declaration of the record that contains the user, or the first one of its name.
std::size_t Lookup::ownRecord(const Scope& user) const {
  const std::size_t first = recordIn(namespaces.back(), words.texts[user.record]);
  std::size_t i = first;
  while (i != nothing && !isOwn(i, user)) i = declarations[i].next;
  return i == nothing ? first : i;
}

Found Lookup::findInValue(std::string_view name, std::size_t word, std::size_t enumName) const {
  Found below = unknown;
  for (std::size_t level = namespaces.size(); level-- > 0;) {
    Found record = unknown;
    std::size_t i = declarations.firstIn(namespaces[level], name);
    for (; i != nothing; i = declarations[i].next) {
      const Declaration& declaration = declarations[i];
      if (!sight.hasFile(declaration.file)) continue;
      const bool isOther = declaration.file != file;
      // The item itself is the word before its value.
      if (declaration.isItem() && (isOther || declaration.word + 1 < word)) {
        return {Result::Item, i};
      }
      if (declaration.isItem()) continue;
      if (!isOther && declaration.word == enumName) return {Result::Itself, i};
      const bool isEnumAbove =
          declaration.role == Role::EnumName && (isOther || declaration.word < enumName);
      record = {isOther || isEnumAbove ? Result::Type : Result::Below, i};
    }
    if (record.result == Result::Type) return record;
    if (record.result == Result::Below) below = record;
    if (seenNamespace(namespaces[level], name) != nothing) return {Result::Namespace};
  }
  if (below.result == Result::Below) return below;
  // Macros and the library have many more names, which a file with includes may use.
  const bool isNoItem = declarations.file(file).hasInclude && !declarations.hasItem(name);
  return isNoItem || mayBeElsewhere(name) ? Found{Result::Elsewhere} : unknown;
}

bool Lookup::hasRecord(std::string_view name) const {
  return std::any_of(namespaces.begin(), namespaces.end(),
                     [&](std::size_t space) { return recordIn(space, name) != nothing; });
}

/// Returns the first record of this name in a namespace, as far as the file sees it, or `nothing`.
std::size_t Lookup::recordIn(std::size_t space, std::string_view name) const {
  std::size_t i = declarations.firstIn(space, name);
  while (i != nothing && (declarations[i].isItem() || !sight.hasFile(declarations[i].file))) {
    i = declarations[i].next;
  }
  return i;
}

std::size_t Lookup::seenNamespace(std::size_t space, std::string_view name) const {
  const std::size_t nested = declarations.nested(space, name);
  return nested != nothing && sight.hasNamespace(nested) ? nested : nothing;
}

bool Lookup::isAbove(std::size_t declaration, const Scope& user) const {
  const Declaration& declared = declarations[declaration];
  if (declared.file != file) return true;
  const Role userRole = words.roles[user.record];
  // The roles are in the order of the header.
  if (declared.role != userRole) return declared.role < userRole;
  return declared.word < user.record;
}

bool Lookup::isOwn(std::size_t declaration, const Scope& user) const {
  return declarations[declaration].file == file && declarations[declaration].word == user.record;
}

std::string_view Lookup::text(std::size_t declaration) const {
  const Declaration& declared = declarations[declaration];
  return declarations.file(declared.file).words->texts[declared.word];
}

}  // namespace zentho::idlgen
