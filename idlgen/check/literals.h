#pragma once

#include <cstdint>
#include <string_view>

namespace zentho::idlgen {

// What compilers make of literals, by their text alone.

enum class NumberForm : std::uint8_t {
  Integer,
  LargeInteger,  ///< Of more than 64 bits.
  Floating,      ///< The order of its characters is not checked.
  Invalid
};

/// Returns the form of a literal that begins with a digit, or with a dot and a digit.
NumberForm FormOfNumber(std::string_view literal);

enum class CharacterForm : std::uint8_t {
  Portable,
  Unportable,  ///< Some compilers reject it.
  Invalid
};

/// Returns whether a character literal can begin with these letters, which may be none.
bool IsCharacterPrefix(std::string_view letters);

/// Returns the form of a character literal with its prefix and both quotes.
CharacterForm FormOfCharacter(std::string_view literal);

}  // namespace zentho::idlgen
