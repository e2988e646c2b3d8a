#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "schema/parser.h"

namespace zentho {

/// Where a member is declared.
struct Scope {
  enum class Part : std::uint8_t { None, Request, Response };

  std::size_t record = noWord;  ///< The index of the name of the message or service.
  Part part = Part::None;       ///< Of a service.
};

/// What C++ finds for the name of a type.
enum class Lookup : std::uint8_t {
  Type,
  Service,   ///< The type of a whole service.
  Itself,    ///< The record that the member is in.
  Item,      ///< An item of an enum, which hides types of its name.
  Below,     ///< A declaration that comes later in the header.
  Unknown,   ///< Nothing in this file.
  Elsewhere  ///< Nothing in this file, but perhaps in another.
};

struct Found {
  Lookup lookup;
  std::size_t word = noWord;  ///< The index of the name in its declaration, if there is one.
};

/// What the words of a file declare, and how C++ looks it up in the header. There, enums come
/// first, messages second and services last. Refers to the words.
class Declarations {
 public:
  /// Takes the declarations of the first `count` words. The others may declare anything.
  Declarations(const Words& fileWords, std::size_t count);

  /// Looks up the type of a member, which has the form of a name with dots.
  [[nodiscard]] Found findType(std::string_view type, const Scope& user) const;

  /// Returns the index of the first enum, message or service of this name, or `noWord`.
  [[nodiscard]] std::size_t record(std::string_view name) const { return indexIn(records, name); }

  /// Returns the index of the first item of this name, or `noWord`.
  [[nodiscard]] std::size_t item(std::string_view name) const { return indexIn(items, name); }

  [[nodiscard]] bool hasNamespace() const { return !namespaces.empty(); }

  /// Returns whether a name that the file does not declare may still be declared.
  [[nodiscard]] bool mayBeElsewhere(std::string_view name) const;

 private:
  using Index = std::unordered_map<std::string_view, std::size_t>;

  static std::size_t indexIn(const Index& index, std::string_view name);

  [[nodiscard]] Found findName(std::string_view name, const Scope& user) const;
  [[nodiscard]] Found findPath(const std::vector<std::string_view>& path, const Scope& user) const;
  [[nodiscard]] Found foundRecord(std::size_t record, const Scope& user) const;
  [[nodiscard]] Found findInNamespace(std::string_view name, const Scope& user) const;
  [[nodiscard]] Found findFromNamespace(std::size_t level,
                                        const std::vector<std::string_view>& path,
                                        const Scope& user) const;
  [[nodiscard]] Found findNested(std::size_t record, const std::vector<std::string_view>& path,
                                 std::size_t next, const Scope& user) const;
  [[nodiscard]] bool isAbove(std::size_t record, const Scope& user) const;

  const Words& words;
  std::vector<std::string_view> namespaces;
  Index records;
  Index items;
  bool hasInclude = false;
  std::unordered_set<std::string_view>
      unread;  ///< The words from `count` on, which may declare anything.
};

}  // namespace zentho
