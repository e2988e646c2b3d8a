#pragma once

#include <cstdint>
#include <string_view>

namespace zentho::idlgen {

/// What a word is to C++, if it is a keyword.
enum class Keyword : std::uint8_t {
  None,
  Type,  ///< A fundamental type, such as `int`.
  Call,  ///< Followed by something in parentheses, such as `sizeof`.
  Cast,  ///< Followed by a type in angle brackets, such as `static_cast`.
  Other,
  Cpp20  ///< Not before C++20.
};

/// Returns what the word is, or `None`.
Keyword FindKeyword(std::string_view word);

/// Returns whether the word is a keyword of C++17.
bool IsKeyword(std::string_view word);

/// Returns whether a type is found in C++ without a declaration in the file: a fundamental type or
/// an integer type of <cstdint> or <cstddef>.
bool IsCppType(std::string_view type);

/// Returns whether it is one of these, or one of the C library, which most headers bring.
bool IsLibraryType(std::string_view type);

/// Returns whether the word is a macro of <cstdint> that stands for a number, such as `INT8_MAX`.
bool IsIntegerMacro(std::string_view word);

/// Returns whether the name begins with "__", or with "_" and a capital letter.
bool IsReserved(std::string_view name);

}  // namespace zentho::idlgen
