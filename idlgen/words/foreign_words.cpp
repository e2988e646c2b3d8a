#include "words/foreign_words.h"

#include "schema/statements.h"
#include "words/similar.h"
#include "words/tables.h"

namespace zentho::idlgen {
namespace {

struct ForeignKeyword {
  std::string_view word;
  std::string_view keyword;  ///< That stands for it here.
};

constexpr auto foreignKeywords = Table<ForeignKeyword>({{"import", "include"},
                                                        {"package", "namespace"},
                                                        {"module", "namespace"},
                                                        {"struct", "message"},
                                                        {"class", "message"},
                                                        {"record", "message"},
                                                        {"table", "message"},
                                                        {"interface", "service"}});

constexpr auto qualifiers = Table<std::string_view>(
    {"optional", "repeated", "required", "const", "constant", "static", "mutable", "readonly",
     "public",   "private",  "in",       "out",   "inout",    "oneway", "var",     "let",
     "case",     "unsigned", "signed",   "long",  "struct",   "enum",   "class"});

}  // namespace

std::string_view KeywordFor(std::string_view word) {
  for (const ForeignKeyword& row : foreignKeywords) {
    if (word == row.word) return row.keyword;
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
  return Contains(qualifiers, word);
}

}  // namespace zentho::idlgen
