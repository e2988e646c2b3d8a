#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "names/declarations.h"
#include "names/lookup.h"

namespace zentho::idlgen {

/// Where a member is declared.
struct Scope {
  enum class Part : std::uint8_t { None, Request, Response };

  std::size_t record = noWord;  ///< The index of the name of the message or service.
  Part part = Part::None;       ///< Of a service.
};

struct Found {
  Meaning meaning;
  const Declaration* declaration = nullptr;  ///< What was found, unless it is no declaration.
  bool isInnermost = false;  ///< Found where no file that has not been read can hide it.
};

/// Returns whether a service has a type of this name inside.
bool IsPartName(std::string_view name);

/// Looks up the types of the members at one place. Refers to the lookup of the file.
class TypeLookup {
 public:
  TypeLookup(const Lookup& lookupOfFile, const Scope& scopeOfMembers);

  /// Looks up a type, which has the form of a name with dots.
  [[nodiscard]] Found find(std::string_view type) const;

 private:
  using Path = std::vector<std::string_view>;

  [[nodiscard]] bool mayBeElsewhere(std::string_view type) const;
  [[nodiscard]] Found findName(std::string_view name) const;
  [[nodiscard]] Found findPath(const Path& path) const;
  [[nodiscard]] Found findFromGlobal(const Path& path) const;
  [[nodiscard]] Found findFromOwn(const Declaration& own, const Path& path) const;
  [[nodiscard]] Found findOutwards(const Path& path) const;
  [[nodiscard]] Found findIn(const Namespace& space, std::string_view name) const;
  [[nodiscard]] Found findFrom(const Namespace& space, const Path& path, std::size_t next) const;
  [[nodiscard]] Found findInRecord(const Declaration& record, const Path& path,
                                   std::size_t next) const;
  [[nodiscard]] Found findNested(const Declaration& record, const Path& path,
                                 std::size_t next) const;
  [[nodiscard]] Found foundAs(const Declaration& record) const;
  [[nodiscard]] const Declaration* ownRecord() const;
  [[nodiscard]] bool isAbove(const Declaration& record) const;
  [[nodiscard]] bool isOwn(const Declaration& record) const;

  const Lookup& lookup;
  const View& view;
  const CheckedFile& file;
  const std::vector<const Namespace*>& namespaces;  ///< From the global one to that of the file.
  const Scope& scope;
};

}  // namespace zentho::idlgen
