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

/// The symptoms that are looked for: characters that no word contains, equals signs, or all others.
enum class Symptoms : std::uint8_t { Characters, Assignments, Forms };

/// Returns the first symptom that one of the words shows in its role, in the order of what it says
/// about the cause. A word that is right in its place shows nothing.
std::optional<Finding> FindSymptom(Symptoms symptoms, const std::vector<MeantWord>& words);

/// Returns the place of the first symptom of the word in this order, or `noSymptom`.
std::size_t SymptomRank(std::string_view word, Role role);
inline constexpr std::size_t noSymptom = static_cast<std::size_t>(-1);

/// Returns what to do about a word that cannot play its role, or nothing.
std::string FormAdvice(std::string_view part, Role role);

/// Returns the rule that a word breaks because of its form.
const Rule& FormRule(Role role);

}  // namespace zentho::idlgen
