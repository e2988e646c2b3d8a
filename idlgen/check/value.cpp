#include "check/value.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <unordered_set>

#include "check/cpp_words.h"
#include "check/literals.h"
#include "check/tables.h"
#include "check/value_tokens.h"
#include "check/word_forms.h"

namespace zentho {
namespace {

using Kind = ValueToken::Kind;

constexpr std::size_t npos = std::string_view::npos;

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

/// What a name is where a type may stand.
enum class TypeKind : std::uint8_t {
  None,
  Integer,
  Floating,
  Enum,
  Later,      ///< A type since C++20.
  Unusable,   ///< A type that is not complete here.
  Unknown,    ///< Perhaps a type.
  Elsewhere,  ///< Perhaps a type, and perhaps declared in another file.
};

/// Reads the tokens of one value, by this grammar:
///
///     list   = binary { "," binary }
///     binary = unary { OPERATOR unary }
///     unary  = { OPERATOR | "sizeof" | "(" TYPE ")" } operand
///     operand = LITERAL | NAME | "(" list ")" | "sizeof" "(" TYPE ")" | TYPE "(" list ")" | call
///
/// Skips what is in the parentheses of other calls and casts. Each function that reads or skips
/// returns whether it could.
class ValueReader {
 public:
  ValueReader(std::string_view value, const NameLookup& lookup, bool hasMacros)
      : word(value), kindOf(lookup), hasIntegerMacros(hasMacros), tokens(ValueTokens(value)) {}

  std::vector<ValueFault> read();

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
  bool skipTypeInParentheses();
  bool skipTypeInAngleBrackets();
  bool skipParentheses();

  [[nodiscard]] TypeKind typeOf(std::string_view name) const;
  [[nodiscard]] bool beginsOperand(std::size_t i) const;

  /// Notes that a type is used. Returns whether it can be.
  bool useType(std::string_view name, TypeKind type);

  [[nodiscard]] std::optional<ValueFault> wrongToken() const;
  [[nodiscard]] ValueFault grammarError() const;

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
    if (told.insert(text).second) warnings.push_back({&rule, text, {}});
  }

  std::string_view word;
  const NameLookup& kindOf;
  bool hasIntegerMacros;
  std::vector<ValueToken> tokens;
  std::size_t position = 0;  ///< Of the next token.
  std::size_t depth = 0;     ///< The number of open parentheses.

