#include "check/value_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_set>
#include <utility>

#include "check/literals.h"
#include "check/value_tokens.h"
#include "check/value_types.h"
#include "words/cpp_words.h"
#include "words/tables.h"

namespace zentho::idlgen {
namespace {

using Kind = ValueToken::Kind;

constexpr auto unaryOperators = Table<std::string_view>({"+", "-", "~", "!", "not", "compl"});
constexpr auto arithmeticOperators = Table<std::string_view>(
    {"+", "-", "*", "/", "%", "&", "|", "^", "<<", ">>", "bitand", "bitor", "xor"});
/// Their results are integers, whatever they compare.
constexpr auto logicalOperators =
    Table<std::string_view>({"<", ">", "<=", ">=", "==", "!=", "&&", "||", "and", "or", "not_eq"});

template <std::size_t Size>
bool Contains(const std::array<std::string_view, Size>& table, std::string_view text) {
  return std::find(table.begin(), table.end(), text) != table.end();
}

/// Reads the tokens of one value, by this grammar:
///
///     list    = binary { "," binary }
///     binary  = unary { OPERATOR unary }
///     unary   = { OPERATOR | "sizeof" | "(" TYPE ")" } operand
///     operand = LITERAL | NAME | "(" list ")" | "sizeof" "(" TYPE ")" | TYPE "(" list ")" | call
///
/// Skips what is in the parentheses of other calls and casts. Only if `hasTemplates`, "<" after an
/// unknown name begins the arguments of a template. Each function that reads or skips returns
/// whether it could.
class ValueReader {
 public:
  ValueReader(const std::vector<ValueToken>& valueTokens, const NameLookup& lookup, bool hasMacros,
              bool mayHaveTemplates)
      : tokens(valueTokens),
        kindOf(lookup),
        hasIntegerMacros(hasMacros),
        hasTemplates(mayHaveTemplates) {}

  ValueReading read();

 private:
  bool readList();
  bool readBinary();
  bool readUnary();
  bool readOperand();
  bool readName();
  bool readConversion(std::string_view name, TypeKind type);
  bool readLiteralMacro();
  bool readParentheses();

  /// What has been read at an opening parenthesis.
  enum class Group : std::uint8_t { Nothing, Cast, Operand };
  Group readGroup(bool isAfterSizeof);

  bool skipCalls();
  bool skipTemplate();
  bool skipTypeInParentheses();
  bool skipParentheses();

  [[nodiscard]] TypeKind typeOf(std::string_view name) const {
    return FindTypeKind(name, kindOf, hasIntegerMacros);
  }
  [[nodiscard]] bool beginsOperand(std::size_t i) const;

  /// Notes that a type is used. Returns whether it can be.
  bool useType(std::string_view name, TypeKind type);

  [[nodiscard]] std::string_view textAt(std::size_t i) const {
    return i < tokens.size() ? tokens[i].text : std::string_view();
  }
  [[nodiscard]] bool isAt(std::size_t i, Kind kind) const {
    return i < tokens.size() && tokens[i].kind == kind;
  }
  bool take(std::string_view text) {
    const bool isNext = textAt(position) == text;
    if (isNext) ++position;
    return isNext;
  }
  void warn(const Rule& rule, std::string_view text) {
    if (told.insert(text).second) result.warnings.push_back({&rule, text, {}});
  }

  const std::vector<ValueToken>& tokens;
  const NameLookup& kindOf;
  bool hasIntegerMacros;
  bool hasTemplates;
  std::size_t position = 0;  ///< Of the next token.
  std::size_t depth = 0;     ///< The number of open parentheses.

