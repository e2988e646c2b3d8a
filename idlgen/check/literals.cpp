#include "check/literals.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "words/characters.h"
#include "words/tables.h"

namespace zentho::idlgen {
namespace {

/// With -trigraphs, a backslash, which would hide the closing quote of a literal.
constexpr std::string_view trigraph = "?\?/";

/// Returns the value of a digit, or a large number.
unsigned DigitValue(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  const char lower = static_cast<char>(digit | 0x20);
  return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a') + 10 : 99;
}

bool IsIntegerSuffix(std::string_view suffix) {
  constexpr std::string_view letters = "uU";
  if (!suffix.empty() && letters.find(suffix.front()) != std::string_view::npos) {
    suffix.remove_prefix(1);
  } else if (!suffix.empty() && letters.find(suffix.back()) != std::string_view::npos) {
    suffix.remove_suffix(1);
  }
  constexpr auto sizes = Table<std::string_view>({"", "l", "L", "ll", "LL", "z", "Z"});
  return Contains(sizes, suffix);
}

/// Removes the prefix of an integer literal. Returns its base.
unsigned TakeBase(std::string_view& literal) {
  if (literal.size() < 2 || literal[0] != '0') return 10;
  const char letter = static_cast<char>(literal[1] | 0x20);
  if (letter != 'x' && letter != 'b') return 8;
  literal.remove_prefix(2);
  return letter == 'x' ? 16 : 2;
}

/// Returns whether the literal contains an exponent or a dot. 0x1e has no exponent.
bool LooksFloating(std::string_view literal) {
  const bool isHexadecimal = literal.substr(0, 2) == "0x" || literal.substr(0, 2) == "0X";
  return literal.find_first_of(isHexadecimal ? ".pP" : ".eE") != std::string_view::npos;
}

LiteralForm FormOfNumber(std::string_view literal) {
  if (LooksFloating(literal)) {
    // Not with quotes: to some compilers, one before anything but a digit begins a character.
    constexpr std::string_view characters = "0123456789abcdefABCDEFxXpPlL.+-";
    const bool isFloating = literal.find_first_not_of(characters) == std::string_view::npos;
    return isFloating ? LiteralForm::Floating : LiteralForm::Invalid;
  }
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
  const std::string_view suffix = literal.substr(size);
  if (!afterDigit || !IsIntegerSuffix(suffix)) return LiteralForm::Invalid;
  const bool isSigned = base == 10 && (suffix == "z" || suffix == "Z");
  isLarge = isLarge || (isSigned && value > std::numeric_limits<std::int64_t>::max());
  return isLarge ? LiteralForm::Unportable : LiteralForm::Portable;
}

/// What a literal with a prefix can hold.
struct Prefix {
  std::string_view text;
  std::uint64_t maxNumber;  ///< The greatest number in an escape.
  char32_t maxCharacter;    ///< The greatest character.
  LiteralForm otherwise;    ///< Of a greater character, or of too many.
};

constexpr auto prefixes = Table<Prefix>({{"", 0xff, 0x7f, LiteralForm::Unportable},
                                         {"u8", 0xff, 0x7f, LiteralForm::Invalid},
                                         {"u", 0xffff, 0xffff, LiteralForm::Invalid},
                                         {"U", 0xffffffff, maxCharacter, LiteralForm::Invalid},
                                         {"L", 0xffffffff, maxCharacter, LiteralForm::Unportable}});

const Prefix* FindPrefix(std::string_view letters) {
  const auto* const found = std::find_if(prefixes.begin(), prefixes.end(),
                                         [&](const Prefix& row) { return row.text == letters; });
  return found == prefixes.end() ? nullptr : found;
}

/// What stands for one character in a literal.
struct Element {
  std::size_t size;
  LiteralForm form;
};

struct Digits {
  std::size_t end;
  std::uint64_t value;
};

/// Reads the digits from an offset on, at most so many.
Digits ReadDigits(std::string_view text, std::size_t begin, unsigned base, std::size_t count) {
  constexpr std::uint64_t tooLarge = std::uint64_t{1} << 32U;
  Digits digits{begin, 0};
  for (; digits.end < text.size() && digits.end - begin < count; ++digits.end) {
    const unsigned digit = DigitValue(text[digits.end]);
    if (digit >= base) break;
    digits.value = std::min(digits.value * base + digit, tooLarge);
  }
  return digits;
}

LiteralForm FormOfCode(std::uint64_t code, const Prefix& prefix) {
  return code > prefix.maxCharacter ? prefix.otherwise : LiteralForm::Portable;
}

/// Reads `\377` or `\xff`, whose digits begin at an offset.
Element ReadNumber(std::string_view text, std::size_t begin, const Prefix& prefix) {
  const bool isOctal = begin == 1;
  const auto [end, value] =
      ReadDigits(text, begin, isOctal ? 8 : 16, isOctal ? 3 : std::string_view::npos);
  if (end == begin) return {1, LiteralForm::Invalid};
  return {end, value > prefix.maxNumber ? LiteralForm::Unportable : LiteralForm::Portable};
}

/// Reads `\u0041` or `\U00000041`.
Element ReadCode(std::string_view text, const Prefix& prefix) {
  const std::size_t count = text[1] == 'u' ? 4 : 8;
  const auto [end, code] = ReadDigits(text, 2, 16, count);
  const bool isSurrogate = code >= 0xd800 && code <= 0xdfff;
  if (end != count + 2 || isSurrogate) return {1, LiteralForm::Invalid};
  return {end, code > maxCharacter ? LiteralForm::Unportable : FormOfCode(code, prefix)};
}

Element ReadEscape(std::string_view text, const Prefix& prefix) {
  if (text.size() < 2) return {1, LiteralForm::Invalid};
  const char letter = text[1];
  if (DigitValue(letter) < 8) return ReadNumber(text, 1, prefix);
  if (letter == 'x') return ReadNumber(text, 2, prefix);
  if (letter == 'u' || letter == 'U') return ReadCode(text, prefix);
  const Character character = FirstCharacter(text.substr(1));
  // In C++23, 'o' and 'N' begin longer escapes.
  const bool isOdd = character.code >= 0x80 || letter == 'o' || letter == 'N';
  return {1 + character.size, isOdd ? LiteralForm::Unportable : LiteralForm::Portable};
}

Element ReadElement(std::string_view text, const Prefix& prefix) {
  if (text.front() == '\\') return ReadEscape(text, prefix);
  const Character character = FirstCharacter(text);
  return {character.size,
          character.valid ? FormOfCode(character.code, prefix) : LiteralForm::Unportable};
}

LiteralForm FormOfCharacter(std::string_view literal) {
  const std::size_t quote = literal.find('\'');
  const Prefix& prefix = *FindPrefix(literal.substr(0, quote));
  std::string_view rest = literal.substr(quote + 1, literal.size() - quote - 2);
  const bool hasTrigraph = rest.find(trigraph) != std::string_view::npos;
  if (rest.empty() || hasTrigraph || HasControlCharacter(rest)) return LiteralForm::Invalid;
  LiteralForm form = LiteralForm::Portable;
  std::size_t count = 0;
  for (; !rest.empty(); ++count) {
    const Element element = ReadElement(rest, prefix);
    form = std::max(form, element.form);
    rest.remove_prefix(element.size);
  }
  const bool isMany = count > (quote == 0 ? 4 : 1);
  return isMany ? std::max(form, prefix.otherwise) : form;
}

}  // namespace

bool BeginsNumber(std::string_view text) {
  if (text.size() > 1 && text.front() == '.') text.remove_prefix(1);
  return DigitValue(text.front()) < 10;
}

bool IsCharacterPrefix(std::string_view letters) {
  return FindPrefix(letters) != nullptr;
}

LiteralForm FormOfLiteral(std::string_view literal) {
  return BeginsNumber(literal) ? FormOfNumber(literal) : FormOfCharacter(literal);
}

std::string WriteAdvice(const std::string& text) {
  const bool isVisible =
      std::all_of(text.begin(), text.end(), [](char byte) { return byte > ' ' && byte <= '~'; });
  return text.size() <= 40 && isVisible ? "write \"" + text + '"' : std::string();
}

std::string LiteralAdvice(std::string_view literal) {
  if (!BeginsNumber(literal)) return "write the number of the character";
  if (literal[0] == '0' && literal.find_first_not_of("0123456789'") == std::string_view::npos) {
    return R"(numbers that begin with "0" are octal)";
  }
  std::string separated(literal);
  std::replace(separated.begin(), separated.end(), '_', '\'');
  if (FormOfLiteral(separated) == LiteralForm::Portable) return WriteAdvice(separated);
  const std::size_t sign = literal.find_first_of("+-");
  const std::string first(literal.substr(0, sign));
  if (sign == std::string_view::npos || FormOfLiteral(first) != LiteralForm::Portable) return {};
  return WriteAdvice("(" + first + ")" + std::string(literal.substr(sign)));
}

}  // namespace zentho::idlgen
