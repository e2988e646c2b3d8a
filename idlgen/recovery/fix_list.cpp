#include <algorithm>
#include <optional>
#include <utility>

#include "recovery/fixes.h"
#include "recovery/symptoms.h"
#include "schema/statements.h"
#include "words/foreign_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns the rule that a word too many breaks.
const Rule& ExtraWord(const List& list) {
  return list.isEnum() ? rules::extraWordOfValue : rules::extraWordOfType;
}

/// Returns the fix for a line in which words are missing or too many.
Fix FixOddLine(const List& list, WordRange line) {
  const LocatedWords& words = list.words;
  const auto at = [&](const Rule& rule, std::size_t word) {
    return Drop(FindingAt(rule, words, word), line);
  };
  const std::size_t last = line.end - 1;
  const Rule& missing = list.isEnum() ? rules::missingValue : rules::missingType;
  const Rule& extra = ExtraWord(list);
  for (std::size_t i = line.first; i < last; i += 2) {
    const bool isPair = !IsBeforeColon(words, i + 1) || list.looksLikeTypeOrValue(i + 1);
    if (isPair) continue;
    // `x: y: int8`, else `my x: int8`
    return at(IsBeforeColon(words, i) ? missing : extra, i);
  }
  // `int8`
  const bool isType = !IsBeforeColon(words, last) && list.looksLikeTypeOrValue(last);
  if (isType && line.first == last) return at(rules::nameless, last);
  // `x: int8 more` or `int8 x more`, else `x int8 y`
  const bool isFirst = IsBeforeColon(words, line.first) || LooksLikeType(words.text(line.first));
  const bool isExtra = isType || (isFirst && line.first != last && !IsBeforeColon(words, last));
  return at(isExtra ? extra : missing, last);
}

/// Explains a line in which a statement begins: a brace is missing above, or it is nested.
Fix FixStatementIn(const List& list, WordRange line, std::size_t keyword) {
  const LocatedWords& words = list.words;
  Finding finding = FindingAt(rules::missingEnd, words, keyword);
  if (OpenBraces(words) > 0) {  // Also the beginning of this list may be missing.
    return Insert(std::move(finding), keyword, MissingEnd(words, keyword),
                  CausesOfMissingBrace(words));
  }
  const std::size_t brace = list.blockBegin(line);
  return Drop(std::move(finding),
              {line.first, brace == noWord ? line.end : ClosingBrace(words, brace) + 1});
}

/// Explains a line that opens a block which cannot stand here.
Fix FixBlock(const List& list, WordRange line, std::size_t brace) {
  const LocatedWords& words = list.words;
  const std::size_t before = brace - 1;
  const bool isFirst = brace == line.first;
  // `A: '{'`, which the reader has split.
  if (!isFirst && words.text(before).back() == '\'') {
    return Drop({&rules::notAValue, before, "'{'", {"write the number of the character"}}, line);
  }
  // `response {`, where the request is still open.
  if (!isFirst && list.isRequest() && words.text(before) == "response") {
    return Insert(FindingAt(rules::missingClosing, words, before), before, {"}"});
  }
  // A second "{" after the name of the message.
  const Rule& noPair = list.isEnum() ? rules::blockInEnum : rules::blockInMembers;
  if (list.isBegin(brace) && OpenBraces(words) > 0) {
    return Drop(FindingAt(noPair, words, brace), {brace, brace + 1});
  }
  // `x: { y: int8 }`, else `oneof x { y: int8 }`
  const WordRange block = {line.first, ClosingBrace(words, brace) + 1};
  const bool isType = (brace - line.first) % 2 == 1 && IsBeforeColon(words, before);
  const Rule& rule = list.isEnum() ? rules::notAValue : rules::blockAsType;
  return isType ? Drop(FindingAt(rule, words, brace), block)
                : Drop(FindingAt(noPair, words, line.first), block);
}

/// Returns whether another bracket stands in place of the "}" that the text lacks, as the last word
/// of a line.
bool EndsWithOtherBracket(const LocatedWords& words, WordRange line) {
  const std::string_view last = words.text(line.end - 1);
  return (last == "]" || last == ")" || last == ">") && OpenBraces(words) > 0;
}

}  // namespace

Fix FixList(const List& list, std::size_t word) {
  const LocatedWords& words = list.words;
  const std::optional<WordRange> line = list.firstWrongLine(word);
  const WordRange pair = {IsTypeOrValue(words.role(word)) ? word - 1 : word, word + 1};
  // Also a line of pairs may be wrong as a whole.
  const WordRange ownLine = list.lineOf(word);
  const WordRange whole = {std::min(pair.first, ownLine.first), ownLine.end};
  const WordRange range = line.value_or(list.isOneDeclaration(ownLine) ? whole : pair);

  if (std::optional<Fix> fix = FixCharacters(words, range)) return *std::move(fix);
  if (line.has_value()) {
    const std::size_t statement = list.statementIn(*line);
    if (statement != noWord) return FixStatementIn(list, *line, statement);
    const std::size_t brace = list.blockBegin(*line);
    if (brace != noWord) return FixBlock(list, *line, brace);
  }
  if (const std::size_t qualifier = list.qualifierIn(range); qualifier != noWord) {
    const bool isForeign = BeginsForeignLine(words.text(qualifier));
    const Rule& rule = isForeign ? rules::foreignLine : ExtraWord(list);
    return Drop(FindingAt(rule, words, qualifier), range);
  }
  if (const std::size_t name = list.oneOfSeveralNames(range); name != noWord) {
    return Drop(FindingAt(rules::severalNames, words, name), range);
  }
  if (line.has_value() && EndsWithOtherBracket(words, *line)) {
    const std::size_t last = line->end - 1;
    return Replace(FindingAt(rules::notAnEnd, words, last), {last, line->end}, {"}"});
  }
  if (std::optional<Fix> fix = FixForm(words, range, range)) return *std::move(fix);
  return line.has_value() ? FixOddLine(list, *line)
                          : Drop(FindingAt(FormRule(words.role(word)), words, word), range);
}

}  // namespace zentho::idlgen
