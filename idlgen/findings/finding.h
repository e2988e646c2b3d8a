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

/// What is wrong with a word.
struct Finding {
  const Rule* rule;
  std::size_t word;                 ///< The index of the word at fault.
  std::string_view text;            ///< For the sentence: the word, or the part at fault.
  std::string advice = {};          ///< What to do about it, if that is known already.
  std::vector<WordOf> others = {};  ///< Other words, which the note of the rule is about.
};

}  // namespace zentho::idlgen
