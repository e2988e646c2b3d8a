#pragma once

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
  [[nodiscard]] const CheckedFile& user() const { return *file; }

  /// The files that are seen, apart from the user.
  [[nodiscard]] const std::vector<const CheckedFile*>& others() const { return included; }

  [[nodiscard]] bool has(const CheckedFile* other) const {
    return other != nullptr && sees[other->number] != 0;
  }
  [[nodiscard]] bool has(const Namespace& space) const { return seesNamespace[space.number] != 0; }

  /// Returns whether a name that no file declares may be declared in what has not been read: in a
  /// file that is not found, or in words that have been dropped or cannot be read as a name.
  [[nodiscard]] bool mayMiss(std::string_view name) const;

  /// Returns the files that include the user, also through others, among those that are seen.
  [[nodiscard]] std::vector<const CheckedFile*> filesThatIncludeUser() const;

  /// Returns the first of the others that declares names in a namespace, or nullptr.
  [[nodiscard]] const CheckedFile* firstIn(const Namespace& space) const;

  /// Returns the namespace of this name in another one, if it is seen, or nullptr.
  [[nodiscard]] const Namespace* inner(const Namespace& space, std::string_view name) const;

  /// Returns the first declaration of a name in a namespace that is seen and for which this holds,
  /// or nullptr.
  template <typename Predicate>
  [[nodiscard]] const Declaration* find(const Namespace& space, std::string_view name,
                                        const Predicate& holds) const {
    const Chain& chain = space.chain(name);
    if (chain.size() <= seenCount) {
      for (const Declaration* const declaration : chain) {
        if (has(declaration->file) && holds(*declaration)) return declaration;
      }
      return nullptr;
    }
    for (const Declaration* const declaration : seenOf(space, name)) {
      if (holds(*declaration)) return declaration;
    }
    return nullptr;
  }

 private:
  void see(const CheckedFile& other);
  [[nodiscard]] std::vector<const Declaration*> seenOf(const Namespace& space,
                                                       std::string_view name) const;

  const Declarations& declarations;
  const CheckedFile* file;
  bool isIncluded = false;  ///< Whether one of the others includes the user.
  bool mayMissAll = false;
  std::vector<const PossibleNames*> dropped;  ///< Of all files, unless there are none.
  std::vector<const CheckedFile*> included;
  std::size_t seenCount = 0;        ///< Of the declarations in all files.
  std::vector<char> sees;           ///< 1 for each file that is seen, by its number.
  std::vector<char> seesNamespace;  ///< The same for namespaces.
};

}  // namespace zentho::idlgen
