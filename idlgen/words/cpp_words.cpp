#include "words/cpp_words.h"

#include <array>
#include <cstddef>

#include "words/cpp_word_tables.h"

namespace zentho::idlgen {
namespace {

/// Returns for each letter the index of the first keyword that begins with it or a later one.
constexpr std::array<std::size_t, 27> KeywordsByLetter() {
  std::array<std::size_t, 27> begins{};
  for (const KeywordRow& row : keywords) {
    const auto letter = static_cast<std::size_t>(row.word.front() - 'a');
    for (std::size_t later = letter + 1; later < begins.size(); ++later) ++begins[later];
  }
  return begins;
}

}  // namespace

Keyword FindKeyword(std::string_view word) {
  if (word.empty() || word.front() < 'a' || word.front() > 'z') return Keyword::None;
  constexpr std::array<std::size_t, 27> begins = KeywordsByLetter();
  const auto letter = static_cast<std::size_t>(word.front() - 'a');
  for (std::size_t i = begins[letter]; i < begins[letter + 1]; ++i) {
    if (keywords[i].word == word) return keywords[i].kind;
  }
  return Keyword::None;
}

bool IsKeyword(std::string_view word) {
  const Keyword keyword = FindKeyword(word);
  return keyword != Keyword::None && keyword != Keyword::Cpp20;
}

bool IsCppType(std::string_view type) {
  return FindKeyword(type) == Keyword::Type || Contains(libraryTypes, type);
}

bool IsLibraryType(std::string_view type) {
  return IsCppType(type) || Contains(cLibraryTypes, type);
}

bool IsIntegerMacro(std::string_view word) {
  return Contains(integerMacros, word);
}

bool IsReserved(std::string_view name) {
  if (name.size() < 2 || name[0] != '_') return false;
  return name[1] == '_' || (name[1] >= 'A' && name[1] <= 'Z');
}

}  // namespace zentho::idlgen
