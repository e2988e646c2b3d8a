#include "words/printable.h"

#include <array>
#include <cstdio>

#include "words/characters.h"

namespace zentho::idlgen {
namespace {

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

}  // namespace

std::size_t CharacterBegin(std::string_view text, std::size_t index) {
  std::size_t begin = index;
  while (begin > 0 && index - begin < 3 && (text[begin] & 0xc0) == 0x80) --begin;
  return begin;
}

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

std::size_t ShownSize(std::string_view text) {
  return text.size() <= maxShownSize ? text.size() : CharacterBegin(text, maxShownSize);
}

std::string Shortened(std::string_view text) {
  const std::size_t shown = ShownSize(text);
  return Printable(text.substr(0, shown)) + (shown < text.size() ? "..." : "");
}

std::string Quoted(std::string_view text) {
  return '"' + Shortened(text) + '"';
}

}  // namespace zentho::idlgen
