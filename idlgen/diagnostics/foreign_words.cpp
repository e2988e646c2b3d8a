#include "diagnostics/foreign_words.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "diagnostics/similar.h"
#include "schema/statements.h"

namespace zentho {

std::string_view KeywordFor(std::string_view word) {
  constexpr std::array<std::string_view, 2> foreign[] = {
      {"import", "include"}, {"package", "namespace"}, {"module", "namespace"},
      {"struct", "message"}, {"class", "message"},     {"record", "message"},
      {"table", "message"},  {"interface", "service"}};
  for (const auto& [other, keyword] : foreign) {
    if (word == other) return keyword;
  }
  return FindStatement(word) == Statement::None ? std::string_view() : word;
}

std::string_view SimilarKeyword(std::string_view word) {
  if (const std::string_view keyword = KeywordFor(word); !keyword.empty()) return keyword;
  SimilarWord similar(word);
  for (const std::string_view keyword : statementKeywords) similar.compare(keyword);
  return similar.found();
}

bool IsQualifier(std::string_view word) {
  constexpr std::string_view qualifiers[] = {
      "optional", "repeated", "required", "const", "constant", "static", "mutable", "readonly",
      "public",   "private",  "in",       "out",   "inout",    "oneway", "var",     "let",
      "case",     "unsigned", "signed",   "long",  "struct",   "enum",   "class"};
  return std::find(std::begin(qualifiers), std::end(qualifiers), word) != std::end(qualifiers);
}

}  // namespace zentho
