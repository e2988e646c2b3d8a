#include "words/cpp_words.h"

#include <algorithm>

#include "words/cpp_word_tables.h"

namespace zentho::idlgen {

Keyword FindKeyword(std::string_view word) {
  if (word.empty() || word.front() < 'a' || word.front() > 'z') return Keyword::None;
  const auto* const found = std::lower_bound(
      keywords.begin(), keywords.end(), word,
      [](const KeywordRow& row, std::string_view wanted) { return row.word < wanted; });
  return found != keywords.end() && found->word == word ? found->kind : Keyword::None;
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