  bool hasSkipped = false;
  bool hasNonInteger = false;  ///< Whether an operand is a floating-point number, for example.
  bool makesInteger = false;   ///< Whether anything makes integers of those.
  ValueReading result;
  std::unordered_set<std::string_view> told;  ///< The texts of the warnings.
};

ValueReading ValueReader::read() {
  const bool isRead = readBinary() && position == tokens.size();
  result.isValue = isRead && (makesInteger || !hasNonInteger);
  result.isUnchecked = hasSkipped || hasNonInteger;
  return std::move(result);
}

bool ValueReader::readList() {
  if (!readBinary()) return false;
  while (take(",")) {
    hasSkipped = true;
    if (!readBinary()) return false;
  }
  return true;
}

bool ValueReader::readBinary() {
  while (readUnary()) {
    const std::string_view text = textAt(position);
    const bool isLogical = Contains(logicalOperators, text);
    if (!isLogical && !Contains(arithmeticOperators, text)) return true;
    makesInteger = makesInteger || isLogical;
    ++position;
  }
  return false;
}

bool ValueReader::readUnary() {
  bool isAfterSizeof = false;
  while (true) {
    const std::string_view text = textAt(position);
    if (text == "(") {
      const Group group = readGroup(isAfterSizeof);
      if (group != Group::Cast) return group == Group::Operand;
    } else if (text == "sizeof" || Contains(unaryOperators, text)) {
      isAfterSizeof = text == "sizeof";
      makesInteger = makesInteger || isAfterSizeof || text == "!" || text == "not";
      ++position;
    } else {
      return readOperand();
    }
  }
}

ValueReader::Group ValueReader::readGroup(bool isAfterSizeof) {
  const Group ofType = isAfterSizeof ? Group::Operand : Group::Cast;
  const std::size_t begin = position;
  const std::string_view name = isAt(begin + 1, Kind::Name) ? textAt(begin + 1) : "";
  if (!name.empty() && textAt(begin + 2) == ")") {
    const TypeKind type = typeOf(name);
    const bool isType =
        IsUnknown(type) ? isAfterSizeof || beginsOperand(begin + 3) : type != TypeKind::None;
    if (isType) {
      position += 3;
      const bool isUsable = (isAfterSizeof && type == TypeKind::Floating) || useType(name, type);
      return isUsable ? ofType : Group::Nothing;
    }
  }
  if (readParentheses()) return Group::Operand;
  position = begin;
  const bool beginsType =
      name == "void" || name == "decltype" || (!name.empty() && typeOf(name) != TypeKind::None);
  return beginsType && skipTypeInParentheses() ? ofType : Group::Nothing;
}

bool ValueReader::readParentheses() {
  constexpr std::size_t maxDepth = 256;  // That of clang++.
  if (depth == maxDepth) return skipParentheses();
  ++depth;
  const bool isRead = take("(") && readList() && take(")");
  --depth;
  return isRead;
}

bool ValueReader::readOperand() {
  if (isAt(position, Kind::Name)) return readName();
  const std::string_view text = textAt(position);
  if (isAt(position, Kind::Number)) {
    const NumberForm form = FormOfNumber(text);
    hasNonInteger = hasNonInteger || form == NumberForm::Floating;
    if (form == NumberForm::LargeInteger) warn(rules::tooLarge, text);
  } else if (isAt(position, Kind::Character)) {
    const bool isPortable = FormOfCharacter(text) == CharacterForm::Portable;
    if (!isPortable) warn(rules::wideCharacter, text);
  } else {
    return false;
  }
  ++position;
  return true;
}

bool ValueReader::readName() {
  const std::string_view name = textAt(position);
  ++position;
  switch (FindKeyword(name)) {
    case Keyword::Literal:
      return true;
    case Keyword::Cast:
      position = AngleBracketsEnd(tokens, position);
      return position != noToken && skipCalls();
    case Keyword::Call:
      return (name != "decltype" || skipParentheses()) && skipCalls();
    case Keyword::Operator:
      return false;
    case Keyword::Other:
      hasNonInteger = true;
      return name == "nullptr";
    case Keyword::Type:
    case Keyword::Cpp20:
    case Keyword::None:
      break;
  }
  const TypeKind type = typeOf(name);
  if (type == TypeKind::None) return true;  // An item or a macro.
  if (textAt(position) == "(") {
    const bool isMacro = hasIntegerMacros && IsLiteralMacro(name);
    return isMacro ? readLiteralMacro() : readConversion(name, type);
  }
  if (hasTemplates && IsUnknown(type) && textAt(position) == "<") return skipTemplate();
  if (type == TypeKind::Integer || type == TypeKind::Floating) return false;
  if (type == TypeKind::Enum && textAt(position) != ".") {
    result.typeError = {&rules::typeAsItem, name, {}};
    return false;
  }
  if (type != TypeKind::Elsewhere) warn(rules::notAnItem, name);
  return true;
}

/// Reads the parentheses in `int(A)`. Those of an unknown name may be a call.
bool ValueReader::readConversion(std::string_view name, TypeKind type) {
  const std::size_t begin = position;
  if (!useType(name, type)) return false;
  if (textAt(begin + 1) == ")") return skipCalls();
  const bool isRead = readParentheses();
  if (!IsUnknown(type) || (isRead && textAt(position) != "(")) return isRead;
  position = begin;
  return skipCalls();
}

/// Reads the parentheses in `INT64_C(1)`.
bool ValueReader::readLiteralMacro() {
  const std::string_view number = textAt(position + 1);
  const bool isPlain = isAt(position + 1, Kind::Number) && textAt(position + 2) == ")" &&
                       number.find_first_of("uUlLzZ") == std::string_view::npos;
  if (!isPlain) return skipCalls();
  ++position;
  return readOperand() && take(")");
}

/// Skips one or more lists of arguments.
bool ValueReader::skipCalls() {
  if (!skipParentheses()) return false;
  while (textAt(position) == "(") {
    if (!skipParentheses()) return false;
  }
  return true;
}

/// Skips the arguments of a template, without a comma that would separate items, and its call.
bool ValueReader::skipTemplate() {
  const std::size_t begin = position;
  position = AngleBracketsEnd(tokens, begin);
  if (position == noToken) return false;
  for (std::size_t i = begin; i < position; ++i) {
    if (textAt(i) == "(") i = ParenthesesEnd(tokens, i) - 1;
    if (textAt(i) == ",") return false;
  }
  return skipCalls();
}

/// Skips the parentheses that open here, if there are any.
bool ValueReader::skipParentheses() {
  hasSkipped = makesInteger = true;
  position = ParenthesesEnd(tokens, position);
  return position != noToken;
}

/// No type contains a dot, so that `(Mode.IDLE)` is none.
bool ValueReader::skipTypeInParentheses() {
  const std::size_t begin = position;
  if (!skipParentheses()) return false;
  for (std::size_t i = begin; i < position; ++i) {
    if (textAt(i) == ".") return false;
  }
  return true;
}

/// Returns whether the token can only begin an operand, but not follow one.
bool ValueReader::beginsOperand(std::size_t i) const {
  const std::string_view text = textAt(i);
  if (isAt(i, Kind::Name)) {
    return !Contains(arithmeticOperators, text) && !Contains(logicalOperators, text);
  }
  return isAt(i, Kind::Number) || isAt(i, Kind::Character) || text == "(" || text == "~" ||
         text == "!";
}

bool ValueReader::useType(std::string_view name, TypeKind type) {
  switch (type) {
    case TypeKind::Floating:
      hasNonInteger = true;
      return true;
    case TypeKind::Unusable:
      result.typeError = {&rules::unusableType, name, {}};
      return false;
    case TypeKind::Later:
      hasSkipped = true;
      break;
    case TypeKind::Unknown:
      warn(rules::notAnItem, name);
      break;
    case TypeKind::None:
    case TypeKind::Integer:
    case TypeKind::Enum:
    case TypeKind::Elsewhere:
      break;
  }
  makesInteger = true;
  return true;
}

}  // namespace

ValueReading ReadValue(const std::vector<ValueToken>& tokens, const NameLookup& kindOf,
                       bool hasIntegerMacros) {
  ValueReading reading = ValueReader(tokens, kindOf, hasIntegerMacros, false).read();
  if (reading.isValue) return reading;
  ValueReading other = ValueReader(tokens, kindOf, hasIntegerMacros, true).read();
  return other.isValue ? std::move(other) : std::move(reading);
}

}  // namespace zentho::idlgen
