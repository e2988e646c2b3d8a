#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "findings/finding.h"
#include "words/located_words.h"

namespace zentho::idlgen {

/// Which earlier message makes a fix a mere consequence, so that nothing more is said.
enum class MayFollow : std::uint8_t {
  Nothing,
  FaultInStatement,  ///< One about a line of the same statement.
  FaultInOther,      ///< One about the line of the word that the finding's note is about.
  AnyFault           ///< Any one, if the file closes all braces that it opens.
};

using Texts = std::vector<std::string>;

/// What is wrong with some words, and what to read in place of them.
struct Fix {
  Finding finding;     ///< About the word that shows the cause.
  WordRange replaced;  ///< Empty if the texts are only put before its first word.
  Texts texts = {};    ///< What is read there. Empty if the words are only left out.
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

}  // namespace zentho::idlgen
