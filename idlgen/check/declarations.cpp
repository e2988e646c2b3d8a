#include "check/declarations.h"

#include <algorithm>

#include "check/forms.h"

namespace zentho {
namespace {

constexpr Found unknown = {Lookup::Unknown};

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

Declarations::Declarations(const Words& fileWords, std::size_t count) : words(fileWords) {
  for (std::size_t i = 0; i < count; ++i) {
    switch (words[i].role) {
      case Role::IncludePath:
        hasInclude = true;
        break;
      case Role::NamespacePath:
        namespaces = Components(words[i].text);
        namespaces.erase(std::remove(namespaces.begin(), namespaces.end(), ""), namespaces.end());
        break;
      case Role::EnumName:
      case Role::MessageName:
      case Role::ServiceName:
        records.emplace(words[i].text, i);
        break;
      case Role::ItemName:
        items.emplace(words[i].text, i);
        break;
      default:
        break;
    }
  }
  for (std::size_t i = count; i < words.size(); ++i) unread.insert(words[i].text);
}

std::size_t Declarations::indexIn(const Index& index, std::string_view name) {
  const auto found = index.find(name);
  return found == index.end() ? noWord : found->second;
}

Found Declarations::findType(std::string_view type, const Scope& user) const {
  const bool isPath = type.find('.') != std::string_view::npos;
  const std::vector<std::string_view> path = isPath ? Components(type) : std::vector{type};
  const Found found = isPath ? findPath(path, user) : findName(type, user);
  const bool mayBe = std::any_of(path.begin(), path.end(),
                                 [&](std::string_view name) { return mayBeElsewhere(name); });
  return found.lookup == Lookup::Unknown && mayBe ? Found{Lookup::Elsewhere} : found;
}

bool Declarations::mayBeElsewhere(std::string_view name) const {
  return hasInclude || (hasNamespace() && namespaces.front() == "zentho") ||
         (!unread.empty() &&
          (unread.count("include") + unread.count("namespace") > 0 || unread.count(name) > 0));
}

Found Declarations::findName(std::string_view name, const Scope& user) const {
  if (name == PartName(user.part)) return {Lookup::Itself, user.record};
  if (IsNestedAbove(name, user.part)) return {Lookup::Type, user.record};
  if (name == words[user.record].text) return foundRecord(user.record, user);
  return findInNamespace(name, user);
}

/// The first name is looked up from the inside out. Once it is found, there is no way back.
Found Declarations::findPath(const std::vector<std::string_view>& path, const Scope& user) const {
  const std::string_view first = path.front();
  if (first.empty() || first == "std" || first == "zentho") return {Lookup::Elsewhere};
  if (IsNestedAbove(first, user.part)) return unknown;
  const std::size_t declared = first == words[user.record].text ? user.record : record(first);
  if (declared != noWord && (declared == user.record || isAbove(declared, user))) {
    return findNested(declared, path, 1, user);
  }
  for (std::size_t level = namespaces.size(); level > 0; --level) {
    if (namespaces[level - 1] == first) return findFromNamespace(level, path, user);
  }
  return declared == noWord ? unknown : Found{Lookup::Below, declared};
}

/// Looks up the path behind its first name, which is that of the namespace at this level.
Found Declarations::findFromNamespace(std::size_t level, const std::vector<std::string_view>& path,
                                      const Scope& user) const {
  std::size_t next = 1;
  while (level < namespaces.size() && next < path.size() && path[next] == namespaces[level]) {
    ++level;
    ++next;
  }
  if (level < namespaces.size() || next == path.size()) return unknown;
  if (next + 1 == path.size()) return findInNamespace(path[next], user);
  const std::size_t declared = record(path[next]);
  if (declared == noWord) return unknown;
  const bool isVisible = declared == user.record || isAbove(declared, user);
  return isVisible ? findNested(declared, path, next + 1, user) : Found{Lookup::Below, declared};
}

/// Looks up a name in the innermost namespace, which contains all declarations. Items come before
/// all members, and hide a type of their name.
Found Declarations::findInNamespace(std::string_view name, const Scope& user) const {
  const std::size_t declared = record(name);
  if (item(name) != noWord) return {Lookup::Item, item(name)};
  if (declared == noWord) return unknown;
  return foundRecord(declared, user);
}

Found Declarations::foundRecord(std::size_t record, const Scope& user) const {
  if (record != user.record && !isAbove(record, user)) return {Lookup::Below, record};
  if (words[record].role == Role::ServiceName) return {Lookup::Service, record};
  return {record == user.record ? Lookup::Itself : Lookup::Type, record};
}

/// Looks up the rest of a path in a record. Only services have types inside.
Found Declarations::findNested(std::size_t record, const std::vector<std::string_view>& path,
                               std::size_t next, const Scope& user) const {
  const std::string_view name = path[next];
  const bool isNested = next + 1 == path.size() && (name == "Request" || name == "Response");
  if (words[record].role != Role::ServiceName || !isNested) return unknown;
  if (record != user.record) return {Lookup::Type, record};
  if (name == PartName(user.part)) return {Lookup::Itself, record};
  return IsNestedAbove(name, user.part) ? Found{Lookup::Type, record} : unknown;
}

bool Declarations::isAbove(std::size_t record, const Scope& user) const {
  const Role role = words[record].role;
  const Role userRole = words[user.record].role;
  if (role != userRole) return role < userRole;  // In the order of the header.
  return record < user.record;
}

}  // namespace zentho
