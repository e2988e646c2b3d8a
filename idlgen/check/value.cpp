#include "check/value.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "check/characters.h"
#include "check/cpp_words.h"
#include "check/word_forms.h"

namespace zentho {
namespace {

constexpr std::size_t npos = std::string_view::npos;

bool IsIntegerSuffix(std::string_view suffix) {
  constexpr std::string_view letters = "uU";
  if (!suffix.empty() && letters.find(suffix.front()) != npos) {
    suffix.remove_prefix(1);
  } else if (!suffix.empty() && letters.find(suffix.back()) != npos) {
    suffix.remove_suffix(1);
  }
  constexpr std::array<std::string_view, 7> sizes = {"", "l", "L", "ll", "LL", "z", "Z"};
  return std::find(sizes.begin(), sizes.end(), suffix) != sizes.end();
}

/// Removes the prefix of an integer literal. Returns its base.
unsigned TakeBase(std::string_view& literal) {
  if (literal.size() < 2 || literal[0] != '0') return 10;
  const char letter = literal[1];
  const bool isHexadecimal = letter == 'x' || letter == 'X';
  if (!isHexadecimal && letter != 'b' && letter != 'B') return 8;
  literal.remove_prefix(2);
  return isHexadecimal ? 16 : 2;
}

/// Returns the value of a digit, or a large number.
unsigned DigitValue(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  const char lower = static_cast<char>(digit | 0x20);
  return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a') + 10 : 99;
}

/// Returns whether an integer literal takes more than 64 bits, or nothing if it is none.
std::optional<bool> IsLargeInteger(std::string_view literal) {
  const unsigned base = TakeBase(literal);
  std::uint64_t value = 0;
  bool isLarge = false;
  bool afterDigit = false;
  std::size_t size = 0;
  for (; size < literal.size(); ++size) {
    if (literal[size] == '\'' && afterDigit) {
      afterDigit = false;
      continue;
    }
    const unsigned digit = DigitValue(literal[size]);
    if (digit >= base) break;
    isLarge = isLarge || value > (std::numeric_limits<std::uint64_t>::max() - digit) / base;
    value = value * base + digit;
    afterDigit = true;
  }
  if (!afterDigit || !IsIntegerSuffix(literal.substr(size))) return std::nullopt;
  return isLarge;
}

class ValueReader {
 public:
  explicit ValueReader(std::string_view word) : whole(word), rest(word) {}

  Value read() {
    // Two question marks may begin a trigraph.
    value.isValid = rest.find("??") == npos;
    while (value.isValid && !rest.empty()) value.isValid = readToken();
    value.isValid = value.isValid && last != Token::Operator && depth == 0;
    return std::move(value);
  }

 private:
  enum class Token { Operator, Opening, Call, Literal, Name, Type, Closing, Cast };

  bool readToken() {
    const char first = rest.front();
    if (first == '\'') return readCharacter(0);
    if (first == '(') return readOpening();
    if (first == ')') return readClosing();
    if (first == ',') return depth > 0 && endsOperand() && take(1, Token::Operator);
    if (DigitValue(first) < 10) return readNumber();
    if (IsNameCharacter(FirstCharacter(rest).code)) return readName();
    return readOperator();
  }

  /// Removes the next bytes. Returns true.
  bool take(std::size_t size, Token token) {
    rest.remove_prefix(size);
    last = token;
    return true;
  }

  [[nodiscard]] bool endsOperand() const {
    return last != Token::Operator && last != Token::Opening && last != Token::Call;
  }

  /// Returns whether an operand may follow: also after a cast, such as `(int)`.
  [[nodiscard]] bool mayBeOperand() const { return !endsOperand() || last == Token::Cast; }

  bool readOpening() {
    if (last == Token::Literal || last == Token::Closing) return false;
    ++depth;
    return take(1, last == Token::Name ? Token::Call : Token::Opening);
  }

  bool readClosing() {
    if (depth == 0 || !(endsOperand() || last == Token::Call)) return false;
    --depth;
    return take(1, last == Token::Type ? Token::Cast : Token::Closing);
  }

  bool readNumber() {
    if (!mayBeOperand()) return false;
    std::size_t size = 0;
    // A sign behind an 'e' or 'p' belongs to it, also in 0xE+1.
    const auto isPart = [&](char byte, char before) {
      const bool isSign = byte == '+' || byte == '-';
      return IsNameCharacter(static_cast<unsigned char>(byte)) || byte == '\'' || byte == '.' ||
             (isSign && std::string_view("eEpP").find(before) != npos);
    };
    while (size < rest.size() && isPart(rest[size], rest[size > 0 ? size - 1 : 0])) ++size;
    const std::optional<bool> isLarge = IsLargeInteger(rest.substr(0, size));
    if (!isLarge.has_value()) return false;
    if (*isLarge && value.tooLarge.empty()) value.tooLarge = rest.substr(0, size);
    return take(size, Token::Literal);
  }

