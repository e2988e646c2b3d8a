#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zentho {

/// What a word of a file is to the parser. The names of records are in the order of the header.
enum class Role : std::uint8_t {
  Statement,  ///< The keyword of a statement, or a word in its place.
  Part,       ///< `request` or `response`, or a word in its place.
  Brace,      ///< `{` or `}`, or a word in its place.
  IncludePath,
  NamespacePath,
  EnumName,
  MessageName,
  ServiceName,
  ItemName,
  ItemValue,
  MemberName,
  MemberType,
  Unread  ///< The word stands after an error.
};

namespace idlgen {

/// Returns whether a word of this role names an enum, a message or a service.
inline bool IsRecordName(Role role) {
  return role == Role::EnumName || role == Role::MessageName || role == Role::ServiceName;
}

/// Returns whether a word of this role names a type: a service is none, but has two inside.
inline bool IsTypeName(Role role) {
  return role == Role::EnumName || role == Role::MessageName;
}

/// Returns whether a word of this role names a record with members.
inline bool HasMembers(Role role) {
  return role == Role::MessageName || role == Role::ServiceName;
}

/// Returns whether a word of this role is a type or a value.
inline bool IsTypeOrValue(Role role) {
  return role == Role::ItemValue || role == Role::MemberType;
}

/// Returns whether a word of this role stands in a list of members or items.
inline bool IsInList(Role role) {
  return role == Role::ItemName || role == Role::MemberName || IsTypeOrValue(role);
}

/// Returns whether the role is one in an enum's list.
constexpr bool IsOfEnum(Role role) {
  return role == Role::ItemName || role == Role::ItemValue;
}

/// In place of the index of a word: no word.
inline constexpr std::size_t noWord = static_cast<std::size_t>(-1);

}  // namespace idlgen

/// The words of a file, and what the parser has taken them for. Refers to strings that others own.
struct Words {
  [[nodiscard]] std::size_t size() const { return texts.size(); }
  [[nodiscard]] std::string_view text(std::size_t i) const { return texts[i]; }
  [[nodiscard]] Role role(std::size_t i) const { return roles[i]; }

  std::vector<std::string_view> texts;
  std::vector<Role> roles;
};

namespace idlgen {

/// Returns the index of the keyword of the statement that the word is part of. The first word of a
/// file is one, also if it is a word in its place.
inline std::size_t KeywordOf(const Words& words, std::size_t i) {
  while (i > 0 && words.role(i) != Role::Statement) --i;
  return i;
}

/// Returns the index of the first word of this role, or `noWord`.
inline std::size_t FirstWithRole(const Words& words, Role role) {
  const auto found = std::find(words.roles.begin(), words.roles.end(), role);
  return found == words.roles.end() ? noWord
                                    : static_cast<std::size_t>(found - words.roles.begin());
}

/// The names of the enums and messages of a file.
using TypeNames = std::unordered_set<std::string_view>;

inline TypeNames DeclaredTypes(const Words& words) {
  TypeNames types;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (IsTypeName(words.role(i))) types.insert(words.text(i));
  }
  return types;
}

}  // namespace idlgen
}  // namespace zentho
