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

/// Checks one value by recursive descent. The rules of the grammar stand above the functions that
/// read them. To take is to read what may be missing. All return whether it is there. A TYPE is one
/// of C++ whose values are integers; after "sizeof", also "float" and "double".
///
/// Other casts, calls and commas make the value C++ that is not checked, because what their names
/// mean is not known.
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
  bool takeCast();
  bool readParentheses();
  bool readLiteral();
  bool readName();
  bool takeSizeOf();
  [[nodiscard]] std::size_t calleeLength() const;
  bool readCalls(std::size_t length);
  bool skipParentheses();
  bool readItem(std::string_view name);

  [[nodiscard]] bool isIntegerType(std::string_view name) const;
  [[nodiscard]] bool mayBeCpp(std::string_view name) const;

  /// Returns the next token, or one of those that follow it. Empty after the last one.
  [[nodiscard]] std::string_view next(std::size_t ahead = 0) const {
    return at(position + ahead).text;
  }
  [[nodiscard]] bool isNext(Kind kind, std::size_t ahead = 0) const {
    return at(position + ahead).kind == kind;
  }
  [[nodiscard]] ValueToken at(std::size_t i) const {
    return i < tokens.size() ? tokens[i] : ValueToken{Kind::Sign, {}};
  }
  bool take(std::string_view sign) {
    const bool isThere = next() == sign;
    if (isThere) ++position;
    return isThere;
  }
  template <std::size_t Size>
  bool takeAny(const std::array<std::string_view, Size>& operators) {
    return Contains(operators, next()) && take(next());
  }
  [[nodiscard]] Finding finding(const Rule& rule, std::string_view part,
                                std::string advice = {}) const {
    return {&rule, word, part, {std::move(advice)}};
  }
  void warn(const Rule& rule, std::string_view part) {
    if (reported.insert(part).second) warnings.push_back(finding(rule, part));
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
  std::unordered_set<std::string_view> reported;  ///< The texts of the warnings.
};

std::vector<Finding> ValueCheck::findings() {
  if (std::optional<Finding> error = wrongToken()) return {*std::move(error)};
  const bool isValue = readValue() && position == tokens.size();
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
  if (!enumInPlaceOfItem.empty()) return finding(rules::typeAsItem, enumInPlaceOfItem);
  const auto isItemPath = [&](std::size_t i) {
    return at(i).kind == Kind::Name && at(i + 1).text == "." && at(i + 2).kind == Kind::Name;
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

/// value = operand { BINARY operand }
bool ValueCheck::readValue() {
  do {
    if (!readOperand()) return false;
  } while (takeAny(binaryOperators));
  return true;
}

/// operand = { UNARY | cast } ( parentheses | name | LITERAL )
bool ValueCheck::readOperand() {
  while (takeAny(unaryOperators) || takeCast()) continue;
  if (next() == "(") return readParentheses();
  return isNext(Kind::Name) ? readName() : readLiteral();
}

/// cast = "(" ( TYPE | NAME ) ")"
///
/// Before a sign, as in `(X)-1`, a NAME makes a cast only if it is known to be an enum.
bool ValueCheck::takeCast() {
  if (next() != "(" || !isNext(Kind::Name, 1) || next(2) != ")") return false;
  const std::string_view name = next(1);
  const std::string_view after = next(3);
  const bool isBeforeOperand =
      !after.empty() && after != ")" && after != "," && !Contains(binaryOperators, after);
  const bool isOther = mayBeCpp(name) && (isBeforeOperand || meaningOf(name) == Meaning::Type);
  if (!isOther && !isIntegerType(name)) return false;
  isUnchecked = isUnchecked || isOther;
  position += 3;
  return true;
}

/// parentheses = "(" value { "," value } ")"
bool ValueCheck::readParentheses() {
  constexpr std::size_t maxDepth = 256;  // That of clang++.
  if (next() != "(") return false;
  if (depth == maxDepth) return skipParentheses();
  ++depth;
  do {
    isUnchecked = isUnchecked || next() == ",";
    ++position;
    if (!readValue()) return false;
  } while (next() == ",");
  --depth;
  return take(")");
}

bool ValueCheck::readLiteral() {
  if (!isNext(Kind::Literal)) return false;
  const std::string_view literal = next();
  const LiteralForm form = FormOfLiteral(literal);
  if (form == LiteralForm::Unportable) {
    warn(BeginsNumber(literal) ? rules::tooLarge : rules::wideCharacter, literal);
  }
  ++position;
  return form != LiteralForm::Floating;
}

/// name = "sizeof" "(" TYPE ")" | calls | TYPE parentheses | NAME
bool ValueCheck::readName() {
  if (takeSizeOf()) return true;
  if (const std::size_t size = calleeLength(); size > 0) return readCalls(size);
  const std::string_view name = next();
  ++position;
  if (isIntegerType(name)) return readParentheses();
  return IsKeyword(name) ? name == "true" || name == "false" : readItem(name);
}

bool ValueCheck::takeSizeOf() {
  const bool isType = next() == "sizeof" && next(1) == "(" && IsCppType(next(2)) && next(3) == ")";
  if (isType) position += 4;
  return isType;
}

/// callee = NAME [ "<" ( NAME | LITERAL ) ">" ]
///
/// Returns how many tokens it has, or 0 if no call comes next.
std::size_t ValueCheck::calleeLength() const {
  const bool isArgument = isNext(Kind::Name, 2) || isNext(Kind::Literal, 2);
  const bool isTemplate = next(1) == "<" && isArgument && next(3) == ">";
  const std::size_t size = isTemplate ? 4 : 1;
  if (next(size) != "(") return 0;
  const std::string_view name = next();
  const Keyword keyword = FindKeyword(name);
  const bool isCall = keyword == Keyword::Call || name == "float" || name == "double";
  const bool isKeyword = isTemplate ? keyword == Keyword::Cast : isCall;
  return isKeyword || mayBeCpp(name) ? size : 0;
}

/// calls = callee "(" ... ")" { "(" ... ")" }
bool ValueCheck::readCalls(std::size_t length) {
  position += length;
  while (next() == "(") {
    if (!skipParentheses()) return false;
  }
  return true;
}

/// Looks only for the end of the parentheses that open here.
bool ValueCheck::skipParentheses() {
  isUnchecked = true;
  std::size_t open = 0;
  for (; position < tokens.size(); ++position) {
    if (next() == "(") ++open;
    if (next() == ")") --open;
    if (open == 0) return take(")");
  }
  return false;
}

/// Looks up the name that has been read.
bool ValueCheck::readItem(std::string_view name) {
  const Meaning result = meaningOf(name);
  if (result == Meaning::Type) {
    if (next() != ".") enumInPlaceOfItem = name;
    return false;
  }
  const bool isElsewhere = result == Meaning::Elsewhere && FindKeyword(name) == Keyword::None;
  if (result != Meaning::Item && !isElsewhere && !IsIntegerMacro(name)) {
    warn(rules::notAnItem, name);
  }
  return true;
}

bool ValueCheck::isIntegerType(std::string_view name) const {
  const bool isFloating = name == "float" || name == "double";
  return IsCppType(name) && !isFloating && meaningOf(name) != Meaning::Item;
}

/// Returns whether the name may be a function or a type that C++ does not have by itself.
bool ValueCheck::mayBeCpp(std::string_view name) const {
  return !IsKeyword(name) && !IsCppType(name) && !IsIntegerMacro(name) &&
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
