#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "names/declarations.h"
#include "names/sight.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// Where a member is declared.
struct Scope {
  enum class Part : std::uint8_t { None, Request, Response };

  std::size_t record = noWord;  ///< The index of the name of the message or service.
  Part part = Part::None;       ///< Of a service.
};

/// What C++ finds for the name of a type.
enum class Result : std::uint8_t {
  Type,
  Service,  ///< The type of a whole service.
  Itself,   ///< The record that the member is in.
  Item,     ///< An item of an enum, which hides types of its name.
  Namespace,
  Below,      ///< A declaration that comes later in the header.
  LaterPart,  ///< The response, in the request of its service.
  NotBelow,   ///< One of another namespace, in spite of a declaration that comes later.
  Unknown,    ///< Nothing in the files.
  Elsewhere   ///< Nothing in the files, but perhaps in another.
};

struct Found {
  Result result;
  std::size_t declaration = nothing;  ///< What has been found, or what is below.
  bool isNear = false;  ///< Whether the search ended where no other file can end it earlier.
};

/// Looks up names as C++ does in the header of one file. There, the included files come first, then
/// enums, messages and services. Refers to its arguments.
class Lookup {
 public:
  /// `isOpen` says whether names may come from what has not been read.
  Lookup(const Declarations& fileDeclarations, const Sight& fileSight, std::size_t userFile,
         bool isOpen);

  /// Looks up the type of a member, which has the form of a name with dots.
  [[nodiscard]] Found findType(std::string_view type, const Scope& user) const;

  /// Looks up a name in the value of an item, which is the word, of this enum. Finds an item or an
  /// enum that is declared before the word, or another record that is not.
  [[nodiscard]] Found findInValue(std::string_view name, std::size_t word,
                                  std::size_t enumName) const;

  /// Returns whether what has been found is a declaration of this name.
  [[nodiscard]] bool isNamed(const Found& found, std::string_view name) const {
    return found.declaration != nothing && text(found.declaration) == name;
  }

  /// Returns whether a record of this name is declared in the namespace of the file or further out.
  [[nodiscard]] bool hasRecord(std::string_view name) const;

  /// Returns the namespace of this name in another one, if the file sees it, or `nothing`.
  [[nodiscard]] std::size_t seenNamespace(std::size_t space, std::string_view name) const;

  /// Returns whether a name that no file declares may still be declared.
  [[nodiscard]] bool mayBeElsewhere(std::string_view name) const;

 private:
  using Path = std::vector<std::string_view>;

  /// Returns whether a line that has been left out may declare the name.
  [[nodiscard]] bool mayBeLeftOut(std::string_view name) const;
  [[nodiscard]] Found findName(std::string_view name, const Scope& user) const;
  [[nodiscard]] Found findPath(const Path& path, const Scope& user) const;
  [[nodiscard]] Found use(std::size_t declaration, const Scope& user) const;
  [[nodiscard]] std::size_t ownRecord(const Scope& user) const;
  [[nodiscard]] Found findIn(std::size_t space, std::string_view name, const Scope& user) const;
  [[nodiscard]] Found findFrom(std::size_t space, const Path& path, std::size_t next,
                               const Scope& user) const;
  [[nodiscard]] Found findNested(std::size_t declaration, const Path& path, std::size_t next,
                                 const Scope& user) const;
  [[nodiscard]] std::size_t recordIn(std::size_t space, std::string_view name) const;
  [[nodiscard]] bool isAbove(std::size_t declaration, const Scope& user) const;
  [[nodiscard]] bool isOwn(std::size_t declaration, const Scope& user) const;
  [[nodiscard]] std::string_view text(std::size_t declaration) const;

  const Declarations& declarations;
  const Sight& sight;
  std::size_t file;
  const Words& words;
  const std::vector<std::size_t>& namespaces;  ///< From the global one to that of the file.
  bool mayBeUnread;  ///< Whether any name may come from what has not been read.
};

}  // namespace zentho::idlgen
