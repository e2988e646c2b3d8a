#include "sources/source_file.h"

#include <utility>

namespace zentho::idlgen {

std::string_view IncludedPath(std::string_view word) {
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
  for (std::size_t i = 0; i < file.words.size(); ++i) {
    if (file.words.roles[i] != Role::IncludePath) continue;
    const std::string_view included = IncludedPath(file.words.texts[i]);
    const bool isHeader = included.size() >= 2 && included.substr(included.size() - 2) == ".h";
    file.includes.push_back({i, isHeader ? Include::Kind::Header : Include::Kind::NotFound});
  }
  return file;
}

}  // namespace zentho::idlgen
