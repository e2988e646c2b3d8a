#include <algorithm>
#include <optional>
#include <utility>

#include "recovery/fix.h"
#include "recovery/symptoms.h"
#include "schema/statements.h"
#include "words/foreign_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns the index of the "{" of a block that a line opens, or of a declaration that begins in
/// the line, or nothing.
std::optional<std::size_t> BlockBegin(const LocatedWords& words, WordRange line) {
  for (std::size_t i = line.first; i < line.end; ++i) {
    if (words.text(i) == "{") return i;
    const bool isKeyword = IsDeclaration(FindStatement(words.text(i))) && !IsBeforeColon(words, i);
    if (isKeyword && i + 2 < words.size() && words.text(i + 2) == "{") return i + 2;
  }
  return std::nullopt;
}

/// The lines of one list of members or items.
class List {
 public:
  List(const LocatedWords& located, const TypeNames& typeNames, std::size_t word)
      : words(located), types(typeNames), begin(word) {
    while (IsInList(words.role(begin - 1))) --begin;  // A statement is before every list.
  }

  [[nodiscard]] bool isEnum() const { return words.role(begin) == Role::ItemName; }

  /// Returns the first line up to this word that opens a block or does not consist of pairs.
  [[nodiscard]] std::optional<WordRange> firstWrongLine(std::size_t last) const {
    std::size_t i = begin;
    while (i <= last && i < words.size() && words.text(i).front() != '}') {
      const std::size_t end = lineEnd(i);
      const bool isOdd = (end - i) % 2 == 1;
      if (BlockBegin(words, {i, end}).has_value() || (isOdd && !goesOn({i, end})))
        return WordRange{i, end};
      i = isOdd ? end + 1 : end;
    }
    return std::nullopt;
  }

  /// Returns the words of the list that stand on the line of this one, and the word itself, which
  /// may begin with a brace.
  [[nodiscard]] WordRange lineOf(std::size_t word) const {
    std::size_t first = word;
    while (first > begin && AreOnOneLine(words, first - 1, word)) --first;
    return {first, std::max(lineEnd(word), word + 1)};
  }

  [[nodiscard]] bool isRequest() const {
    return words.role(begin - 2) == Role::Part && words.text(begin - 2) == "request";
  }

  /// Returns the word that qualifies a declaration on the line, as in other languages, or `noWord`.
  /// If it has a place in a pair, it is a name.
  [[nodiscard]] std::size_t qualifierIn(WordRange line) const {
    for (std::size_t i = line.first; i < line.end && line.end - line.first > 2; ++i) {
      const bool isType =
          IsAfterColon(words, i) && (i + 1 == line.end || IsBeforeColon(words, i + 1));
      if (IsQualifier(words.text(i)) && !IsBeforeColon(words, i) && !isType) return i;
    }
    return noWord;
  }

  /// Returns the fix of a line in which words are missing or too many.
  [[nodiscard]] Fix fixCount(WordRange line) const {
    const auto at = [&](const Rule& rule, std::size_t word) {
      return Drop(FindingAt(rule, words, word), line);
    };
    const std::size_t last = line.end - 1;
    const Rule& missing = isEnum() ? rules::missingValue : rules::missingType;
    const Rule& extra = isEnum() ? rules::extraWordOfValue : rules::extraWordOfType;
    for (std::size_t i = line.first; i < last; i += 2) {
      if (!IsBeforeColon(words, i + 1) || looksLikeSecondHalf(i + 1)) continue;
      return at(IsBeforeColon(words, i) ? missing : extra, i);
    }
    const bool isName = IsBeforeColon(words, last) || !looksLikeSecondHalf(last);
    if (isName) return at(missing, last);
    return at(line.first == last ? rules::nameless : extra, last);
  }

 private:
  /// Returns the index after the last word that stands on the line of this one, in the list.
  [[nodiscard]] std::size_t lineEnd(std::size_t i) const {
    std::size_t end = i;
    while (end < words.size() && AreOnOneLine(words, i, end)) {
      if (BraceOf(words.text(end)) == '}') return end + (words.text(end).front() == '}' ? 0 : 1);
      ++end;
    }
    return end;
  }

  /// Returns whether the pair that the last word of an odd line begins ends with the next line's
  /// first word: because of a colon between them, as in `x` and `: int8`; because that one looks
  /// like a type or a value, as in `x` and `int8`; or because each stands alone, as in `x` and
  /// `Pose`. Then the rest of the next line must be pairs again, unless a colon shows that the word
  /// is the end of a pair, or that the next line is not complete either.
  [[nodiscard]] bool goesOn(WordRange line) const {
    const std::size_t next = line.end;
    const bool isSingle = line.end - line.first == 1;
    if (next >= words.size() || IsBeforeColon(words, next)) return false;
    // A brace may be glued to a type, as in `int8}`.
    if (words.text(next).front() == '}' || BraceOf(words.text(next)) == '{') return false;
    const bool beginsWithType = LooksLikeType(words.text(line.first)) &&
                                !IsBeforeColon(words, line.first) &&
                                !IsAfterColon(words, line.first);
    if (!isSingle && (beginsWithType || IsAfterColon(words, next - 1))) return false;
    const std::size_t nextEnd = BlockBegin(words, {next, lineEnd(next)}).value_or(lineEnd(next));
    const bool leavesPairs = (nextEnd - next) % 2 == 1;
    if (IsAfterColon(words, next) || IsBeforeColon(words, next - 1)) {
      return leavesPairs || looksLikeSecondHalf(next);
    }
    if (looksLikeSecondHalf(next)) return leavesPairs || IsBeforeColon(words, nextEnd - 1);
    return !isEnum() && isSingle && nextEnd - next == 1 && IsIdentifier(words.text(next)) &&
           IsIdentifier(words.text(line.first));
  }

