#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
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

/// Returns the rule that a word of this role breaks because of its form.
const Rule& FormRule(Role role);

/// What suggests the cause of a mistake: characters that no word contains, or the form of a word.
enum class SymptomKind : std::uint8_t { Characters, Forms };

/// Returns the first symptom that one of the words shows in its role, in the order of what it says
/// about the cause, or nothing if that is not of this kind. A word that is right in its place shows
/// nothing.
std::optional<Finding> FindSymptom(SymptomKind kind, const std::vector<MeantWord>& words);

/// What a word shows, and what to do about it. There may be advice without a symptom.
struct Symptom {
  std::size_t rank = static_cast<std::size_t>(-1);  ///< The smaller, the more it says.
  Advice advice = {};
};

/// Returns the first symptom of a word that cannot play its role: of the part at fault, else of the
/// whole word if that is a type.
Symptom SymptomOf(const Words& words, const Finding& finding);

}  // namespace zentho::idlgen