  bool readName() {
    std::size_t size = 0;
    while (size < rest.size()) {
      const Character next = FirstCharacter(rest.substr(size));
      if (!next.valid || !IsNameCharacter(next.code)) break;
      size += next.size;
    }
    const std::string_view name = rest.substr(0, size);
    constexpr std::array<std::string_view, 4> prefixes = {"L", "u", "U", "u8"};
    if (rest.substr(size, 1) == "'") {
      const bool isPrefix = std::find(prefixes.begin(), prefixes.end(), name) != prefixes.end();
      return isPrefix && readCharacter(size);
    }
    const std::size_t position = whole.size() - rest.size();
    const char before = position == 0 ? '\0' : whole[position - 1];
    const char after = size < rest.size() ? rest[size] : '\0';
    const bool isEnclosed = (before == '(' && after == ')') || (before == '<' && after == '>');
    const bool mayBeType = isEnclosed || after == '(';
    switch (FindKeyword(name)) {
      case Keyword::Operator: {
        const bool isUnary = name == "not" || name == "compl";
        return (isUnary ? mayBeOperand() : endsOperand()) && take(size, Token::Operator);
      }
      case Keyword::Other:
        return false;
      case Keyword::Type:
        if (!mayBeType) return false;
        break;
      case Keyword::Operand:
        if (name != "true" && name != "false" && after != '(' && after != '<') return false;
        break;
      case Keyword::Cpp20:
      case Keyword::None:
        (mayBeType ? value.types : value.names).push_back(name);
        break;
    }
    if (size == 0 || !mayBeOperand()) return false;
    return take(size, isEnclosed ? Token::Type : Token::Name);
  }

  /// Reads a character literal with a prefix of this size.
  bool readCharacter(std::size_t prefix) {
    if (!mayBeOperand()) return false;
    std::size_t end = prefix + 1;
    while (end < rest.size() && rest[end] != '\'') {
      const bool isEscape = rest[end] == '\\';
      const std::string_view letter = rest.substr(end + 1, 1);
      const bool isNumeric = !letter.empty() && std::string_view("xuU").find(letter[0]) != npos;
      if (isEscape && isNumeric && (end + 2 >= rest.size() || DigitValue(rest[end + 2]) > 15)) {
        return false;
      }
      end += isEscape ? 2 : 1;
    }
    if (end >= rest.size() || end == prefix + 1) return false;
    const std::string_view literal = rest.substr(0, end + 1);
    if (HasControlCharacter(literal)) return false;
    const bool isWide =
        std::any_of(literal.begin(), literal.end(), [](char byte) { return (byte & 0x80) != 0; }) ||
        literal.find("\\u") != npos || literal.find("\\U") != npos;
    if (isWide && literal.substr(0, 2) == "u8") return false;
    if (isWide && prefix == 0 && value.wideCharacter.empty()) value.wideCharacter = literal;
    return take(literal.size(), Token::Literal);
  }

  bool readOperator() {
    constexpr std::array<std::string_view, 4> forbidden = {"//", "/*", "<%", "%>"};
    constexpr std::array<std::string_view, 8> doubles = {
        "==", "!=", "<=", ">=", "<<", ">>", "&&", "||"};
    const std::string_view two = rest.substr(0, 2);
    if (std::find(forbidden.begin(), forbidden.end(), two) != forbidden.end()) return false;
    const bool isDouble = std::find(doubles.begin(), doubles.end(), two) != doubles.end();
    const std::string_view all = isDouble ? "=!<>&|" : "+-*/%&|^<>?~!";
    const char first = rest.front();
    if (all.find(first) == npos) return false;
    const bool isUnary = !isDouble && std::string_view("+-~!").find(first) != npos;
    const bool isBinary = first != '~' && (first != '!' || isDouble);
    const bool fits = (isUnary && mayBeOperand()) || (isBinary && endsOperand());
    return fits && take(isDouble ? 2 : 1, Token::Operator);
  }

  std::string_view whole;
  std::string_view rest;
  std::size_t depth = 0;  ///< The number of open parentheses.
  Token last = Token::Operator;
  Value value;
};

}  // namespace

Value ReadValue(std::string_view word) {
  return ValueReader(word).read();
}

}  // namespace zentho
