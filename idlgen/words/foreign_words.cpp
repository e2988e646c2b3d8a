#include "words/foreign_words.h"

#include <algorithm>
#include <string>

#include "schema/statements.h"
#include "words/similar.h"
#include "words/tables.h"

namespace zentho::idlgen {
namespace {

/// What some words of other languages stand for here.
struct ForeignWords {
  std::string_view meant;
  std::string_view words;  ///< With a space around each.
};

constexpr auto foreignKeywords =
    Table<ForeignWords>({{"include", " import require use "},
                         {"namespace", " package module mod "},
                         {"message", " struct class record table exception "},
                         {"service", " interface "}});

constexpr auto foreignTypes = Table<ForeignWords>(
    {{"bool", " boolean Boolean Bool "},
     {"int8", " i8 signed_char "},
     {"int16", " i16 "},
     {"int32", " i32 Int32 Int Integer "},
     {"int64", " i64 Int64 Long isize duration long_int long_long long_long_int "},
     {"uint8", " u8 byte unsigned_char "},
     {"uint16", " u16 unsigned_short "},
     {"uint32", " u32 unsigned_int "},
     {"uint64", " u64 usize time timestamp unsigned_long unsigned_long_long "},
     {"float32", " f32 Float "},
     {"float64", " f64 Double number "},
     {"string", " str String std.string "},
     {"[uint8]", " bytes binary "}});

constexpr std::string_view qualifiers =
    " optional repeated required const constant static mutable readonly public private in out "
    "inout "
    "oneway var let pub attribute option reserved case unsigned signed long struct enum class ";

/// Returns whether the word is one of those that have spaces around them.
bool IsOneOf(std::string_view words, std::string_view word) {
  return words.find(" " + std::string(word) + " ") != std::string_view::npos;
}

/// Returns what is meant by the word, or nothing.
template <typename Rows>
std::string_view MeantBy(const Rows& rows, std::string_view word) {
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const ForeignWords& foreign) {
    return IsOneOf(foreign.words, word);
  });
  return row == rows.end() ? std::string_view() : row->meant;
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

bool IsTemplateOf(std::string_view type, std::string_view templates) {
  const std::size_t end = type.find('<');
  if (end == std::string_view::npos) return false;
  const std::string_view name = type.substr(0, end);
  return IsOneOf(templates, name.substr(name.find_last_of("[.") + 1));
}

bool IsQualifier(std::string_view word) {
  return IsOneOf(qualifiers, word);
}

bool BeginsForeignLine(std::string_view word) {
  return word == "reserved" || word == "option";
}

}  // namespace zentho::idlgen
