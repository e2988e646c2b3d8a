#include "diagnostics/printable.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "check/characters.h"

namespace zentho {
namespace {

/// The number of bytes of a line or word that a message shows.
constexpr std::size_t maxShownSize = 200;

void appendEscape(std::string& result, const Character& character) {
  std::array<char, 12> escape{};
  const auto code = static_cast<unsigned>(character.code);
  const char* const format = code < 0x80 || !character.valid ? "\\x%02x"
                             : code < 0x10000                ? "\\u%04x"
                                                             : "\\U%08x";
  // NOLINTNEXTLINE(*-format-nonliteral)
  std::snprintf(escape.data(), escape.size(), format, code);
  result += escape.data();
}

/// Moves an index of the text back to the start of the UTF-8 character it is in.
std::size_t CharacterBegin(std::string_view text, std::size_t index) {
  std::size_t begin = index;
  while (begin > 0 && index - begin < 3 && (text[begin] & 0xc0) == 0x80) --begin;
  return begin;
}

/// Returns how much of the text a message shows, in bytes.
std::size_t ShownSize(std::string_view text) {
  return text.size() <= maxShownSize ? text.size() : CharacterBegin(text, maxShownSize);
}

/// Returns how many columns a printable text takes: one for each character.
std::size_t Width(const std::string& printable) {
  return static_cast<std::size_t>(std::count_if(printable.begin(), printable.end(),
                                                [](char byte) { return (byte & 0xc0) != 0x80; }));
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    if (character.code == '\t') {
      result += "\\t";
    } else if (character.code == '\n') {
      result += "\\n";
    } else if (character.code == '\r') {
      result += "\\r";
    } else if (!character.valid || IsInvisible(character.code)) {
      appendEscape(result, character);
    } else {
      result += text.substr(0, character.size);
    }
    text.remove_prefix(character.size);
  }
  return result;
}

std::string Shortened(std::string_view text) {
  const std::size_t shown = ShownSize(text);
  return Printable(text.substr(0, shown)) + (shown < text.size() ? "..." : "");
}

std::string Excerpt(std::size_t lineNumber, std::string_view line, std::size_t begin,
                    std::size_t size) {
  constexpr std::size_t context = 40;
  const std::size_t cut =
      begin + context <= maxShownSize ? 0 : CharacterBegin(line, begin - context);
  const std::string_view part = line.substr(cut);
  const std::size_t shown = ShownSize(part);
  const std::string before = (cut > 0 ? "..." : "") + Printable(part.substr(0, begin - cut));
  const std::string word = Printable(line.substr(begin, std::min(size, cut + shown - begin)));

  std::string number = std::to_string(lineNumber);
  number.insert(0, number.size() < 5 ? 5 - number.size() : 0, ' ');
  const std::string margin(number.size(), ' ');
  const std::size_t width = std::max<std::size_t>(Width(word), 1);
  return number + " | " + (cut > 0 ? "..." : "") + Shortened(part) + "\n" + margin + " | " +
         std::string(Width(before), ' ') + "^" + std::string(width - 1, '~') + "\n";
}

}  // namespace zentho
