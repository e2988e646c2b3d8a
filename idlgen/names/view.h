#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "names/declarations.h"

namespace zentho::idlgen {

/// What one file sees: itself, and all that it includes, also through others. Is valid until the
/// declarations change.
class View {
 public:
  View(const Declarations& allDeclarations, const CheckedFile& fileThatLooks);

  [[nodiscard]] const Declarations& all() const { return declarations; }
  [[nodiscard]] const CheckedFile& user() const { return *seen.front(); }

  /// The files that are seen, the user first.
  [[nodiscard]] const std::vector<const CheckedFile*>& files() const { return seen; }

  [[nodiscard]] bool has(const CheckedFile* file) const {
    return file != nullptr && sees[file->number] != 0;
  }
  [[nodiscard]] bool has(const Namespace& space) const { return seesNamespace[space.number] != 0; }

  /// Returns whether a name that no file declares may be declared in what has not been read: in a
  /// file that is not found, or in words that have been dropped or cannot be read as a name.
  [[nodiscard]] bool mayMiss(std::string_view name) const;

  /// Returns the first of the other files that declares names in a namespace, or nullptr.
  [[nodiscard]] const CheckedFile* firstIn(const Namespace& space) const;

  /// Returns the namespace of this name in another one, if it is seen, or nullptr.
  [[nodiscard]] const Namespace* inner(const Namespace& space, std::string_view name) const;

  /// Returns all declarations that are seen, in their order.
  [[nodiscard]] Chain declared() const;

  /// Returns the first declaration of a name in a namespace that is seen and for which this holds,
  /// or nullptr.
  [[nodiscard]] const Declaration* find(const Namespace& space, std::string_view name,
                                        const std::function<bool(const Declaration&)>& holds) const;

 private:
  const Declarations& declarations;
  bool mayMissAll = false;
  std::vector<const PossibleNames*> unread;  ///< Of all files, unless there are none.
  std::vector<const CheckedFile*> seen;
  std::size_t declaredCount = 0;    ///< In all these files.
  std::vector<char> sees;           ///< 1 for each file that is seen, by its number.
  std::vector<char> seesNamespace;  ///< The same for namespaces.
};

}  // namespace zentho::idlgen
