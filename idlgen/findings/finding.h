#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "findings/rules.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// No index of a declaration, file or namespace.
constexpr std::size_t nothing = static_cast<std::size_t>(-1);

/// A word of this or another file.
struct WordInFile {
  std::size_t word = noWord;
  std::size_t file = nothing;  ///< `nothing` for the file that breaks the rule.
};

/// A place where a file breaks a rule.
struct Finding {
  const Rule* rule;
  std::size_t word;         ///< The index of the word at fault.
  std::string_view text;    ///< For the sentence: the word, or the part at fault.
  WordInFile other = {};    ///< The word that the note of the rule is about, if there is one.
  WordInFile another = {};  ///< A second one.
  std::string advice = {};  ///< If not empty, it follows the sentence in place of the hint.
};

/// Puts findings in the order of their words.
void sort(std::vector<Finding>& findings);

}  // namespace zentho::idlgen
