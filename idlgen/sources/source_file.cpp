#include "sources/source_file.h"

#include <utility>

#include "words/word_forms.h"

namespace zentho::idlgen {

std::string_view IncludedPath(std::string_view word) {
  word = word.substr(0, word.find_last_not_of(foreignSeparators) + 1);
  constexpr std::string_view quotes = "\"'<>";
  const std::size_t begin = word.find_first_not_of(quotes);
  if (begin == std::string_view::npos) return {};
  return word.substr(begin, word.find_last_not_of(quotes) + 1 - begin);
}

SourceFile::SourceFile(std::string openedPath, std::string wholeText)
    : path(std::move(openedPath)), text(std::move(wholeText)) {
  idl.tokenize(text);
  try {
    Parser().parseSilently(idl, schema, words);
  } catch (const ParseError& parseError) {
    error = parseError;
  }
}

std::vector<std::string_view> IncludeWords(const SourceFile& file) {
  std::vector<std::string_view> words;
  for (std::size_t i = 0; i < file.words.size(); ++i) {
    if (file.words.role(i) == Role::IncludePath) words.push_back(file.words.text(i));
  }
  return words;
}

void SourceFile::locateWords() {
  if (words.places.size() != words.size()) locate(words, text);
}

}  // namespace zentho::idlgen
