#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "findings/finding.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// A word with the role that it is meant for.
struct MeantWord {
  std::size_t word;
  std::string_view text;
  Role role;
};

/// What suggests the cause of a mistake: characters that no word contains, or the form of a word.
enum class Symptoms : std::uint8_t { Characters, Forms };

/// Returns the first symptom of a kind that one of the words shows in its role, in the order of
/// what it says about the cause. A word that is right in its place shows nothing.
std::optional<Finding> FindSymptom(Symptoms kind, const std::vector<MeantWord>& words);

/// Returns how much the symptoms of a word say about the cause: the smaller, the more. `noSymptom`
/// is the largest.
std::size_t SymptomRank(std::string_view word, Role role);
inline constexpr std::size_t noSymptom = static_cast<std::size_t>(-1);

/// Returns what to do about a word that cannot play its role, or nothing.
std::string FormAdvice(std::string_view word, Role role);

/// Returns the rule that a word breaks because of its form.
const Rule& FormRule(Role role);

}  // namespace zentho::idlgen
