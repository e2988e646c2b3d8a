#include "check/literals.h"

#include <algorithm>
#include <array>
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
  return std::find(sizes.begin(), sizes.end(), suffix) != sizes.end();
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

/// Returns whether all compilers read the literal to its end: to some, a quote before anything but
/// a digit begins a character.
bool IsOneNumber(std::string_view literal) {
  for (std::size_t quote = literal.find('\''); quote != std::string_view::npos;
       quote = literal.find('\'', quote + 1)) {
    if (quote + 1 == literal.size() || DigitValue(literal[quote + 1]) > 15) return false;
  }
  return literal.find_first_not_of("0123456789abcdefABCDEFxXpPlL.+-'") == std::string_view::npos;
}

/// What an element of a character literal is.
enum class ElementKind : std::uint8_t {
  Ascii,    ///< A character of ASCII or an escape such as `\n`.
  Foreign,  ///< Another character.
  Broken,   ///< A byte that is not valid UTF-8.
  Number,   ///< `\377` or `\xff`.
  Code,     ///< `\u0041` or `\U00000041`.
  Odd,      ///< An escape that some compilers reject.
  Invalid
};

/// What stands for one character in a literal.
struct Element {
  std::size_t size;
  std::uint64_t value;  ///< The number or the character.
  ElementKind kind;
};

/// Reads the digits from an offset on, at most so many.
Element ReadDigits(std::string_view text, std::size_t begin, unsigned base, std::size_t count,
                   ElementKind kind) {
  constexpr std::uint64_t tooLarge = std::uint64_t{1} << 32U;
  Element element{begin, 0, kind};
  while (element.size < text.size() && element.size - begin < count) {
    const unsigned digit = DigitValue(text[element.size]);
    if (digit >= base) break;
    element.value = std::min(element.value * base + digit, tooLarge);
    ++element.size;
  }
  return element;
}

Element ReadEscape(std::string_view text) {
  constexpr Element invalid = {1, 0, ElementKind::Invalid};
  if (text.size() < 2) return invalid;
  const char letter = text[1];
  if (DigitValue(letter) < 8) return ReadDigits(text, 1, 8, 3, ElementKind::Number);
  if (letter == 'x') {
    const Element number = ReadDigits(text, 2, 16, std::string_view::npos, ElementKind::Number);
    return number.size > 2 ? number : invalid;
  }
  if (letter == 'u' || letter == 'U') {
    const std::size_t digits = letter == 'u' ? 4 : 8;
    Element code = ReadDigits(text, 2, 16, digits, ElementKind::Code);
    const bool isSurrogate = code.value >= 0xd800 && code.value <= 0xdfff;
    if (code.value > maxCharacter) code.kind = ElementKind::Odd;
    return code.size == digits + 2 && !isSurrogate ? code : invalid;
  }
  const Character character = FirstCharacter(text.substr(1));
  // In C++23, 'o' and 'N' begin longer escapes.
  const bool isOdd = character.code >= 0x80 || letter == 'o' || letter == 'N';
  return {1 + character.size, character.code, isOdd ? ElementKind::Odd : ElementKind::Ascii};
}

Element ReadElement(std::string_view text) {
  if (text.front() == '\\') return ReadEscape(text);
  const Character character = FirstCharacter(text);
  const ElementKind kind = !character.valid        ? ElementKind::Broken
                           : character.code < 0x80 ? ElementKind::Ascii
                                                   : ElementKind::Foreign;
  return {character.size, character.code, kind};
}

/// What a literal with a prefix can hold.
struct Prefix {
  std::string_view text;
  std::uint64_t maxNumber;     ///< The greatest number in an escape.
  std::uint64_t maxCharacter;  ///< The greatest character.
  CharacterForm otherwise;     ///< Of a greater character, or of too many.
};

constexpr auto prefixes =
    Table<Prefix>({{"", 0xff, 0x7f, CharacterForm::Unportable},
                   {"u8", 0xff, 0x7f, CharacterForm::Invalid},
                   {"u", 0xffff, 0xffff, CharacterForm::Invalid},
                   {"U", 0xffffffff, maxCharacter, CharacterForm::Invalid},
                   {"L", 0xffffffff, maxCharacter, CharacterForm::Unportable}});

const Prefix* FindPrefix(std::string_view letters) {
  const auto* const found = std::find_if(prefixes.begin(), prefixes.end(),
                                         [&](const Prefix& row) { return row.text == letters; });
  return found == prefixes.end() ? nullptr : found;
}

CharacterForm FormOf(const Element& element, const Prefix& prefix) {
  switch (element.kind) {
    case ElementKind::Ascii:
      return CharacterForm::Portable;
    case ElementKind::Number:
      return element.value > prefix.maxNumber ? CharacterForm::Unportable : CharacterForm::Portable;
    case ElementKind::Code:
    case ElementKind::Foreign:
      return element.value > prefix.maxCharacter ? prefix.otherwise : CharacterForm::Portable;
    case ElementKind::Broken:
    case ElementKind::Odd:
      return CharacterForm::Unportable;
    case ElementKind::Invalid:
      return CharacterForm::Invalid;
  }
  return CharacterForm::Invalid;
}

}  // namespace

NumberForm FormOfNumber(std::string_view literal) {
  if (LooksFloating(literal)) {
    return IsOneNumber(literal) ? NumberForm::Floating : NumberForm::Invalid;
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
  if (!afterDigit || !IsIntegerSuffix(suffix)) return NumberForm::Invalid;
  const bool isSigned = base == 10 && (suffix == "z" || suffix == "Z");
  isLarge = isLarge || (isSigned && value > std::numeric_limits<std::int64_t>::max());
  return isLarge ? NumberForm::LargeInteger : NumberForm::Integer;
}

bool IsCharacterPrefix(std::string_view letters) {
  return FindPrefix(letters) != nullptr;
}

CharacterForm FormOfCharacter(std::string_view literal) {
  const std::size_t quote = literal.find('\'');
  const Prefix& prefix = *FindPrefix(literal.substr(0, quote));
  std::string_view rest = literal.substr(quote + 1, literal.size() - quote - 2);
  const bool hasTrigraph = rest.find(trigraph) != std::string_view::npos;
  if (rest.empty() || hasTrigraph || HasControlCharacter(rest)) return CharacterForm::Invalid;
  CharacterForm form = CharacterForm::Portable;
  std::size_t count = 0;
  for (; !rest.empty(); ++count) {
    const Element element = ReadElement(rest);
    form = std::max(form, FormOf(element, prefix));
    rest.remove_prefix(element.size);
  }
  const bool isMany = count > (quote == 0 ? 4 : 1);
  return isMany ? std::max(form, prefix.otherwise) : form;
}

}  // namespace zentho::idlgen
