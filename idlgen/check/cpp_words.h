#pragma once

#include <cstdint>
#include <string_view>

namespace zentho {

/// What a word is to C++, if it is a keyword.
enum class Keyword : std::uint8_t {
  None,
  Type,      ///< A fundamental type, such as `int`.
  Operand,   ///< Begins an expression, such as `sizeof`.
  Operator,  ///< An operator, such as `and`.
  Other,
  Cpp20  ///< Not before C++20.
};

/// Returns what the word is, or `None`.
Keyword FindKeyword(std::string_view word);

/// Returns whether a type is found in C++ without a declaration in the file: a fundamental type or
/// one of <cstdint> and <cstddef>.
bool IsCppType(std::string_view type);

/// Returns whether the name begins with "__", or with "_" and a capital letter.
bool IsReserved(std::string_view name);

}  // namespace zentho
