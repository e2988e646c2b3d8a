#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "findings/finding.h"
#include "recovery/list.h"
#include "sources/source_file.h"
#include "words/located_words.h"

namespace zentho::idlgen {

/// Lines of a file, from the first to the last one. None if the last one comes before the first.
struct LineRange {
  std::size_t first = 1;
  std::size_t last = 0;
};

/// In place of the number of the last line of a file.
inline constexpr std::size_t lastLine = static_cast<std::size_t>(-1);

using Texts = std::vector<std::string>;

/// What is wrong with some words, and what to read in place of them.
struct Fix {
  Finding finding;        ///< About the word that shows the cause.
  WordRange replaced;     ///< Empty if the texts are only put before its first word.
  Texts texts = {};       ///< What is read there. Empty if the words are only left out.
  LineRange causes = {};  ///< If something is reported about one of them, this follows from it.
  bool mayDeclareAnything = false;  ///< Since a name is not known: of a declaration or namespace.
};

/// Returns a finding about a word.
inline Finding FindingAt(const Rule& rule, const Words& words, std::size_t word,
                         Advice advice = {}) {
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
inline Fix Insert(Finding finding, std::size_t before, Texts texts, LineRange causes = {}) {
  return {std::move(finding), {before, before}, std::move(texts), causes};
}

/// Returns the lines that a missing "}" may follow from: any, unless the text lacks one indeed.
inline LineRange CausesOfMissingBrace(const LocatedWords& words) {
  return words.lackBraces ? LineRange() : LineRange{1, lastLine};
}

/// Returns whether the parser refuses the file, or a word cannot have its role, or perhaps cannot
/// because of a "::" or a tab. The words need no places; all other functions need them.
bool NeedsFix(const SourceFile& file);

// The next fix is made by these functions, which change nothing; those that are not in next_fix.cpp
// are in a file of their name, or in fix_form.cpp. Places and causes are tried in this order:
//
//   FixWords           the first word that the parser refuses, or that cannot have its role
//     FixList            in a list: in the first line up to there that does not consist of pairs
//       FixCharacters      characters that no word contains, and "::"
//                          a statement or a block that begins in the line
//                          a word that qualifies a declaration, such as `optional`
//                          several names with one type, or another bracket as the end
//       FixForm            the form of a word
//                          words that are missing or too many
//     FixStatement       elsewhere
//       FixCharacters      as above
//                          a keyword without its path or name on the line above
//                          a brace, or a word after a path, in place of a keyword
//       FixForm            the form of another word in place of a keyword
//                          what the grammar expects there
//     FixEnd             a statement that the file ends in
//   FixFindings        once all words can be read: a list with a finding in such a line or below
//     FixList            as above

/// Returns the fix for the first word that the parser refuses or that cannot have its role, or
/// nothing.
std::optional<Fix> FixWords(SourceFile& file);

/// Returns the fix for the first list with a finding in or below a line that cannot be read in
/// pairs, or nothing: all words after that line have a wrong role.
std::optional<Fix> FixFindings(const LocatedWords& words, const std::vector<Finding>& findings);

/// Returns the fix for a word that stands outside of the lists of members or items.
Fix FixStatement(const LocatedWords& words, std::size_t word);

/// Returns the fix for a word that stands in this list.
Fix FixList(const List& list, std::size_t word);

/// Returns the fix for a statement that is not complete at the end of the file.
Fix FixEnd(SourceFile& file);

/// Returns the fix if the cause is in the characters of the words or in two colons between them.
std::optional<Fix> FixCharacters(const LocatedWords& words, WordRange range);

/// Returns the fix if the cause is in the form of one of the words. It leaves out `line`, or splits
/// a word such as `};`.
std::optional<Fix> FixForm(const LocatedWords& words, WordRange range, WordRange line);

/// Returns what is missing before this word to complete the statement that is open there.
Texts MissingEnd(const Words& words, std::size_t end);

/// Reads the words as the fix says, each of which has a place then. Keeps the names that the others
/// may declare. The roles are wrong until they are parsed.
void applyFix(SourceFile& file, const Fix& fix);

}  // namespace zentho::idlgen
