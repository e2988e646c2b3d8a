#include "check/value.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "check/literals.h"
#include "check/value_reader.h"
#include "check/value_tokens.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

using Kind = ValueToken::Kind;

constexpr std::string_view writeNumber = "write the number of the character";

/// Returns the advice to write a text, if it is short and all of it can be seen.
std::string WriteAdvice(const std::string& text) {
  const bool isVisible =
      std::all_of(text.begin(), text.end(), [](char byte) { return byte > ' ' && byte <= '~'; });
  return text.size() <= 40 && isVisible ? "write \"" + text + '"' : std::string();
}

/// Returns what to do about an invalid number.
std::string NumberAdvice(std::string_view number) {
  if (number[0] == '0' && number.find_first_not_of("0123456789'") == std::string_view::npos) {
    return R"(numbers that begin with "0" are octal)";
  }
  std::string separated(number);
  std::replace(separated.begin(), separated.end(), '_', '\'');
  if (FormOfNumber(separated) == NumberForm::Integer) return WriteAdvice(separated);
  const std::size_t sign = number.find_first_of("+-");
  const std::string first(number.substr(0, sign));
  if (sign == std::string_view::npos || FormOfNumber(first) != NumberForm::Integer) return {};
  return WriteAdvice("(" + first + ")" + std::string(number.substr(sign)));
}

/// Returns the error in the first token that is wrong by itself.
std::optional<ValueFault> WrongToken(std::string_view word, const std::vector<ValueToken>& tokens) {
  for (const auto& [kind, text] : tokens) {
    if (kind == Kind::Forbidden) {
      const bool isCharacter = text.find('\'') != std::string_view::npos;
      return ValueFault{&rules::notAValue, word, std::string(isCharacter ? writeNumber : "")};
    }
    if (kind == Kind::Character && FormOfCharacter(text) == CharacterForm::Invalid) {
      return ValueFault{&rules::notAValue, text, std::string(writeNumber)};
    }
    if (kind == Kind::Number && FormOfNumber(text) == NumberForm::Invalid) {
      std::string advice = NumberAdvice(text);
      return ValueFault{&rules::notAValue, advice.empty() ? word : text, std::move(advice)};
    }
  }
  return std::nullopt;
}

/// Returns the error of a value whose tokens do not fit together.
ValueFault GrammarError(std::string_view word, const std::vector<ValueToken>& tokens,
                        const NameLookup& kindOf) {
  const auto isItemPath = [&](std::size_t i) {
    return i + 2 < tokens.size() && tokens[i].kind == Kind::Name && tokens[i + 1].text == "." &&
           tokens[i + 2].kind == Kind::Name;
  };
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    std::size_t last = i;
    while (isItemPath(last)) last += 2;
    if (last == i) continue;
    const std::string_view first = tokens[i].text;
    const std::string_view item = tokens[last].text;
    const auto size = static_cast<std::size_t>(item.data() - first.data()) + item.size();
    const bool isItem = kindOf(item) == NameKind::Item;
    std::string advice = isItem ? WriteAdvice(std::string(item)) : std::string();
    return {&rules::notAValue, {first.data(), size}, std::move(advice)};
  }
  return {&rules::notAValue, word, {}};
}

/// Returns whether the word is a number of at most 64 bits, as most values are.
bool IsPlainNumber(std::string_view word) {
  if (word.size() > 1 && word.front() == '-') word.remove_prefix(1);
  const auto isDigit = [](char byte) { return byte >= '0' && byte <= '9'; };
  const auto isHexadecimal = [&](char byte) {
    return isDigit(byte) || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'f');
  };
  if (word.size() > 18) return false;
  if (word.size() > 2 && word.substr(0, 2) == "0x") {
    return std::all_of(word.begin() + 2, word.end(), isHexadecimal);
  }
  return (word == "0" || word.front() != '0') && std::all_of(word.begin(), word.end(), isDigit);
}

}  // namespace

std::vector<ValueFault> CheckValue(std::string_view word, const NameLookup& kindOf,
                                   bool hasIntegerMacros) {
  const bool isPlain =
      IsPlainNumber(word) || (IsIdentifier(word) && kindOf(word) == NameKind::Item);
  if (isPlain) return {};
  const std::vector<ValueToken> tokens = ValueTokens(word);
  if (std::optional<ValueFault> fault = WrongToken(word, tokens)) return {std::move(*fault)};
  ValueReading reading = ReadValue(tokens, kindOf, hasIntegerMacros);
  if (!reading.isValue && reading.typeError.has_value()) return {*std::move(reading.typeError)};
  if (!reading.isValue) return {GrammarError(word, tokens, kindOf)};
  if (reading.isUnchecked) return {{&rules::uncheckedValue, word, {}}};
  return std::move(reading.warnings);
}

}  // namespace zentho::idlgen
