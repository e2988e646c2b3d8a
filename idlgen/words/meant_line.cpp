#include "words/meant_line.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "words/characters.h"
#include "words/cpp_words.h"
#include "words/foreign_words.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns whether the word begins a type of C in several words, as in `unsigned int`.
bool IsJoinedByC(const LocatedWords& words, std::size_t i) {
  constexpr auto first = Table<std::string_view>({"unsigned", "signed", "long"});
  return Contains(first, words.text(i)) && i + 1 < words.size() && AreOnOneLine(words, i, i + 1) &&
         FindKeyword(words.text(i + 1)) == Keyword::Type;
}

/// What a word does in a line of another language.
enum class Part : std::uint8_t {
  Declares,  ///< A name, a type or a value.
  Colon,     ///< Stands for the colon between them.
  Extra      ///< A number, an annotation, or a word that qualifies.
};

/// Returns what a word does after so many words that declare.
Part PartOf(const LocatedWords& words, std::size_t i, std::size_t declaring) {
  const std::string_view text = words.text(i);
  if (text == "->" || text == "as" || (text == "=" && declaring == 1)) return Part::Colon;
  const bool isNumber = text.find_first_not_of("[]0123456789-*;,") == std::string_view::npos;
  const bool isValue = declaring == 1 || IsAfterColon(words, i);
  if (isNumber) return isValue ? Part::Declares : Part::Extra;
  const bool isExtra = text.front() == '@' || (IsQualifier(text) && !IsJoinedByC(words, i));
  return isExtra && !IsBeforeColon(words, i) ? Part::Extra : Part::Declares;
}

/// Returns whether a number after "=" follows the word.
bool HasFieldNumber(const LocatedWords& words, std::size_t equals) {
  return equals + 1 < words.size() && AreOnOneLine(words, equals, equals + 1) &&
         IsNumber(words.text(equals + 1).substr(0, words.text(equals + 1).find(';')));
}

/// A line that may declare a member or an item.
struct Line {
  std::vector<std::string> words;  ///< Those that declare.
  std::size_t count = 0;           ///< Of all words.
  bool isNameFirst = false;        ///< As a colon shows, or what stands for it.
  bool hasFieldNumber = false;     ///< So that the type is first.
  bool isVector = false;
  bool isCut = false;  ///< By a comma or semicolon, after which more follows.
};

/// Returns whether the word ends with a sign that separates declarations in other languages.
bool EndsDeclaration(std::string_view text) {
  return text.back() == ',' || text.back() == ';';
}

/// Returns the declaration of a word on its line, up to a default value.
Line LineOf(const LocatedWords& words, std::size_t word) {
  Line line;
  bool isJoined = false;  // To the word before, as in `a::B`.
  const char* separator = ".";
  std::size_t i = word;
  while (i > 0 && AreOnOneLine(words, i - 1, word) && BraceOf(words.text(i - 1)) == '\0' &&
         !EndsDeclaration(words.text(i - 1))) {
    --i;
  }
  for (; i < words.size() && AreOnOneLine(words, i, word); ++i) {
    const std::string_view text = words.text(i);
    if (text.find_first_not_of("})]") == std::string_view::npos) break;
    const std::size_t end =
        std::min({text.find("<="), text.find('='), text.find_last_not_of(";,") + 1});
    const bool belongsToLast = std::exchange(isJoined, false);
    const Part part = belongsToLast ? Part::Declares : PartOf(words, i, line.words.size());
    ++line.count;
    if (part == Part::Colon) {
      line.isNameFirst = true;
      continue;
    }
    if (part == Part::Extra) {
      line.isVector = line.isVector || text == "repeated" || text.front() == '[';
      line.hasFieldNumber = line.hasFieldNumber || IsBeforeColon(words, i);
    } else {
      if (belongsToLast) {
        line.words.back().append(separator).append(text, 0, end);
      } else if (end > 0) {
        line.words.emplace_back(text, 0, end);
      }
      const bool isOfC = IsJoinedByC(words, i);
      separator = isOfC ? "_" : ".";
      isJoined = end > 0 && (isOfC || IsJoinedByColons(words, i));
      line.isNameFirst = line.isNameFirst || (!isJoined && IsBeforeColon(words, i));
    }
    if (EndsDeclaration(text)) {
      line.isCut = i + 1 < words.size() && AreOnOneLine(words, i + 1, word);
      break;
    }
    if (text.find('=') != end) continue;
    line.hasFieldNumber = line.hasFieldNumber || HasFieldNumber(words, i);
    break;  // A default value follows.
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
  if (word.empty() || IsDigit(static_cast<unsigned char>(word.front()))) return {};
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
  const bool isOnlyFirst = isType(first) && !isType(second.substr(0, second.find('[', 1)));
  const bool isTypeFirst = !line.isNameFirst && !isItem && (line.hasFieldNumber || isOnlyFirst);
  if (!line.isNameFirst && !isTypeFirst) return {};
  if (line.isCut && isTypeFirst && !line.hasFieldNumber) return {};  // As in `int8 x, y`.
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
