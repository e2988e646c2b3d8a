#include <optional>
#include <utility>

#include "recovery/fixes.h"
#include "recovery/symptoms.h"
#include "schema/statements.h"
#include "words/foreign_words.h"

namespace zentho::idlgen {
namespace {

/// Returns the fix for a line in which words are missing or too many.
Fix FixOddLine(const List& list, WordRange line) {
  const LocatedWords& words = list.words;
  const auto at = [&](const Rule& rule, std::size_t word) {
    return Drop(FindingAt(rule, words, word), line);
  };
  const std::size_t last = line.end - 1;
  const Rule& missing = list.isEnum() ? rules::missingValue : rules::missingType;
  const Rule& extra = list.isEnum() ? rules::extraWordOfValue : rules::extraWordOfType;
  for (std::size_t i = line.first; i < last; i += 2) {
    if (!IsBeforeColon(words, i + 1) || list.looksLikeTypeOrValue(i + 1)) continue;
    return at(IsBeforeColon(words, i) ? missing : extra, i);
  }
  const bool isName = IsBeforeColon(words, last) ||
                      (!IsBeforeColon(words, line.first) && !list.looksLikeTypeOrValue(last));
  if (isName) return at(missing, last);
  return at(line.first == last ? rules::nameless : extra, last);
}

/// Explains a line in which a statement begins: a brace is missing above, or it is nested.
Fix FixStatementIn(const List& list, WordRange line, std::size_t keyword) {
  const LocatedWords& words = list.words;
  Finding finding = FindingAt(rules::missingEnd, words, keyword);
  if (OpenBraces(words) > 0) {  // Also the beginning of this list may be missing.
    return Insert(std::move(finding), keyword, MissingBraces(words, keyword),
                  CausesOfMissingBrace(words));
  }
  const std::size_t brace = list.blockBegin(line);
  return Drop(std::move(finding),
              {line.first, brace == noWord ? line.end : ClosingBrace(words, brace) + 1});
}

/// Explains a line that opens a block, whose brace is missing above or which cannot stand here.
Fix FixBlock(const List& list, WordRange line, std::size_t brace) {
  const LocatedWords& words = list.words;
  const std::size_t before = brace - line.first;
  const std::size_t last = brace - 1;                   // Before the brace.
  if (before > 0 && words.text(last).back() == '\'') {  // The reader has split `'{'`.
    return Drop({&rules::notAValue, last, "'{'", {"write the number of the character"}}, line);
  }
  const bool isDoubled = list.isBegin(brace) && OpenBraces(words) > 0;
  const WordRange block = {line.first, isDoubled ? brace + 1 : ClosingBrace(words, brace) + 1};
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
  const WordRange range = line.value_or(list.isOneDeclaration(ownLine) ? ownLine : pair);

  if (std::optional<Fix> fix = FixCharacters(words, range)) return *std::move(fix);
  if (line.has_value()) {
    const std::size_t statement = list.statementIn(*line);
    if (statement != noWord) return FixStatementIn(list, *line, statement);
    const std::size_t brace = list.blockBegin(*line);
    if (brace != noWord) return FixBlock(list, *line, brace);
  }
  if (const std::size_t qualifier = list.qualifierIn(range); qualifier != noWord) {
    const Rule& extra = list.isEnum() ? rules::extraWordOfValue : rules::extraWordOfType;
    const Rule& rule = BeginsForeignLine(words.text(qualifier)) ? rules::foreignLine : extra;
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
