#include "check/value.h"

#include <array>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "check/literals.h"
#include "check/value_tokens.h"
#include "words/cpp_words.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

using Kind = ValueToken::Kind;

constexpr auto unaryOperators = Table<std::string_view>({"+", "-", "~", "!", "not", "compl"});
constexpr auto binaryOperators = Table<std::string_view>(
    {"+",   "-", "*", "/",  "%",  "&",  "|",  "^",  "<<", ">>",  "bitand", "bitor",
     "xor", "<", ">", "<=", ">=", "==", "!=", "&&", "||", "and", "or",     "not_eq"});

/// Returns whether the word is no keyword, or one that C++17 does not have.
bool IsName(std::string_view word) {
  const Keyword keyword = FindKeyword(word);
  return keyword == Keyword::None || keyword == Keyword::Cpp20;
}

/// Checks one value, by this grammar:
///
///     value   = operand { BINARY operand }
///     operand = { UNARY | "(" TYPE ")" | "(" NAME ")" } ( LITERAL | NAME | "sizeof" "(" TYPE ")"
///             | TYPE "(" list ")" | "(" list ")" | call )
///     list    = value { "," value }
///     call    = NAME [ "<" ( NAME | LITERAL ) ">" ] "(" ... ")" { "(" ... ")" }
///
/// A TYPE is one of C++ whose values are integers. Other casts, calls and commas make the value C++
/// that is not checked, because what their names mean is not known. What stands in the parentheses
/// of a call is not read, but ends there. Each function that takes or reads returns whether it
/// could.
class ValueCheck {
 public:
  ValueCheck(std::string_view value, std::size_t index, const MeaningOf& lookup)
      : text(value), word(index), meaningOf(lookup), tokens(ValueTokens(value)) {}

  std::vector<Finding> findings();

 private:
  [[nodiscard]] std::optional<Finding> wrongToken() const;
  [[nodiscard]] Finding grammarError() const;

  bool readValue();
  bool readOperand();
  bool readLiteral();
  bool readName();
  bool readItem(std::string_view name);
  bool readParentheses();
  bool takeCast();
  bool takeSizeOfType();
  [[nodiscard]] std::size_t callBegin() const;
  bool skipCalls(std::size_t begin);
  bool skipParentheses();

  [[nodiscard]] bool isIntegerType(std::string_view name) const;
  [[nodiscard]] bool mayBeCpp(std::string_view name) const;

  [[nodiscard]] std::string_view textAt(std::size_t i) const {
    return i < tokens.size() ? tokens[i].text : std::string_view();
  }
  [[nodiscard]] bool isAt(std::size_t i, Kind kind) const {
    return i < tokens.size() && tokens[i].kind == kind;
  }
  bool take(std::string_view sign) {
    const bool isNext = textAt(position) == sign;
    if (isNext) ++position;
    return isNext;
  }
  template <std::size_t Size>
  bool takeAny(const std::array<std::string_view, Size>& operators) {
    return Contains(operators, textAt(position)) && take(textAt(position));
  }
  [[nodiscard]] Finding finding(const Rule& rule, std::string_view part,
                                std::string advice = {}) const {
    return {&rule, word, part, {std::move(advice)}};
  }
  void warn(const Rule& rule, std::string_view part) {
    if (told.insert(part).second) warnings.push_back(finding(rule, part));
  }

  std::string_view text;
  std::size_t word;
  const MeaningOf& meaningOf;
  std::vector<ValueToken> tokens;
  std::size_t position = 0;  ///< Of the next token.
  std::size_t depth = 0;     ///< The number of open parentheses.

  bool isUnchecked = false;
  std::string_view enumInPlaceOfItem;  ///< If there is one.
  std::vector<Finding> warnings;
  std::unordered_set<std::string_view> told;  ///< The texts of the warnings.
};

std::vector<Finding> ValueCheck::findings() {
  if (std::optional<Finding> error = wrongToken()) return {*std::move(error)};
  const bool isValue = readValue() && position == tokens.size();
  if (!isValue && !enumInPlaceOfItem.empty())
    return {finding(rules::typeAsItem, enumInPlaceOfItem)};
  if (!isValue) return {grammarError()};
  if (isUnchecked) return {finding(rules::uncheckedValue, text)};
  return std::move(warnings);
}

/// Returns the error in the first token that is wrong by itself.
std::optional<Finding> ValueCheck::wrongToken() const {
  for (const auto& [kind, token] : tokens) {
    if (kind == Kind::Forbidden) {
      const bool isCharacter = token.find('\'') != std::string_view::npos;
      return finding(rules::notAValue, text, isCharacter ? LiteralAdvice(token) : std::string());
    }
    if (kind != Kind::Literal || FormOfLiteral(token) != LiteralForm::Invalid) continue;
    const std::string advice = LiteralAdvice(token);
    return finding(rules::notAValue, advice.empty() ? text : token, advice);
  }
  return std::nullopt;
}

/// Returns the error of a value whose tokens do not fit together.
Finding ValueCheck::grammarError() const {
  const auto isItemPath = [&](std::size_t i) {
    return isAt(i, Kind::Name) && textAt(i + 1) == "." && isAt(i + 2, Kind::Name);
  };
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    std::size_t last = i;
    while (isItemPath(last)) last += 2;
    if (last == i) continue;
    const std::string_view first = tokens[i].text;
    const std::string_view item = tokens[last].text;
    const auto size = static_cast<std::size_t>(item.data() - first.data()) + item.size();
    const bool isItem = meaningOf(item) == Meaning::Item;
    std::string advice = isItem ? WriteAdvice(std::string(item)) : std::string();
    return finding(rules::notAValue, {first.data(), size}, std::move(advice));
  }
  return finding(rules::notAValue, text);
}

