#include "check/cpp_words.h"

#include <algorithm>
#include <array>

namespace zentho {
namespace {

struct KeywordRow {
  std::string_view word;
  Keyword kind;
};

constexpr std::array<KeywordRow, 92> keywords = {{
    // Sorted.
    {"alignas", Keyword::Other},
    {"alignof", Keyword::Operand},
    {"and", Keyword::Operator},
    {"and_eq", Keyword::Other},
    {"asm", Keyword::Other},
    {"auto", Keyword::Other},
    {"bitand", Keyword::Operator},
    {"bitor", Keyword::Operator},
    {"bool", Keyword::Type},
    {"break", Keyword::Other},
    {"case", Keyword::Other},
    {"catch", Keyword::Other},
    {"char", Keyword::Type},
    {"char16_t", Keyword::Type},
    {"char32_t", Keyword::Type},
    {"char8_t", Keyword::Cpp20},
    {"class", Keyword::Other},
    {"co_await", Keyword::Cpp20},
    {"co_return", Keyword::Cpp20},
    {"co_yield", Keyword::Cpp20},
    {"compl", Keyword::Operator},
    {"concept", Keyword::Cpp20},
    {"const", Keyword::Other},
    {"const_cast", Keyword::Operand},
    {"consteval", Keyword::Cpp20},
    {"constexpr", Keyword::Other},
    {"constinit", Keyword::Cpp20},
    {"continue", Keyword::Other},
    {"decltype", Keyword::Other},
    {"default", Keyword::Other},
    {"delete", Keyword::Other},
    {"do", Keyword::Other},
    {"double", Keyword::Type},
    {"dynamic_cast", Keyword::Other},
    {"else", Keyword::Other},
    {"enum", Keyword::Other},
    {"explicit", Keyword::Other},
    {"export", Keyword::Other},
    {"extern", Keyword::Other},
    {"false", Keyword::Operand},
    {"float", Keyword::Type},
    {"for", Keyword::Other},
    {"friend", Keyword::Other},
    {"goto", Keyword::Other},
    {"if", Keyword::Other},
    {"inline", Keyword::Other},
    {"int", Keyword::Type},
    {"long", Keyword::Type},
    {"mutable", Keyword::Other},
    {"namespace", Keyword::Other},
    {"new", Keyword::Other},
    {"noexcept", Keyword::Operand},
    {"not", Keyword::Operator},
    {"not_eq", Keyword::Operator},
    {"nullptr", Keyword::Other},
    {"operator", Keyword::Other},
    {"or", Keyword::Operator},
    {"or_eq", Keyword::Other},
    {"private", Keyword::Other},
    {"protected", Keyword::Other},
    {"public", Keyword::Other},
    {"register", Keyword::Other},
    {"reinterpret_cast", Keyword::Other},
    {"requires", Keyword::Cpp20},
    {"return", Keyword::Other},
    {"short", Keyword::Type},
    {"signed", Keyword::Type},
    {"sizeof", Keyword::Operand},
    {"static", Keyword::Other},
    {"static_assert", Keyword::Other},
    {"static_cast", Keyword::Operand},
    {"struct", Keyword::Other},
    {"switch", Keyword::Other},
    {"template", Keyword::Other},
    {"this", Keyword::Other},
    {"thread_local", Keyword::Other},
    {"throw", Keyword::Other},
    {"true", Keyword::Operand},
    {"try", Keyword::Other},
    {"typedef", Keyword::Other},
    {"typeid", Keyword::Other},
    {"typename", Keyword::Other},
    {"union", Keyword::Other},
    {"unsigned", Keyword::Type},
    {"using", Keyword::Other},
    {"virtual", Keyword::Other},
    {"void", Keyword::Other},
    {"volatile", Keyword::Other},
    {"wchar_t", Keyword::Type},
    {"while", Keyword::Other},
    {"xor", Keyword::Operator},
    {"xor_eq", Keyword::Other},
}};

constexpr std::array<std::string_view, 30> libraryTypes = {
    "int8_t",        "int16_t",        "int32_t",        "int64_t",        "uint8_t",
    "uint16_t",      "uint32_t",       "uint64_t",       "int_fast8_t",    "int_fast16_t",
    "int_fast32_t",  "int_fast64_t",   "uint_fast8_t",   "uint_fast16_t",  "uint_fast32_t",
    "uint_fast64_t", "int_least8_t",   "int_least16_t",  "int_least32_t",  "int_least64_t",
    "uint_least8_t", "uint_least16_t", "uint_least32_t", "uint_least64_t", "intmax_t",
    "uintmax_t",     "intptr_t",       "uintptr_t",      "size_t",         "ptrdiff_t"};

}  // namespace

Keyword FindKeyword(std::string_view word) {
  const auto* const found = std::lower_bound(
      keywords.begin(), keywords.end(), word,
      [](const KeywordRow& row, std::string_view wanted) { return row.word < wanted; });
  return found != keywords.end() && found->word == word ? found->kind : Keyword::None;
}

bool IsCppType(std::string_view type) {
  return FindKeyword(type) == Keyword::Type ||
         std::find(libraryTypes.begin(), libraryTypes.end(), type) != libraryTypes.end();
}

bool IsReserved(std::string_view name) {
  if (name.size() < 2 || name[0] != '_') return false;
  return name[1] == '_' || (name[1] >= 'A' && name[1] <= 'Z');
}

}  // namespace zentho
