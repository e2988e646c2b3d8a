#include "words/characters.h"

#include <algorithm>
#include <array>

#include "words/tables.h"

namespace zentho::idlgen {
namespace {

/// Some characters that follow each other.
struct CharacterRange {
  char32_t first;
  char32_t last;
};

template <std::size_t Size>
bool IsIn(const std::array<CharacterRange, Size>& ranges, char32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const CharacterRange& range) {
    return range.first <= code && code <= range.last;
  });
}

constexpr auto invisible = Table<CharacterRange>(
    {{0x00, 0x1f},     {0x7f, 0xa0},       {0xad, 0xad},       {0x34f, 0x34f},    {0x61c, 0x61c},
     {0x115f, 0x1160}, {0x1680, 0x1680},   {0x17b4, 0x17b5},   {0x180b, 0x180f},  {0x2000, 0x200f},
     {0x2028, 0x202f}, {0x205f, 0x206f},   {0x2800, 0x2800},   {0x3000, 0x3000},  {0x3164, 0x3164},
     {0xfdd0, 0xfdef}, {0xfe00, 0xfe0f},   {0xfeff, 0xfeff},   {0xffa0, 0xffa0},  {0xfff0, 0xfffb},
     {0xfffe, 0xffff}, {0x1bca0, 0x1bca3}, {0x1d173, 0x1d17a}, {0xe0000, 0xe0fff}});

/// What texts contain but no name that a compiler accepts: spaces, punctuation,
/// arrows, operators and drawings.
constexpr auto signsAndSpaces = Table<CharacterRange>({{0xd7, 0xd7},
                                                       {0xf7, 0xf7},
                                                       {0x1680, 0x1680},
                                                       {0x180e, 0x180e},
                                                       {0x2000, 0x203e},
                                                       {0x2041, 0x2053},
                                                       {0x2055, 0x206f},
                                                       {0x2190, 0x245f},
                                                       {0x2500, 0x2775},
                                                       {0x2794, 0x2bff},
                                                       {0x2e00, 0x2e7f},
                                                       {0x3000, 0x3003},
                                                       {0x3008, 0x3020},
                                                       {0x3030, 0x3030},
                                                       {0xfe45, 0xfe46},
                                                       {0xff01, 0xff0f},
                                                       {0xff1a, 0xff20},
                                                       {0xff5b, 0xff65}});

/// Returns the length that the first byte of a character beyond ASCII announces, or 0.
std::size_t AnnouncedSize(unsigned char byte) {
  if (byte < 0xc2) return 0;
  if (byte < 0xe0) return 2;
  if (byte < 0xf0) return 3;
  return byte < 0xf5 ? 4 : 0;
}

}  // namespace

Character FirstForeignCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  const Character broken = {first, 1, false};
  const std::size_t size = AnnouncedSize(first);
  if (size == 0 || size > text.size()) return broken;
  char32_t code = first & (0x7fU >> size);
  for (const char byte : text.substr(1, size - 1)) {
    if ((byte & 0xc0) != 0x80) return broken;
    code = code << 6U | (static_cast<unsigned char>(byte) & 0x3fU);
  }
  constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = code >= 0xd800 && code <= 0xdfff;
  if (code < smallest[size] || code > maxCharacter || isSurrogate) return broken;
  return {code, size, true};
}

bool IsForeignNameCharacter(char32_t code) {
  if (code <= 0xbf) return code == 0xaa || code == 0xb5 || code == 0xb7 || code == 0xba;
  return !IsIn(signsAndSpaces, code);  // All others are left to the compiler.
}

bool IsInvisible(char32_t code) {
  return IsIn(invisible, code);
}

bool HasControlCharacter(std::string_view text) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    const bool isControl =
        character.code < 0x20 || (0x7f <= character.code && character.code < 0xa0);
    if (character.valid && isControl) return true;
    text.remove_prefix(character.size);
  }
  return false;
}

}  // namespace zentho::idlgen
