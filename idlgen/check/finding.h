#pragma once

#include <cstddef>
#include <string_view>

#include "check/rules.h"
#include "schema/parser.h"

namespace zentho {

/// A place where a file breaks a rule.
struct Finding {
  const Rule* rule;
  std::size_t word;            ///< The index of the word at fault.
  std::string_view text;       ///< For the sentence: the word, or the part at fault.
  std::size_t other = noWord;  ///< The index of the word that the note of the rule is about.
};

}  // namespace zentho
