#pragma once

#include <cstddef>
#include <string_view>

namespace zentho::idlgen {

/// A character of a text in UTF-8.
struct Character {
  char32_t code;     ///< The byte itself if it is not part of valid UTF-8.
  std::size_t size;  ///< In bytes.
  bool valid;
};

/// A mark at the beginning of a file, which no word can contain.
inline constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

/// The last character of Unicode.
inline constexpr char32_t maxCharacter = 0x10ffff;

/// Returns the first character of a text, which begins with a byte that is not ASCII.
Character FirstForeignCharacter(std::string_view text);

/// Returns the first character of a text, which must not be empty.
inline Character FirstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  return first < 0x80 ? Character{first, 1, true} : FirstForeignCharacter(text);
}

/// Returns whether the character is one of 0 to 9.
inline bool IsDigit(char32_t code) {
  return code >= '0' && code <= '9';
}

/// Returns whether the character, which is not ASCII, can be part of a name.
bool IsForeignNameCharacter(char32_t code);

/// Returns whether the character can be part of a name.
inline bool IsNameCharacter(char32_t code) {
  if (code >= 0x80) return IsForeignNameCharacter(code);
  const char32_t lower = code | 0x20U;
  return (lower >= 'a' && lower <= 'z') || IsDigit(code) || code == '_' || code == '$';
}

/// Returns whether a terminal or an editor would not show the character: a control character, a
/// special space, or one that only changes its neighbours.
bool IsInvisible(char32_t code);

/// Returns whether the text contains a control character.
bool HasControlCharacter(std::string_view text);

}  // namespace zentho::idlgen