  /// Returns whether the word is rather a type or a value than a name.
  [[nodiscard]] bool looksLikeSecondHalf(std::size_t i) const {
    std::string_view text = words.text(i);
    text = text.substr(0, text.find_last_not_of(";,") + 1);
    const bool isName = IsIdentifier(text) && !LooksLikeType(text);
    if (!isName) return text.find('=') == std::string_view::npos;
    return !isEnum() && types.count(text) > 0 && !IsBeforeColon(words, i);
  }

  const LocatedWords& words;
  const TypeNames& types;
  std::size_t begin;
};

/// Explains a line that opens a block, whose brace is missing above or which cannot stand here.
Fix FixBlock(const LocatedWords& words, WordRange line, std::size_t brace, const List& list) {
  const std::size_t before = brace - line.first;
  const std::size_t last = brace - 1;  // Before the brace.
  if (before > 0 && words.text(last).back() == '\'') {
    return Drop({&rules::notAValue, last, "'{'", "write the number of the character"}, line);
  }
  const WordRange block = {line.first, ClosingBrace(words, brace) + 1};
  if (before >= 2 && IsDeclaration(FindStatement(words.text(last - 1)))) {
    const std::size_t keyword = last - 1;
    Finding finding = FindingAt(rules::missingEnd, words, keyword);
    const bool hasOwnEnd = OpenBraces(words) <= 0;  // It is nested.
    return hasOwnEnd ? Drop(std::move(finding), block)
                     : Insert(std::move(finding), keyword, MissingBraces(words, keyword));
  }
  if (before >= 1 && list.isRequest() && words.text(last) == "response") {
    return Insert(FindingAt(rules::missingClosing, words, last), last, {"}"});
  }
  if (before % 2 == 1 && IsBeforeColon(words, last)) {
    return Drop(list.isEnum() ? FindingAt(rules::notAValue, words, brace)
                              : FindingAt(rules::blockAsType, words, brace),
                block);
  }
  const Rule& rule = list.isEnum() ? rules::blockInEnum : rules::blockInMembers;
  return Drop(FindingAt(rule, words, line.first), block);
}

}  // namespace

std::size_t FirstInMixedLine(const LocatedWords& words, const TypeNames& types,
                             const std::vector<std::size_t>& ofList) {
  const List list(words, types, ofList.front());
  std::size_t end = 0;
  for (const std::size_t word : ofList) {
    if (word < end) continue;  // Its line has been looked at.
    const WordRange line = list.lineOf(word);
    end = line.end;
    bool isMixed = list.qualifierIn(line) != noWord;
    for (std::size_t i = line.first; i < line.end; ++i) {
      isMixed = isMixed || words.text(i).substr(0, 2) == "/*";
    }
    if (isMixed) return word;
  }
  return noWord;
}

bool HasWrongLine(const LocatedWords& words, const TypeNames& types, std::size_t word) {
  return List(words, types, word).firstWrongLine(word).has_value();
}

Fix FixList(const LocatedWords& words, std::size_t word) {
  const TypeNames types = DeclaredTypes(words);
  const List list(words, types, word);
  const std::optional<WordRange> line = list.firstWrongLine(word);
  const WordRange pair = {IsSecondHalf(words.role(word)) ? word - 1 : word, word + 1};
  // Also a line of pairs may be wrong as a whole.
  const bool isWhole =
      IsJoinedByColons(words, word) || list.qualifierIn(list.lineOf(word)) != noWord;
  const WordRange range = line.value_or(isWhole ? list.lineOf(word) : pair);

  if (std::optional<Fix> fix = FixCharacters(words, range)) return *std::move(fix);
  const std::optional<std::size_t> brace = line ? BlockBegin(words, *line) : std::nullopt;
  if (brace.has_value()) return FixBlock(words, *line, *brace, list);
  if (const std::size_t qualifier = list.qualifierIn(range); qualifier != noWord) {
    const Rule& rule = list.isEnum() ? rules::extraWordOfValue : rules::extraWordOfType;
    return Drop(FindingAt(rule, words, qualifier), range);
  }
  if (std::optional<Fix> fix = FixForm(words, range, range)) return *std::move(fix);
  return line.has_value() ? list.fixCount(*line)
                          : Drop(FindingAt(FormRule(words.role(word)), words, word), range);
}

}  // namespace zentho::idlgen
