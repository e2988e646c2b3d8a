#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zentho::idlgen {

/// A token of C++ in the value of an item.
struct ValueToken {
  enum class Kind : std::uint8_t {
    Number,
    Character,  ///< With its prefix and both quotes.
    Name,       ///< Or a keyword.
    Sign,       ///< An operator, a comma or a parenthesis.
    Forbidden   ///< What no value contains, because it could end the value or hide what follows.
  };

  Kind kind;
  std::string_view text;
};

/// Splits a word as C++ does, up to the first forbidden token.
std::vector<ValueToken> ValueTokens(std::string_view word);

/// No index of a token.
inline constexpr std::size_t noToken = std::string_view::npos;

/// Returns the index after the closing parenthesis of the opening one at an index, or `noToken` if
/// there is none.
std::size_t ParenthesesEnd(const std::vector<ValueToken>& tokens, std::size_t begin);

/// The same for angle brackets, inside which parentheses are balanced.
std::size_t AngleBracketsEnd(const std::vector<ValueToken>& tokens, std::size_t begin);

}  // namespace zentho::idlgen
