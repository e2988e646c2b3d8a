#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace zentho::idlgen {

/// A token of C++ in the value of an item.
struct ValueToken {
  enum class Kind : std::uint8_t {
    Literal,   ///< A number, or a character with its prefix and both quotes.
    Name,      ///< Or a keyword.
    Sign,      ///< An operator, a comma, a dot or a parenthesis.
    Forbidden  ///< What no value contains, because it could end the value or hide what follows.
  };

  Kind kind;
  std::string_view text;
};

/// Splits a word as C++ does, up to the first forbidden token.
std::vector<ValueToken> ValueTokens(std::string_view word);

}  // namespace zentho::idlgen
