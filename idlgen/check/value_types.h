#pragma once

#include <cstdint>
#include <string_view>

#include "check/value.h"

namespace zentho::idlgen {

/// What a name is where a type may stand.
enum class TypeKind : std::uint8_t {
  None,
  Integer,
  Floating,
  Enum,
  Later,      ///< A type since C++20.
  Unusable,   ///< A type that is not complete here.
  Unknown,    ///< Perhaps a type.
  Elsewhere,  ///< Perhaps a type, and perhaps declared in another file.
};

inline bool IsUnknown(TypeKind type) {
  return type == TypeKind::Unknown || type == TypeKind::Elsewhere;
}

/// Returns what a name in a value is. `None` is an item, a macro or a keyword.
TypeKind FindTypeKind(std::string_view name, const NameLookup& kindOf, bool hasIntegerMacros);

}  // namespace zentho::idlgen
