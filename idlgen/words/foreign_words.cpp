#include "words/foreign_words.h"

#include <algorithm>

#include "schema/statements.h"
#include "words/similar.h"
#include "words/tables.h"

namespace zentho::idlgen {
namespace {

struct ForeignWord {
  std::string_view word;
  std::string_view meant;  ///< What stands for it here.
};

constexpr auto foreignKeywords = Table<ForeignWord>({{"import", "include"},
                                                     {"package", "namespace"},
                                                     {"module", "namespace"},
                                                     {"struct", "message"},
                                                     {"class", "message"},
                                                     {"record", "message"},
                                                     {"table", "message"},
                                                     {"interface", "service"}});

constexpr auto foreignTypes = Table<ForeignWord>({{"i8", "int8"},
                                                  {"i16", "int16"},
                                                  {"i32", "int32"},
                                                  {"i64", "int64"},
                                                  {"u8", "uint8"},
                                                  {"u16", "uint16"},
                                                  {"u32", "uint32"},
                                                  {"u64", "uint64"},
                                                  {"f32", "float32"},
                                                  {"f64", "float64"},
                                                  {"Int32", "int32"},
                                                  {"Int64", "int64"},
                                                  {"byte", "uint8"},
                                                  {"bytes", "[uint8]"},
                                                  {"boolean", "bool"},
                                                  {"number", "float64"},
                                                  {"str", "string"},
                                                  {"String", "string"},
                                                  {"timestamp", "uint64"}});

constexpr auto qualifiers = Table<std::string_view>(
    {"optional", "repeated", "required", "const", "constant", "static", "mutable", "readonly",
     "public",   "private",  "in",       "out",   "inout",    "oneway", "var",     "let",
     "case",     "unsigned", "signed",   "long",  "struct",   "enum",   "class"});

/// Returns what is meant by the word, or nothing.
template <typename Words>
std::string_view MeantBy(const Words& words, std::string_view word) {
  const auto row = std::find_if(words.begin(), words.end(),
                                [&](const ForeignWord& foreign) { return foreign.word == word; });
  return row == words.end() ? std::string_view() : row->meant;
}

}  // namespace

std::string_view KeywordFor(std::string_view word) {
  return FindStatement(word) == Statement::None ? MeantBy(foreignKeywords, word) : word;
}

std::string_view SimilarKeyword(std::string_view word) {
  if (const std::string_view keyword = KeywordFor(word); !keyword.empty()) return keyword;
  SimilarWord similar(word);
  for (const std::string_view keyword : statementKeywords) similar.compare(keyword);
  return similar.found();
}

std::string_view TypeFor(std::string_view word) {
  return MeantBy(foreignTypes, word);
}

bool IsQualifier(std::string_view word) {
  return Contains(qualifiers, word);
}

}  // namespace zentho::idlgen
