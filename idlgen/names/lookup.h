#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "names/declarations.h"
#include "names/view.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// What a name is, as C++ finds it.
enum class Meaning : std::uint8_t {
  Type,
  Service,  ///< The type of a whole service.
  Itself,   ///< The record that contains the word.
  Item,     ///< An item of an enum, which hides types of its name.
  Namespace,
  Below,      ///< A declaration that comes later in the header.
  LaterPart,  ///< The response, in the request of its service.
  OuterType,  ///< A type further out, in spite of a declaration that comes later.
  Unknown,    ///< Nothing in the files.
  Elsewhere   ///< Nothing in the files that can be judged: perhaps in another, or in the library.
};

/// Looks up names as C++ does in the header of one file. There, the included files come first, then
/// enums, messages and services. Refers to the view.
class Lookup {
 public:
  explicit Lookup(const View& viewOfUser);

  /// Returns what a name is in a value, which is this word of this enum: an item or an enum that
  /// the header declares before it (`Item` or `Type`), or something else that is none.
  [[nodiscard]] Meaning findInValue(std::string_view name, std::size_t word,
                                    std::size_t enumName) const;

  /// Returns whether a record of this name is declared in the namespace of the file or further out.
  [[nodiscard]] bool hasRecord(std::string_view name) const;

  /// Returns the word that declares a record, or an item, of this name in the file, or `noWord`.
  [[nodiscard]] std::size_t ownWord(std::string_view name, bool isItem) const;

  /// Returns whether a name that no file declares may still be declared. This is the one rule for
  /// all that may come from what has not been read.
  [[nodiscard]] bool mayBeElsewhere(std::string_view name) const;

  /// Returns the first record of this name in a namespace, as far as the file sees it, or nullptr.
  [[nodiscard]] const Declaration* recordIn(const Namespace& space, std::string_view name) const;

  const View& view;

 private:
  const CheckedFile& file;
  const std::vector<const Namespace*>& namespaces;  ///< From the global one to that of the file.
  bool isInFramework;  ///< Whether the namespace is the framework's, which has more names.
};

}  // namespace zentho::idlgen
