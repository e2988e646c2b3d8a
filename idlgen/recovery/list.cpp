#include "recovery/list.h"

#include <algorithm>
#include <string_view>

#include "schema/statements.h"
#include "words/foreign_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns whether the last word of an odd line may begin a pair: it is the only one, or the line
/// neither begins with a type, as in `int8 x y`, nor ends with one, after a colon.
bool MayBeginPair(const LocatedWords& words, WordRange line) {
  const std::size_t first = line.first;
  const std::size_t last = line.end - 1;
  const bool beginsWithType = LooksLikeType(words.text(first)) && !IsBeforeColon(words, first) &&
                              !IsAfterColon(words, first);
  return first == last || (!beginsWithType && !IsAfterColon(words, last));
}

/// Returns whether the first word of a line may end a pair.
bool MayEndPair(const LocatedWords& words, std::size_t i) {
  if (i >= words.size() || IsBeforeColon(words, i)) return false;
  // A brace may be glued to a type, as in `int8}`.
  return words.text(i).front() != '}' && BraceOf(words.text(i)) != '{';
}

}  // namespace

List::List(const LocatedWords& located, const TypeNames& typeNames, std::size_t word)
    : words(located), types(typeNames), begin(word) {
  while (IsInList(words.role(begin - 1))) --begin;  // A statement is before every list.
}

bool List::isRequest() const {
  const std::size_t owner = begin - 2;  // A list begins after a name, or a part, and a "{".
  return words.role(owner) == Role::Part && words.text(owner) == "request";
}

std::size_t List::end() const {
  std::size_t i = begin;
  while (i < words.size() && IsInList(words.role(i))) ++i;
  return i;
}

std::optional<WordRange> List::firstWrongLine(std::size_t last) const {
  std::size_t i = begin;
  while (i <= last && i < words.size() && words.text(i).front() != '}') {
    const WordRange line = {i, endInList(i)};
    const bool isOdd = (line.end - i) % 2 == 1;
    const bool isOther = blockBegin(line) != noWord || statementIn(line) != noWord;
    if (isOther || (isOdd && !pairContinues(line))) return line;
    i = isOdd ? line.end + 1 : line.end;
  }
  return std::nullopt;
}

WordRange List::lineOf(std::size_t word) const {
  std::size_t first = word;
  while (first > begin && AreOnOneLine(words, first - 1, word)) --first;
  return {first, std::max(endInList(word), word + 1)};
}

std::size_t List::blockBegin(WordRange line) const {
  for (std::size_t i = line.first; i < line.end; ++i) {
    if (words.text(i) == "{") return i;
  }
  const std::size_t statement = statementIn(line);
  const bool isBlock = statement != noWord && opensBlock(statement);
  return isBlock ? statement + 2 : noWord;
}

std::size_t List::statementIn(WordRange line) const {
  for (std::size_t i = line.first; i < line.end; ++i) {
    const Statement keyword = FindStatement(words.text(i));
    if (keyword == Statement::None || IsBeforeColon(words, i)) continue;
    const bool isWholeLine = i == line.first && line.end == i + 2;
    if (isWholeLine || (IsDeclaration(keyword) && opensBlock(i))) return i;
  }
  return noWord;
}

std::size_t List::qualifierIn(WordRange line) const {
  const std::size_t size = line.end - line.first;
  const bool isPair = size == 2 && (isEnum() || IsTypeForm(words.text(line.end - 1)));
  if (size == 1 || isPair) return noWord;
  for (std::size_t i = line.first; i < line.end; ++i) {
    const bool isType =
        IsAfterColon(words, i) && (i + 1 == line.end || IsBeforeColon(words, i + 1));
    if (IsQualifier(words.text(i)) && !IsBeforeColon(words, i) && !isType) return i;
  }
  return noWord;
}

std::size_t List::oneOfSeveralNames(WordRange line) const {
  for (std::size_t i = line.first; i + 1 < line.end && !isEnum(); ++i) {
    const std::string_view text = words.text(i);
    const std::string_view name = text.substr(0, text.size() - 1);
    const bool isName = text.back() == ',' && IsIdentifier(name) && !LooksLikeType(name);
    if (isName && !IsAfterColon(words, i) && !looksLikeTypeOrValue(i + 1)) return i;
  }
  return noWord;
}

bool List::isOneDeclaration(WordRange line) const {
  // What does not stand alone in a pair.
  const std::string_view signs = isEnum() ? "+-*/%&|^<>!~()" : "[]";
  const auto isSign = [&](std::string_view text) {
    return text.find_first_not_of(signs) == std::string_view::npos;
  };
  if (qualifierIn(line) != noWord || oneOfSeveralNames(line) != noWord) return true;
  for (std::size_t i = line.first; i < line.end; ++i) {
    const std::string_view text = words.text(i);
    const bool isComment = text.substr(0, 2) == "/*";
    const bool isTemplate = text.back() == ',' && text.find('<') != std::string_view::npos;
    const bool isJoined = isTemplate || IsJoinedByColons(words, i);
    if (isComment || isJoined || isSign(text)) return true;
  }
  return false;
}

bool List::looksLikeTypeOrValue(std::size_t i) const {
  std::string_view text = words.text(i);
  text = text.substr(0, text.find_last_not_of(";,") + 1);
  const bool isName = IsIdentifier(text) && !LooksLikeType(text);
  if (!isName) return text.find('=') == std::string_view::npos;
  return !isEnum() && types.count(text) > 0 && !IsBeforeColon(words, i);
}

/// Returns whether a "{" follows the name after this keyword.
bool List::opensBlock(std::size_t keyword) const {
  return keyword + 2 < words.size() && words.text(keyword + 2) == "{";
}

/// Returns the index after the last word that stands on the line of this one, in the list.
std::size_t List::endInList(std::size_t i) const {
  std::size_t end = i;
  while (end < words.size() && AreOnOneLine(words, i, end)) {
    if (BraceOf(words.text(end)) == '}') return end + (words.text(end).front() == '}' ? 0 : 1);
    ++end;
  }
  return end;
}

/// Returns whether the pair that the last word of an odd line begins ends with the next line's
/// first word.
bool List::pairContinues(WordRange line) const {
  const std::size_t last = line.end - 1;
  const std::size_t next = line.end;
  if (!MayBeginPair(words, line) || !MayEndPair(words, next)) return false;
  const std::size_t nextEnd = std::min(blockBegin({next, endInList(next)}), endInList(next));
  // The rest of the next line is `y: int8`, or `y:` whose type is on the line after it.
  const bool mayContinue = (nextEnd - next) % 2 == 1 || IsBeforeColon(words, nextEnd - 1);
  const bool isTypeOrValue = looksLikeTypeOrValue(next);
  // `x` and `: int8`, or `x:` and `Pose`
  const bool isColonBetween = IsBeforeColon(words, last) || IsAfterColon(words, next);
  if (isColonBetween) return mayContinue || isTypeOrValue;
  // `x` and `int8`
  if (isTypeOrValue) return mayContinue && !looksLikeTypeOrValue(last);
  // `x` and `Pose`
  const bool areAlone = last == line.first && nextEnd == next + 1;
  return areAlone && !isEnum() && IsIdentifier(words.text(last)) && IsIdentifier(words.text(next));
}

}  // namespace zentho::idlgen
