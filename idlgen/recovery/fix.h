#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "findings/finding.h"
#include "words/located_words.h"

namespace zentho::idlgen {

/// Lines of a file, from the first to the last one. None unless that comes later.
struct LineRange {
  std::size_t first = 1;
  std::size_t last = 0;
};

/// In place of the number of the last line of a file.
constexpr std::size_t lastLine = static_cast<std::size_t>(-1);

using Texts = std::vector<std::string>;

/// What is wrong with some words, and what to read in place of them.
struct Fix {
  Finding finding;         ///< About the word that shows the cause.
  WordRange replaced;      ///< Empty if the texts are only put before its first word.
  Texts texts = {};        ///< What is read there. Empty if the words are only left out.
  LineRange causes = {};   ///< If something is reported about one of them, this follows from it.
  bool mayDeclare = true;  ///< Whether names among the words that are not read may be declared.
};

/// Reads the words as the fix says, each of which has a place then. Keeps the names that the others
/// may declare. The roles are those of before.
void applyFix(SourceFile& file, const Fix& fix);

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

}  // namespace zentho::idlgen
