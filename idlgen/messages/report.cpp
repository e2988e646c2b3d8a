#include "messages/report.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "messages/advice.h"
#include "reader/idl.h"
#include "recovery/symptoms.h"
#include "sources/source_file.h"
#include "words/printable.h"

namespace zentho::idlgen {
namespace {

/// The number of errors and warnings that are shown.
constexpr std::size_t maxMessages = 20;

/// Appends a note about the first comment that is meant as an include, if there is one.
void appendCommentedInclude(const SourceFile& file, std::vector<Remark>& notes) {
  std::string_view text = file.text;
  for (std::size_t lineNumber = 1; !text.empty(); ++lineNumber) {
    const std::string_view line = TakeLine(text);
    const std::size_t hash = std::min(line.find_first_not_of(' '), line.size());
    const std::string_view comment = line.substr(hash);
    if (comment.substr(0, 8) != "#include" && comment.substr(0, 7) != "#import") continue;
    notes.push_back({file.path,
                     {lineNumber, line, line.substr(0, hash), hash},
                     comment.size(),
                     R"(this is a comment: write include "...", without "#")"});
    return;
  }
}

bool IsBefore(const Diagnostic& a, const Diagnostic& b) {
  const Place& first = a.message.place;
  const Place& second = b.message.place;
  return std::tie(first.lineNumber, first.offset) < std::tie(second.lineNumber, second.offset);
}

/// Adds these findings to what recovery has reported about the file, in the order of the places.
std::vector<Diagnostic> Diagnostics(Examination& examination, SourceFile& file,
                                    std::vector<Diagnostic> diagnostics,
                                    std::vector<Finding> findings) {
  bool isIncludeNoted = false;
  for (Finding& finding : findings) {
    finding.advice = AdviceFor(examination, file, finding);
    diagnostics.push_back(DiagnosticOf(file, finding));
    const bool isUnknown = finding.rule->hint == Hint::SimilarType;
    if (isUnknown && !std::exchange(isIncludeNoted, true)) {
      appendCommentedInclude(file, diagnostics.back().notes);
    }
  }
  std::stable_sort(diagnostics.begin(), diagnostics.end(), IsBefore);
  return diagnostics;
}

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

/// Returns one finding of each pair with a colon, and one of the rest of its line, but none of a
/// line of which words are not read. It is the one that says most about the cause: by its symptom,
/// else an error, else the first one. Of an include it is all: they are about different files.
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

}  // namespace

Outcome reportOn(Examination& examination, SourceFile& file, Warnings warnings) {
  RecoveryResult result = examination.examine(file);
  const std::vector<Finding>& found = result.findings;
  const auto isError = [](const Finding& finding) { return finding.isError(); };
  const bool hasFailed = !result.diagnostics.empty() ||
                         std::any_of(found.begin(), found.end(), isError) ||
                         (warnings == Warnings::Fail && !found.empty());

  std::vector<Finding> findings = FindingsToReport(file, result, warnings);
  std::stable_partition(findings.begin(), findings.end(), isError);
  const std::size_t reported = std::min(result.diagnostics.size(), maxMessages);
  const bool isCut = reported + findings.size() > maxMessages;
  if (isCut) findings.resize(maxMessages - reported);

  const std::vector<Diagnostic> diagnostics =
      Diagnostics(examination, file, std::move(result.diagnostics), std::move(findings));
  Outcome outcome{!hasFailed, {}};
  for (const Diagnostic& diagnostic : diagnostics) outcome.messages += Lines(diagnostic);
  if (isCut) outcome.messages += Printable(file.path) + ": more messages are not shown\n";
  if (!result.isComplete) outcome.messages += Printable(file.path) + ": the rest is not checked\n";
  return outcome;
}

Outcome reportAlone(const std::string& path, std::string text, Schema& schema, Warnings warnings) {
  SourceFile file(path, std::move(text));
  Examination examination(file);
  Outcome outcome = reportOn(examination, file, warnings);
  schema = std::move(file.schema);
  return outcome;
}

}  // namespace zentho::idlgen