  bool hasSkipped = false;
  bool hasNonInteger = false;     ///< Whether an operand is a floating-point number, for example.
  bool makesInteger = false;      ///< Whether anything makes integers of those.
  std::string_view unusableType;  ///< The last one, or empty.
  std::vector<ValueFault> warnings;
  std::unordered_set<std::string_view> told;  ///< The texts of the warnings.
};

std::vector<ValueFault> ValueReader::read() {
  if (std::optional<ValueFault> fault = wrongToken()) return {*fault};
  if (!readBinary() || position < tokens.size()) return {grammarError()};
  if (hasNonInteger && !makesInteger) return {{&rules::notAValue, word, {}}};
  if (hasNonInteger || hasSkipped) return {{&rules::uncheckedValue, word, {}}};
  return warnings;
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
  const TypeKind type = name.empty() ? TypeKind::None : typeOf(name);
  const bool isUnknown = type == TypeKind::Unknown || type == TypeKind::Elsewhere;
  const bool isType =
      isUnknown ? isAfterSizeof || beginsOperand(begin + 3) : type != TypeKind::None;
  if (isType && textAt(begin + 2) == ")") {
    position += 3;
    const bool isUsable = (isAfterSizeof && type == TypeKind::Floating) || useType(name, type);
    return isUsable ? ofType : Group::Nothing;
  }
  if (readParentheses()) return Group::Operand;
  position = begin;
  const bool beginsType = type != TypeKind::None || name == "void" || name == "decltype";
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
      return skipTypeInAngleBrackets() && skipCalls();
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
  if (type == TypeKind::Integer || type == TypeKind::Floating) return false;
  if (type != TypeKind::Elsewhere) warn(rules::notAnItem, name);
  return true;
}

/// Reads the parentheses in `int(A)`. Those of an unknown name may be a call.
bool ValueReader::readConversion(std::string_view name, TypeKind type) {
  const std::size_t begin = position;
  const bool isUnknown = type == TypeKind::Unknown || type == TypeKind::Elsewhere;
  if (!useType(name, type)) return false;
  if (textAt(begin + 1) == ")") return skipCalls();
  const bool isRead = readParentheses();
  if (!isUnknown || (isRead && textAt(position) != "(")) return isRead;
  position = begin;
  return skipCalls();
}

/// Reads the parentheses in `INT64_C(1)`.
bool ValueReader::readLiteralMacro() {
  const std::string_view number = textAt(position + 1);
  const bool isPlain = isAt(position + 1, Kind::Number) && textAt(position + 2) == ")" &&
                       number.find_first_of("uUlLzZ") == npos;
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

/// Skips from an opening parenthesis, if there is one here, to its closing one.
bool ValueReader::skipParentheses() {
  if (textAt(position) != "(") return false;
  hasSkipped = makesInteger = true;
  std::size_t open = 0;
  do {
    if (textAt(position) == "(") ++open;
    if (textAt(position) == ")") --open;
    ++position;
  } while (open > 0 && position < tokens.size());
  return open == 0;
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

bool ValueReader::skipTypeInAngleBrackets() {
  std::size_t open = 0;
  while (position < tokens.size()) {
    const std::string_view text = textAt(position);
    if (text == "(") {
      if (!skipParentheses()) return false;
      continue;
    }
    ++position;
    if (text == "<") ++open;
    const std::size_t closed = text == ">" ? 1 : text == ">>" ? 2 : 0;
    if (open == 0 || closed > open || text == ")") return false;
    open -= closed;
    if (open == 0) return true;
  }
  return false;
}

TypeKind ValueReader::typeOf(std::string_view name) const {
  const Keyword keyword = FindKeyword(name);
  if (keyword == Keyword::Type) {
    return name == "float" || name == "double" ? TypeKind::Floating : TypeKind::Integer;
  }
  if (keyword != Keyword::None && keyword != Keyword::Cpp20) return TypeKind::None;
  const NameKind kind = kindOf(name);
  if (kind == NameKind::Item) return TypeKind::None;
  if (kind == NameKind::EnumType) return TypeKind::Enum;
  if (kind == NameKind::OtherType) return TypeKind::Unusable;
  if (keyword == Keyword::Cpp20) return TypeKind::Later;
  if (IsCppType(name)) return TypeKind::Integer;
  if (hasIntegerMacros && IsIntegerMacro(name)) return TypeKind::None;
  return kind == NameKind::Unknown ? TypeKind::Unknown : TypeKind::Elsewhere;
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
      unusableType = name;
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

constexpr std::string_view writeNumber = "write the number of the character";

/// Returns what to write instead of something short, such as `write "A"`.
std::string Write(std::string_view before, std::string_view text, std::string_view after = {}) {
  const bool isShort = text.size() <= 40;
  const bool isAscii =
      std::all_of(text.begin(), text.end(), [](char byte) { return byte > ' ' && byte <= '~'; });
  if (!isShort || !isAscii) return {};
  return "write \"" + std::string(before) + std::string(text) + std::string(after) + "\"";
}

/// Returns what to do about an invalid number.
std::string NumberAdvice(std::string_view number) {
  if (number[0] == '0' && number.find_first_not_of("0123456789'") == npos) {
    return R"(numbers that begin with "0" are octal)";
  }
  std::string separated(number);
  std::replace(separated.begin(), separated.end(), '_', '\'');
  if (FormOfNumber(separated) == NumberForm::Integer) return Write({}, separated);
  const std::size_t sign = number.find_first_of("+-");
  const std::string_view first = number.substr(0, sign);
  if (sign == npos || FormOfNumber(first) != NumberForm::Integer) return {};
  return Write("(", first, ")" + std::string(number.substr(sign)));
}

/// Returns the error in the first token that is wrong by itself.
std::optional<ValueFault> ValueReader::wrongToken() const {
  for (const auto& [kind, text] : tokens) {
    if (kind == Kind::Forbidden) {
      const bool isCharacter = text.find('\'') != npos;
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
ValueFault ValueReader::grammarError() const {
  if (!unusableType.empty()) return {&rules::unusableType, unusableType, {}};
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    std::size_t last = i;
    while (isAt(last, Kind::Name) && textAt(last + 1) == "." && isAt(last + 2, Kind::Name))
      last += 2;
    if (last == i) continue;
    const std::string_view first = textAt(i);
    const std::string_view item = textAt(last);
    const auto size = static_cast<std::size_t>(item.data() - first.data()) + item.size();
    return {&rules::notAValue, {first.data(), size}, Write({}, item)};
  }
  return {&rules::notAValue, word, {}};
}

/// Returns whether the word is a number of at most 64 bits, as most values are.
bool IsPlainNumber(std::string_view word) {
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
  return ValueReader(word, kindOf, hasIntegerMacros).read();
}

}  // namespace zentho
