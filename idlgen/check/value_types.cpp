#include "check/value_types.h"

#include "words/cpp_words.h"

namespace zentho::idlgen {

TypeKind FindTypeKind(std::string_view name, const NameLookup& kindOf, bool hasIntegerMacros) {
  const Keyword keyword = FindKeyword(name);
  if (keyword == Keyword::Type) {
    return name == "float" || name == "double" ? TypeKind::Floating : TypeKind::Integer;
  }
  if (keyword != Keyword::None && keyword != Keyword::Cpp20) return TypeKind::None;
  const NameKind kind = kindOf(name);
  if (kind == NameKind::Item) return TypeKind::None;
  if (kind == NameKind::EnumType) return TypeKind::Enum;
  if (kind == NameKind::OtherType) return TypeKind::Unusable;
  if (keyword == Keyword::Cpp20) return TypeKind::Later;
  if (IsCppType(name)) return TypeKind::Integer;
  if (hasIntegerMacros && IsIntegerMacro(name)) return TypeKind::None;
  return kind == NameKind::Unknown ? TypeKind::Unknown : TypeKind::Elsewhere;
}

}  // namespace zentho::idlgen
