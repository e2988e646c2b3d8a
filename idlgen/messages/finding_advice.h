#pragma once

#include <string>

#include "findings/finding.h"
#include "words/located_words.h"

namespace zentho::idlgen {

/// What follows the sentence of a finding, or nothing.
struct Advice {
  std::string text;
  bool isAboutForm = false;  ///< Of a word, and not about what it refers to.
};

/// `declared` are the enums and messages of the file.
Advice AdviceFor(const Finding& finding, const LocatedWords& words, const TypeNames& declared);

}  // namespace zentho::idlgen
