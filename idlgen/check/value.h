#pragma once

#include <string_view>
#include <vector>

namespace zentho {

/// What the value of an enum item consists of. Refers to the word.
struct Value {
  bool isValid = false;       ///< Otherwise it is no expression, and the rest is incomplete.
  std::string_view tooLarge;  ///< The first integer of more than 64 bits, or empty.
  std::string_view
      wideCharacter;  ///< The first literal with a character of several bytes, or empty.
  std::vector<std::string_view> names;  ///< The names that must be items.
  std::vector<std::string_view> types;  ///< The names that may be types, such as in `sizeof(E)`.
};

/// Returns whether the word is a value, as far as its form shows.
inline bool IsValue(std::string_view word);

/// Reads literals and names that are joined by operators and parentheses. Evaluates nothing.
Value ReadValue(std::string_view word);

inline bool IsValue(std::string_view word) {
  return ReadValue(word).isValid;
}

}  // namespace zentho
