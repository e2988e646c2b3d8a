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

bool BeginsWithDigit(std::string_view text) {
  return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

/// Returns the size of the characters of a name at the beginning of the text.
std::size_t NameSize(std::string_view text) {
  std::size_t size = 0;
  while (size < text.size()) {
    const Character next = FirstCharacter(text.substr(size));
    if (!next.valid || !IsNameCharacter(next.code)) break;
    size += next.size;
  }
  return size;
}

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

/// Signs that C++ reads as one token. Longer ones come first.
constexpr auto longSigns = Table<std::string_view>(
    {"<=>", "<<=", ">>=", "->*", "...", "==", "!=", "<=", ">=", "<<", ">>", "&&", "||", "->", ".*",
     "++",  "--",  "+=",  "-=",  "*=",  "/=", "%=", "^=", "&=", "|=", "//", "/*", "<%", "%>"});

std::string_view SignAt(std::string_view text) {
  if (text.size() < 2 || std::string_view("=<>&|+-*/%.").find(text[1]) == std::string_view::npos) {
    return text.substr(0, 1);
  }
  const auto* const sign =
      std::find_if(longSigns.begin(), longSigns.end(),
                   [&](std::string_view row) { return text.substr(0, row.size()) == row; });
  return text.substr(0, sign == longSigns.end() ? 1 : sign->size());
}

bool IsAllowed(std::string_view sign) {
  if (sign.size() == 1)
    return std::string_view("+-*/%&|^<>~!.,()[]").find(sign) != std::string_view::npos;
  constexpr auto forbidden = Table<std::string_view>({"++", "--", "//", "/*", "<%", "%>"});
  constexpr auto comparisons = Table<std::string_view>({"==", "!=", "<=", ">=", "<=>"});
  const auto isIn = [&](const auto& signs) {
    return std::find(signs.begin(), signs.end(), sign) != signs.end();
  };
  return sign.back() == '=' ? isIn(comparisons) : !isIn(forbidden);
}

ValueToken FirstToken(std::string_view text) {
  const auto token = [&](Kind kind, std::size_t size) {
    return ValueToken{kind, text.substr(0, size)};
  };
  if (BeginsWithDigit(text) || (text.front() == '.' && BeginsWithDigit(text.substr(1)))) {
    return token(Kind::Number, NumberSize(text));
  }
  const std::size_t name = NameSize(text);
  if (text.substr(name, 1) == "'" && IsCharacterPrefix(text.substr(0, name))) {
    const std::size_t size = CharacterSize(text, name);
    // To C++, letters after a literal belong to it.
    const bool isWhole = size > 0 && NameSize(text.substr(size)) == 0;
    return token(isWhole ? Kind::Character : Kind::Forbidden, isWhole ? size : text.size());
  }
  if (name > 0) return token(Kind::Name, name);
  const std::string_view sign = SignAt(text);
  return {IsAllowed(sign) ? Kind::Sign : Kind::Forbidden, sign};
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

std::size_t ParenthesesEnd(const std::vector<ValueToken>& tokens, std::size_t begin) {
  std::size_t open = 0;
  for (std::size_t i = begin; i < tokens.size(); ++i) {
    if (tokens[i].text == "(") ++open;
    if (tokens[i].text == ")" && open > 0) --open;
    if (open == 0) return i == begin ? noToken : i + 1;
  }
  return noToken;
}

std::size_t AngleBracketsEnd(const std::vector<ValueToken>& tokens, std::size_t begin) {
  std::size_t open = 0;
  std::size_t i = begin;
  while (i < tokens.size()) {
    const std::string_view text = tokens[i].text;
    if (text == "(") {
      i = ParenthesesEnd(tokens, i);
      continue;
    }
    ++i;
    if (text == "<") ++open;
    const std::size_t closed = text == ">" ? 1 : text == ">>" ? 2 : 0;
    if (open == 0 || closed > open || text == ")") return noToken;
    open -= closed;
    if (open == 0) return i;
  }
  return noToken;
}

}  // namespace zentho::idlgen
