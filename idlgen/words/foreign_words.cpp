#include "words/foreign_words.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "schema/statements.h"
#include "words/cpp_words.h"
#include "words/similar.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// What some words of other languages stand for here.
struct Meaning {
  std::string_view meant;
  std::string_view words;  ///< With a space around each.
};

constexpr auto foreignKeywords =
    Table<Meaning>({{"include", " import require use "},
                    {"namespace", " package module mod "},
                    {"message", " struct class record table exception "},
                    {"service", " interface "}});

constexpr auto foreignTypes = Table<Meaning>({{"bool", " boolean "},
                                              {"int8", " i8 "},
                                              {"int16", " i16 "},
                                              {"int32", " i32 Int32 "},
                                              {"int64", " i64 Int64 isize duration "},
                                              {"uint8", " u8 byte "},
                                              {"uint16", " u16 "},
                                              {"uint32", " u32 "},
                                              {"uint64", " u64 usize time timestamp "},
                                              {"float32", " f32 "},
                                              {"float64", " f64 number "},
                                              {"string", " str String std.string "},
                                              {"[uint8]", " bytes binary "}});

constexpr auto qualifiers = Table<std::string_view>(
    {"optional", "repeated", "required", "const",     "constant", "static",   "mutable",
     "readonly", "public",   "private",  "in",        "out",      "inout",    "oneway",
     "var",      "let",      "pub",      "attribute", "option",   "reserved", "case",
     "unsigned", "signed",   "long",     "struct",    "enum",     "class"});

/// Returns whether the word is one of those that have spaces around them.
bool IsOneOf(std::string_view words, std::string_view word) {
  return words.find(" " + std::string(word) + " ") != std::string_view::npos;
}

/// Returns what is meant by the word, or nothing.
template <typename Meanings>
std::string_view MeantBy(const Meanings& meanings, std::string_view word) {
  const auto row = std::find_if(meanings.begin(), meanings.end(), [&](const Meaning& meaning) {
    return IsOneOf(meaning.words, word);
  });
  return row == meanings.end() ? std::string_view() : row->meant;
}

/// A line that may declare a member or an item.
struct Line {
  std::vector<std::string> words;  ///< Those that declare.
  std::size_t count = 0;           ///< Of all words.
  bool isNameFirst = false;        ///< As a colon shows, or what stands for it.
  bool isVector = false;
};

/// Returns the line of a word, up to a default value. Numbers, annotations and words that qualify
/// do not declare.
Line LineOf(const LocatedWords& words, std::size_t word) {
  Line line;
  bool isJoined = false;
  std::size_t i = word;
  while (i > 0 && AreOnOneLine(words, i - 1, word) && BraceOf(words.text(i - 1)) == '\0') --i;
  for (; i < words.size() && AreOnOneLine(words, i, word) && words.text(i) != "}"; ++i) {
    const std::string_view text = words.text(i);
    const std::size_t end =
        std::min({text.find("<="), text.find('='), text.find_last_not_of(";,") + 1});
    const std::size_t known = line.words.size();
    const bool isNumber = text.find_first_not_of("[]0123456789-*") == std::string_view::npos;
    const bool isExtra = text.front() == '@' || IsQualifier(text);
    const bool isSign = text == "->" || text == "as" || (text == "=" && known == 1);
    const bool isOther = isSign || (isNumber ? known != 1 && !IsAfterColon(words, i)
                                             : isExtra && !IsBeforeColon(words, i));
    if (isOther) {
      line.isVector = line.isVector || text == "repeated" || text.front() == '[';
    } else if (isJoined) {
      line.words.back().append(".").append(text, 0, end);
    } else if (end > 0) {
      line.words.emplace_back(text, 0, end);
    }
    ++line.count;
    isJoined = !isOther && end > 0 && IsJoinedByColons(words, i);
    const bool isBeforeColon = !isOther && !isJoined && IsBeforeColon(words, i);
    line.isNameFirst = line.isNameFirst || isSign || isBeforeColon;
    if (!isSign && text.find('=') == end) break;
  }
  return line;
}

/// Returns the type that one of another language stands for, such as `[int32]` for `Vec<i32>`, or
/// nothing.
std::string MeantType(std::string_view word) {
  auto depth = std::count(word.begin(), word.end(), '[');
  if (depth == 0 && word.find(']') < word.size()) depth = 1;
  while (IsTemplateOf(word, vectorTemplates) || IsTemplateOf(word, optionalTemplates)) {
    if (IsTemplateOf(word, vectorTemplates)) ++depth;
    word.remove_prefix(word.find('<') + 1);
  }
  constexpr std::string_view signs = "[]>&*?\"'0123456789;,";
  word.remove_prefix(std::min(word.find_first_not_of(signs), word.size()));
  const std::size_t end = std::min(word.find_first_of("[]<>&*?\"';,"), word.size());
  if (word.find_first_not_of(signs, end) != std::string_view::npos) return {};
  std::string type(word.substr(0, end));
  std::replace(type.begin(), type.end(), '/', '.');
  if (const std::string_view foreign = TypeFor(type); !foreign.empty()) type = foreign;
  const bool isKeyword = FindKeyword(type) != Keyword::None && !LooksLikeType(type);
  if (isKeyword || !IsTypeForm(type)) return {};
  const auto brackets = static_cast<std::size_t>(depth);
  return std::string(brackets, '[') + type + std::string(brackets, ']');
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
  return Contains(qualifiers, word);
}

std::string MeantLine(const LocatedWords& words, std::size_t word) {
  const bool isItem = words.role(word) == Role::ItemName || words.role(word) == Role::ItemValue;
  const Line line = LineOf(words, word);
  if (line.words.size() != 2) return {};
  const TypeNames types = DeclaredTypes(words);
  const auto isType = [&](std::string_view text) {
    return LooksLikeType(text) || !TypeFor(text).empty() || types.count(text) > 0 ||
           text.find_first_of("[</.") != std::string_view::npos;
  };
  std::string first = line.words[0];
  std::string second = line.words[1];
  const bool isTypeFirst = !line.isNameFirst && !isItem && isType(first) && !isType(second);
  if (!line.isNameFirst && !isTypeFirst) return {};
  if (isTypeFirst) std::swap(first, second);
  const std::size_t bracket = first.find('[');  // As in `int8 x[4]`.
  const bool isVector = line.isVector || bracket != std::string::npos;
  const std::string name = MeantName(first.substr(0, bracket));
  const std::string meant = isItem ? second : MeantType(isVector ? "[" + second + "]" : second);
  const bool isRight = line.count == 2 && !isTypeFirst && meant == second && name == first;
  const bool isWord = isItem ? NameSize(meant) == meant.size() : !meant.empty();
  const bool isName = IsIdentifier(name) && FindKeyword(name) == Keyword::None;
  return isName && isWord && !isRight ? name + ": " + meant : std::string();
}

}  // namespace zentho::idlgen
