#include "findings/meant_line.h"

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

// A line is two words that declare, a name and its type or value, among others that do not count:
// qualifiers, annotations, numbers of fields. The name is the first of the two if a colon follows
// it, or what other languages write for one. Otherwise the type is first, but only that of a
// member: if a field number follows, or if the first word looks like a type and the second does
// not. If all this leaves a doubt, nothing is said.

namespace zentho::idlgen {
namespace {

/// Returns whether the word begins a type of C in several words, as in `unsigned int`.
bool IsJoinedByC(const LocatedWords& words, std::size_t i) {
  constexpr auto first = Table<std::string_view>({"unsigned", "signed", "long"});
  return Contains(first, words.text(i)) && i + 1 < words.size() && AreOnOneLine(words, i, i + 1) &&
         FindKeyword(words.text(i + 1)) == Keyword::Type;
}

/// What a word does in a line of another language.
enum class WordUse : std::uint8_t {
  Declares,  ///< A name, a type or a value.
  Colon,     ///< Stands for the colon between them.
  Extra      ///< A number, an annotation, or a word that qualifies.
};

/// Returns what a word does after so many words that declare.
WordUse UseOf(const LocatedWords& words, std::size_t i, std::size_t declaring) {
  const std::string_view text = words.text(i);
  if (text == "->" || text == "as" || (text == "=" && declaring == 1)) return WordUse::Colon;
  const bool isNumber = text.find_first_not_of("[]0123456789-*.;,") == std::string_view::npos;
  const bool isValue = declaring == 1 || IsAfterColon(words, i);
  if (isNumber) return isValue ? WordUse::Declares : WordUse::Extra;
  const bool isDefault = text.front() == '"' || text == "true" || text == "false";
  if (isDefault && declaring == 2) return WordUse::Extra;
  const bool isExtra = text.front() == '@' || (IsQualifier(text) && !IsJoinedByC(words, i));
  return isExtra && !IsBeforeColon(words, i) ? WordUse::Extra : WordUse::Declares;
}

/// Returns whether a number after "=" follows the word.
bool HasFieldNumber(const LocatedWords& words, std::size_t last) {
  return last + 1 < words.size() && AreOnOneLine(words, last, last + 1) &&
         IsNumber(words.text(last + 1).substr(0, words.text(last + 1).find(';')));
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
bool IsSeparated(std::string_view text) {
  return text.back() == ',' || text.back() == ';';
}

/// Returns the size of what the word declares: without a value or separators at its end.
std::size_t DeclaringSize(std::string_view text) {
  return std::min({text.find("<="), text.find('='), text.find_last_not_of(";,") + 1});
}

/// Returns whether a separator or a default value ends the declaration with this word.
bool EndsDeclaration(std::string_view text) {
  return IsSeparated(text) || text.find('=') == DeclaringSize(text);
}

/// Returns whether the word stands on the line of this one, and is not what closes its list.
bool IsInLine(const LocatedWords& words, std::size_t i, std::size_t word) {
  return i < words.size() && AreOnOneLine(words, i, word) &&
         words.text(i).find_first_not_of("})]") != std::string_view::npos;
}

/// Returns the first word of the declaration on the line of this word.
std::size_t FirstOfDeclaration(const LocatedWords& words, std::size_t word) {
  std::size_t i = word;
  while (i > 0 && AreOnOneLine(words, i - 1, word) && BraceOf(words.text(i - 1)) == '\0' &&
         !IsSeparated(words.text(i - 1))) {
    --i;
  }
  return i;
}

/// Returns what stands here for the space or colons that join the word to the next one, if any do.
std::string_view JointAfter(const LocatedWords& words, std::size_t i) {
  if (DeclaringSize(words.text(i)) == 0) return {};
  if (IsJoinedByC(words, i)) return "_";
  return IsJoinedByColons(words, i) ? "." : "";
}

/// Takes a word that declares, and those that it is joined to, as in `a::B`. Returns the last one.
std::size_t takeWord(Line& line, const LocatedWords& words, std::size_t i) {
  std::string declared(words.text(i), 0, DeclaringSize(words.text(i)));
  std::string_view joint = JointAfter(words, i);
  while (!joint.empty() && !EndsDeclaration(words.text(i)) && IsInLine(words, i + 1, i)) {
    const std::string_view next = words.text(++i);
    declared.append(joint).append(next, 0, DeclaringSize(next));
    joint = JointAfter(words, i);
    ++line.count;
  }
  if (!declared.empty()) line.words.push_back(std::move(declared));
  line.isNameFirst = line.isNameFirst || (joint.empty() && IsBeforeColon(words, i));
  return i;
}

/// Takes a word that declares nothing.
void takeExtra(Line& line, const LocatedWords& words, std::size_t i) {
  const std::string_view text = words.text(i);
  line.isVector = line.isVector || text == "repeated" || text.front() == '[';
  line.hasFieldNumber = line.hasFieldNumber || IsBeforeColon(words, i);
}

/// Notes what follows the last word of the declaration.
void takeEnd(Line& line, const LocatedWords& words, std::size_t last) {
  if (IsSeparated(words.text(last))) {
    line.isCut = LineEnd(words, last) > last + 1;
  } else {
    line.hasFieldNumber = line.hasFieldNumber || HasFieldNumber(words, last);
  }
}

/// Returns the declaration of a word on its line, up to a default value.
Line LineOf(const LocatedWords& words, std::size_t word) {
  Line line;
  for (std::size_t i = FirstOfDeclaration(words, word); IsInLine(words, i, word); ++i) {
    ++line.count;
    const WordUse use = UseOf(words, i, line.words.size());
    if (use == WordUse::Colon) {
      line.isNameFirst = true;
      continue;
    }
    if (use == WordUse::Declares) i = takeWord(line, words, i);
    if (use == WordUse::Extra) takeExtra(line, words, i);
    if (!EndsDeclaration(words.text(i))) continue;
    takeEnd(line, words, i);
    break;
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
  const bool isItem = IsOfEnum(words.role(word));
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
