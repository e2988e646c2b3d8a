#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "findings/rules.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// A word of a file that a note is about.
struct WordOf {
  SourceFile* file;
  std::size_t word;
};

/// What follows a sentence. Empty if nothing is known.
struct Advice {
  std::string text = {};     ///< What to do, or why.
  std::string example = {};  ///< Of what the text says.

  /// Returns whether it asks for another word, so that the rest of the line is right.
  [[nodiscard]] bool isQuestion() const { return !text.empty() && text.back() == '?'; }
};

/// What is wrong with a word.
struct Finding {
  const Rule* rule;
  std::size_t word;                 ///< The index of the word at fault.
  std::string_view text;            ///< For the sentence, mostly the word, or the part at fault.
  Advice advice = {};               ///< In place of that of the rule.
  std::vector<WordOf> others = {};  ///< Other words, which the note of the rule is about.

  [[nodiscard]] bool isError() const { return rule->severity == Severity::Error; }
};

}  // namespace zentho::idlgen
