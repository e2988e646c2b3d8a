#include "sources/source_file.h"

#include <utility>

#include "words/word_forms.h"

namespace zentho::idlgen {

std::string_view IncludedPath(std::string_view word) {
  word = word.substr(0, word.find_last_not_of(foreignSeparators) + 1);
  const bool isQuoted = word.size() > 2 && ((word.front() == '"' && word.back() == '"') ||
                                            (word.front() == '<' && word.back() == '>'));
  return isQuoted ? word.substr(1, word.size() - 2) : std::string_view();
}

SourceFile ParseSource(std::string path, std::string text) {
  SourceFile file;
  file.path = std::move(path);
  file.text = std::move(text);
  file.idl.tokenize(file.text);
  try {
    Parser().parseSilently(file.idl, file.schema, file.words);
  } catch (const ParseError& error) {
    file.error = error;
  }
  return file;
}

void locate(SourceFile& file) {
  if (file.words.places.size() != file.words.size()) locate(file.words, file.text);
}

}  // namespace zentho::idlgen
