#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/words.h"

namespace zentho::idlgen {

/// What a word shows that cannot be what its place means.
struct Sign {
  std::size_t word;  ///< Its index among the words that were looked at.
  std::string advice;
};

/// The signs that are looked for: characters that no word contains, equals signs, or all others.
enum class Signs { Characters, Assignments, Forms };

/// Returns the first sign, in the order of what it says about the cause, that one of the words
/// shows in its role. A word that is right in its place shows nothing.
std::optional<Sign> FindSign(Signs signs, const std::vector<Word>& words);

/// Returns what to do about a word that cannot play its role, or nothing.
std::string FormAdvice(std::string_view part, Role role);

}  // namespace zentho::idlgen
