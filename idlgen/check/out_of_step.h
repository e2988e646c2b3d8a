#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "check/rules.h"
#include "schema/parser.h"

namespace zentho {

/// Returns how many of the first `count` words of the text have the role that they are meant for.
/// The next one shows that a word is missing or too many: it is a brace where a name, a type or a
/// value should be, or is glued to one, or has nothing that could be a name, or "::" follows it.
std::size_t WordsInStep(std::string_view text, const Words& words, std::size_t count);

/// Adds the finding about the word that is out of step, at the place of its cause, to those about
/// the words before it. Removes those that are only consequences.
void explainStep(std::string_view text, const Words& words, std::size_t word,
                 std::vector<Finding>& findings);

}  // namespace zentho
