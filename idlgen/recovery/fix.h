#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "findings/finding.h"
#include "sources/source_file.h"
#include "words/located_words.h"

namespace zentho::idlgen {

/// Which earlier message makes a fix a mere consequence, so that nothing more is said.
enum class MayFollow : std::uint8_t {
  Nothing,
  FaultInStatement,  ///< One about a line of the same statement.
  FaultInOther,      ///< One about the line of the word that the note is about.
  AnyFault           ///< Any one, if the file closes all braces that it opens.
};

using Texts = std::vector<std::string>;

/// What is wrong with some words, and what to read in place of them.
struct Fix {
  Finding finding;     ///< About the word that shows the cause.
  WordRange replaced;  ///< May be empty.
  Texts texts = {};    ///< What is read there.
  MayFollow mayFollow = MayFollow::Nothing;
  bool mayDeclare = true;  ///< Whether names among the words that are not read may be declared.
};

/// Returns a finding about a word.
inline Finding FindingAt(const Rule& rule, const Words& words, std::size_t word,
                         std::string advice = {}) {
  return {&rule, word, words.text(word), std::move(advice)};
}

/// Returns a fix that leaves out some words.
inline Fix Drop(Finding finding, WordRange words) {
  return {std::move(finding), words};
}

/// Returns a fix that reads other words in place of some.
inline Fix Replace(Finding finding, WordRange words, Texts texts) {
  return {std::move(finding), words, std::move(texts)};
}

/// Returns a fix that reads more words before one.
inline Fix Insert(Finding finding, std::size_t before, Texts texts) {
  return {std::move(finding), {before, before}, std::move(texts)};
}

/// Returns the fix for a word that stands in a list of members or items.
Fix FixList(const LocatedWords& words, std::size_t word);

/// Returns the fix for a word that stands anywhere else.
Fix FixStatement(const LocatedWords& words, std::size_t word);

/// Returns the fix for a statement that is not complete at the end of the file.
Fix FixEnd(SourceFile& file);

/// Returns what is missing before this word to complete the statement that is open there.
Texts MissingBraces(const Words& words, std::size_t end);

/// Returns whether the list that contains this word has a line, up to that of the word, which opens
/// a block or whose words cannot be read as names followed by types or values. A pair may stand on
/// two lines.
bool HasWrongLine(const LocatedWords& words, const TypeNames& types, std::size_t word);

/// Returns the first of some words of one list whose line is wrong as a whole, although it may
/// consist of pairs: another word qualifies a declaration, as in `1: required int32 x`, or the line
/// has a comment. `noWord` if there is none.
std::size_t FirstInMixedLine(const LocatedWords& words, const TypeNames& types,
                             const std::vector<std::size_t>& ofList);

/// Returns the fix if the cause is in the characters of the words or in two colons between them.
std::optional<Fix> FixCharacters(const LocatedWords& words, WordRange range);

/// Returns the fix if the cause is in the form of one of the words. It leaves out `line`.
std::optional<Fix> FixForm(const LocatedWords& words, WordRange range, WordRange line);

}  // namespace zentho::idlgen
