#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "names/declarations.h"
#include "names/lookup.h"
#include "names/view.h"

namespace zentho::idlgen {

/// The types that may be meant by a name that one of the files uses.
class KnownTypes {
 public:
  KnownTypes(const Declarations& declarations, const CheckedFile& user);

  /// Returns the files that the user does not see and in which it would find the type.
  [[nodiscard]] std::vector<const CheckedFile*> filesThatDeclare(std::string_view type) const;

  /// Returns the declared types that the user sees, in the order of their declarations.
  [[nodiscard]] std::vector<const Declaration*> typesInView() const;

  /// Returns the built-in type or the one of these whose name is most similar, as the user must
  /// write it, or nothing.
  [[nodiscard]] std::string mostSimilar(std::string_view type,
                                        const std::vector<const Declaration*>& seenTypes) const;

 private:
  [[nodiscard]] std::string nameOf(const Declaration& declaration) const;

  View view;
  Lookup lookup;
};

}  // namespace zentho::idlgen
