#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "findings/located_words.h"
#include "findings/rules.h"
#include "recovery/advice.h"

namespace zentho::idlgen {

/// What has been said before a fault that may only follow from it, so that nothing more is said.
enum class MayFollow : std::uint8_t {
  Nothing,
  FaultInStatement,  ///< A line of the same statement is at fault.
  FaultInOther,      ///< The line of the word that the note is about is.
  AnyFault           ///< Any line is, and the file closes all braces that it opens.
};

/// What is wrong with some words, and what to read in place of them.
struct Fix {
  const Rule* rule;
  std::size_t word;       ///< The word that shows the cause.
  std::string_view text;  ///< For the sentence of the rule.
  std::string advice;

  WordRange replaced;                   ///< May be empty.
  std::vector<std::string> texts = {};  ///< What is read there.
  std::size_t other = noWord;           ///< The word that the note of the rule is about.
  std::size_t closing = noWord;         ///< A brace further on that is left out, too.
  MayFollow mayFollow = MayFollow::Nothing;
  bool mayDeclare = true;  ///< Whether names among the words that are not read may be declared.
};

/// Returns the fix for a word that stands in a list of members or items.
Fix FixList(const LocatedWords& file, std::size_t word);

/// Returns the fix for a word that stands anywhere else.
Fix FixStatement(const LocatedWords& file, std::size_t word);

/// Returns the fix for a statement that is not complete at the end of the file.
Fix FixEnd(const LocatedWords& file);

/// Returns what is missing before this word to complete the statement that is open there.
std::vector<std::string> MissingBraces(const LocatedWords& file, std::size_t end);

/// Returns whether the list that contains this word has a line, up to that of the word, which opens
/// a block or whose words cannot be read as names followed by types or values. A pair may stand on
/// two lines.
bool HasWrongLine(const LocatedWords& file, const TypeNames& types, std::size_t word);

/// Returns the first of some words of one list whose line is wrong as a whole, although it may
/// consist of pairs: another word qualifies a declaration, as in `1: required int32 x`, or the line
/// has a comment. `noWord` if there is none.
std::size_t FirstInMixedLine(const LocatedWords& file, const TypeNames& types,
                             const std::vector<std::size_t>& words);

/// Returns the fix if the cause is in the characters of the words or in two colons between them.
std::optional<Fix> FixCharacters(const LocatedWords& file, WordRange range);

/// Returns the fix if the cause is in the form of one of the words. It leaves out `line`.
std::optional<Fix> FixForm(const LocatedWords& file, Signs signs, WordRange range, WordRange line);

/// Returns the rule that a word breaks because of its form.
const Rule& FormRule(Role role);

}  // namespace zentho::idlgen
