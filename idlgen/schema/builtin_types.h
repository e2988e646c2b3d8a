#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace zentho::idlgen {

/// A type of the language and what it is in C++.
struct BuiltinType {
  std::string_view keyword;
  std::string_view cppType;
  bool isInteger;
};

inline constexpr std::array<BuiltinType, 11> builtinTypes = {{
    {"uint8", "std::uint8_t", true},
    {"uint16", "std::uint16_t", true},
    {"uint32", "std::uint32_t", true},
    {"uint64", "std::uint64_t", true},
    {"int8", "std::int8_t", true},
    {"int16", "std::int16_t", true},
    {"int32", "std::int32_t", true},
    {"int64", "std::int64_t", true},
    {"float32", "float", false},
    {"float64", "double", false},
    {"string", "std::string", false},
}};

/// Returns the type with this keyword, or nullptr.
inline const BuiltinType* FindBuiltinType(std::string_view keyword) {
  const auto* const found =
      std::find_if(builtinTypes.begin(), builtinTypes.end(),
                   [&](const BuiltinType& type) { return type.keyword == keyword; });
  return found == builtinTypes.end() ? nullptr : found;
}

}  // namespace zentho::idlgen
