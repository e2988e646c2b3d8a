#include "messages/findings_to_report.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <tuple>
#include <utility>

#include "recovery/symptoms.h"

namespace zentho::idlgen {
namespace {

/// Returns the name of the pair with a colon of its own that the word is part of, or `noWord`.
std::size_t PairOf(const LocatedWords& words, std::size_t word) {
  if (!IsInList(words.role(word))) return noWord;
  const std::size_t name = IsTypeOrValue(words.role(word)) ? word - 1 : word;
  return IsBeforeColon(words, name) ? name : noWord;
}

/// Returns what decides between findings of one pair: the smallest is reported.
std::tuple<std::size_t, Severity, std::size_t> RankOf(const Words& words, const Finding& finding) {
  const bool isForm = finding.rule->hint == Hint::Form;
  const std::size_t symptom = isForm ? SymptomOf(words, finding).rank : Symptom().rank;
  return {symptom, finding.rule->severity, finding.word};
}

}  // namespace

std::vector<Finding> FindingsToReport(const SourceFile& file, const RecoveryResult& result,
                                      Warnings warnings) {
  const LocatedWords& words = file.words;
  const std::vector<std::size_t>& linesAtFault = result.linesAtFault;
  std::vector<Finding> chosen;
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> known;  // By line and pair.
  for (const Finding& finding : result.findings) {
    const bool isWarning = finding.rule->severity == Severity::Warning;
    if (isWarning && warnings == Warnings::Ignore) continue;
    const std::size_t line = words.places[finding.word].lineNumber;
    if (std::find(linesAtFault.begin(), linesAtFault.end(), line) != linesAtFault.end()) continue;
    const bool isOfInclude = words.role(finding.word) == Role::IncludePath;
    const auto [place, isNew] =
        known.try_emplace({line, PairOf(words, finding.word)}, chosen.size());
    if (isNew || isOfInclude) {
      chosen.push_back(finding);
    } else if (RankOf(words, finding) < RankOf(words, chosen[place->second])) {
      chosen[place->second] = finding;
    }
  }
  return chosen;
}

}  // namespace zentho::idlgen
