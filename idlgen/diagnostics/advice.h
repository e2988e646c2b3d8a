#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "check/located_words.h"
#include "schema/words.h"

namespace zentho {

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
std::string FormAdvice(std::string_view word, Role role);

/// Returns what follows the sentence of the finding, or nothing.
std::string AdviceFor(const Finding& finding, const LocatedWords& file);

/// Returns the keyword of a statement that the word is or, in another language, stands for, or
/// nothing.
std::string_view KeywordFor(std::string_view word);

/// The same, or a keyword that is similar.
std::string_view SimilarKeyword(std::string_view word);

/// Returns whether the word is a type of the language or a fundamental one of C++, perhaps with
/// brackets.
bool LooksLikeType(std::string_view word);

/// Returns whether the word qualifies a declaration in another language, as in `optional x: int8`.
bool IsQualifier(std::string_view word);

}  // namespace zentho
