#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zentho::idlgen {

// What compilers make of literals, by their text alone.

/// From good to bad.
enum class LiteralForm : std::uint8_t {
  Portable,
  Unportable,  ///< Some compilers reject it: a character, or a number of more than 64 bits.
  Floating,    ///< Perhaps a floating-point number. The order of its characters is not checked.
  Invalid
};

/// Returns whether a number of C++ can begin like this: with a digit, or with a dot and a digit.
bool BeginsNumber(std::string_view text);

/// Returns whether a character literal can begin with these letters, which may be none.
bool IsCharacterPrefix(std::string_view letters);

/// Returns the advice to write a text, or nothing if it is long or not all of it can be seen.
std::string WriteAdvice(const std::string& text);

/// Returns what to do about an invalid literal, or nothing.
std::string LiteralAdvice(std::string_view literal);

/// Returns the form of a number, or of a character with its prefix and both quotes.
LiteralForm FormOfLiteral(std::string_view literal);

}  // namespace zentho::idlgen
