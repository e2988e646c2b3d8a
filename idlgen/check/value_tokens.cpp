#include "check/value_tokens.h"

#include <algorithm>
#include <cstddef>

#include "check/literals.h"
#include "words/characters.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

using Kind = ValueToken::Kind;

/// Returns the size of a number. To C++, a sign after an 'e' or 'p' belongs to it, also in 0xE+1.
std::size_t NumberSize(std::string_view text) {
  std::size_t size = 0;
  while (size < text.size()) {
    const std::size_t name = NameSize(text.substr(size));
    const std::string_view next = text.substr(size, 1);
    const bool isSign = size > 0 && (next == "+" || next == "-") &&
                        std::string_view("eEpP").find(text[size - 1]) != std::string_view::npos;
    if (name == 0 && !isSign && next != "." && next != "'") break;
    size += std::max<std::size_t>(name, 1);
  }
  return size;
}

/// Returns the size of a character literal whose opening quote is at an offset, or 0 if it does not
/// end.
std::size_t CharacterSize(std::string_view text, std::size_t quote) {
  for (std::size_t i = quote + 1; i < text.size(); ++i) {
    if (text[i] == '\'') return i + 1;
    if (text[i] == '\\') ++i;
  }
  return 0;
}

/// Signs that C++ reads as one token, and that no value contains. Others, such as `->` and `<<=`,
/// are read as two that do not fit together.
constexpr auto forbiddenSigns = Table<std::string_view>({"++", "--", "//", "/*", "<%", "%>"});
constexpr auto longSigns =
    Table<std::string_view>({"<<", ">>", "<=", ">=", "==", "!=", "&&", "||"});
constexpr std::string_view shortSigns = "+-*/%&|^<>~!.,()";

ValueToken FirstSign(std::string_view text) {
  const std::string_view both = text.substr(0, 2);
  // Faster than to search the tables for each sign.
  const bool mayBeLong = std::string_view("+-/*%<>=&|").find(both.back()) != std::string_view::npos;
  if (mayBeLong && Contains(forbiddenSigns, both)) return {Kind::Forbidden, both};
  if (mayBeLong && Contains(longSigns, both)) return {Kind::Sign, both};
  const bool isAllowed = shortSigns.find(text.front()) != std::string_view::npos;
  return {isAllowed ? Kind::Sign : Kind::Forbidden, text.substr(0, 1)};
}

ValueToken FirstToken(std::string_view text) {
  const auto token = [&](Kind kind, std::size_t size) {
    return ValueToken{kind, text.substr(0, size)};
  };
  if (BeginsNumber(text)) return token(Kind::Literal, NumberSize(text));
  const std::size_t name = NameSize(text);
  if (text.substr(name, 1) == "'" && IsCharacterPrefix(text.substr(0, name))) {
    const std::size_t size = CharacterSize(text, name);
    // To C++, letters after a literal belong to it.
    const bool isWhole = size > 0 && NameSize(text.substr(size)) == 0;
    return token(isWhole ? Kind::Literal : Kind::Forbidden, isWhole ? size : text.size());
  }
  if (name > 0) return token(Kind::Name, name);
  return FirstSign(text);
}

}  // namespace

std::vector<ValueToken> ValueTokens(std::string_view word) {
  std::vector<ValueToken> tokens;
  tokens.reserve(8);
  while (!word.empty()) {
    const ValueToken token = FirstToken(word);
    tokens.push_back(token);
    if (token.kind == Kind::Forbidden) break;
    word.remove_prefix(token.text.size());
  }
  return tokens;
}

}  // namespace zentho::idlgen