bool ValueCheck::readValue() {
  do {
    if (!readOperand()) return false;
  } while (takeAny(binaryOperators));
  return true;
}

bool ValueCheck::readOperand() {
  while (takeAny(unaryOperators) || takeCast()) continue;
  if (textAt(position) == "(") return readParentheses();
  return isAt(position, Kind::Name) ? readName() : readLiteral();
}

bool ValueCheck::readLiteral() {
  const std::string_view literal = textAt(position);
  if (!isAt(position, Kind::Literal)) return false;
  const LiteralForm form = FormOfLiteral(literal);
  if (form == LiteralForm::Unportable) {
    warn(BeginsNumber(literal) ? rules::tooLarge : rules::wideCharacter, literal);
  }
  ++position;
  return form != LiteralForm::Floating;
}

bool ValueCheck::readName() {
  if (takeSizeOfType()) return true;
  if (const std::size_t begin = callBegin(); begin > 0) return skipCalls(begin);
  const std::string_view name = textAt(position);
  ++position;
  if (isIntegerType(name)) return readParentheses();
  return IsName(name) ? readItem(name) : name == "true" || name == "false";
}

/// Looks up the name that has been read.
bool ValueCheck::readItem(std::string_view name) {
  const Meaning result = meaningOf(name);
  if (result == Meaning::Type) {
    if (textAt(position) != ".") enumInPlaceOfItem = name;
    return false;
  }
  const bool isElsewhere = result == Meaning::Elsewhere && FindKeyword(name) == Keyword::None;
  if (result != Meaning::Item && !isElsewhere && !IsIntegerMacro(name))
    warn(rules::notAnItem, name);
  return true;
}

bool ValueCheck::readParentheses() {
  constexpr std::size_t maxDepth = 256;  // That of clang++.
  if (textAt(position) != "(") return false;
  if (depth == maxDepth) return skipParentheses();
  ++depth;
  do {
    isUnchecked = isUnchecked || textAt(position) == ",";
    ++position;
    if (!readValue()) return false;
  } while (textAt(position) == ",");
  --depth;
  return take(")");
}

/// Takes the type in `(int)1` or `(X)1`. `(X)-1` is a cast only if X is known to be an enum.
bool ValueCheck::takeCast() {
  const std::string_view name = textAt(position + 1);
  const std::string_view next = textAt(position + 3);
  const bool isName =
      textAt(position) == "(" && isAt(position + 1, Kind::Name) && textAt(position + 2) == ")";
  if (!isName) return false;
  const bool isBefore =
      !next.empty() && next != ")" && next != "," && !Contains(binaryOperators, next);
  const bool isOther = mayBeCpp(name) && (isBefore || meaningOf(name) == Meaning::Type);
  if (!isOther && !isIntegerType(name)) return false;
  isUnchecked = isUnchecked || isOther;
  position += 3;
  return true;
}

bool ValueCheck::takeSizeOfType() {
  const bool isType = textAt(position) == "sizeof" && textAt(position + 1) == "(" &&
                      IsCppType(textAt(position + 2)) && textAt(position + 3) == ")";
  if (isType) position += 4;
  return isType;
}

/// Returns where the parentheses of a call begin, or 0 if there is no call.
std::size_t ValueCheck::callBegin() const {
  const std::string_view name = textAt(position);
  const bool hasTemplate = textAt(position + 1) == "<" && textAt(position + 3) == ">" &&
                           (isAt(position + 2, Kind::Name) || isAt(position + 2, Kind::Literal));
  const std::size_t begin = position + (hasTemplate ? 4 : 1);
  if (textAt(begin) != "(") return 0;
  const Keyword keyword = FindKeyword(name);
  const bool isKeyword = hasTemplate
                             ? keyword == Keyword::Cast
                             : keyword == Keyword::Call || name == "float" || name == "double";
  return isKeyword || mayBeCpp(name) ? begin : 0;
}

bool ValueCheck::skipCalls(std::size_t begin) {
  position = begin;
  while (textAt(position) == "(") {
    if (!skipParentheses()) return false;
  }
  return true;
}

/// Skips the parentheses that open here, without reading what is in them.
bool ValueCheck::skipParentheses() {
  isUnchecked = true;
  std::size_t open = 0;
  for (; position < tokens.size(); ++position) {
    if (textAt(position) == "(") ++open;
    if (textAt(position) == ")") --open;
    if (open == 0) return take(")");
  }
  return false;
}

bool ValueCheck::isIntegerType(std::string_view name) const {
  const bool isFloating = name == "float" || name == "double";
  return IsCppType(name) && !isFloating && meaningOf(name) != Meaning::Item;
}

/// Returns whether the name may be a function or a type that C++ does not have by itself.
bool ValueCheck::mayBeCpp(std::string_view name) const {
  return IsName(name) && !IsCppType(name) && !IsIntegerMacro(name) &&
         meaningOf(name) != Meaning::Item;
}

}  // namespace

std::vector<Finding> CheckValue(std::string_view text, std::size_t word,
                                const MeaningOf& meaningOf) {
  // Most values are decimal numbers that have clearly at most 64 bits, or items.
  const bool isOctal = text.size() > 1 && text.front() == '0';
  if (IsNumber(text) && text.size() <= 18 && !isOctal) return {};
  if (IsIdentifier(text) && meaningOf(text) == Meaning::Item) return {};
  return ValueCheck(text, word, meaningOf).findings();
}

}  // namespace zentho::idlgen
