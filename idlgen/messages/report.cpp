#include "messages/report.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

#include "messages/finding_advice.h"
#include "sources/source_file.h"
#include "words/printable.h"

namespace zentho::idlgen {
namespace {

/// The number of errors and warnings that are shown.
constexpr std::size_t mostMessages = 20;

/// Appends a note about the first comment that is meant as an include, if there is one.
void appendCommentedInclude(const SourceFile& file, std::vector<Message>& notes) {
  std::string_view text = file.text;
  for (std::size_t lineNumber = 1; !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::size_t hash = line.find_first_not_of(' ');
    for (const std::string_view directive : {"#include", "#import"}) {
      if (hash == std::string_view::npos || line.substr(hash, directive.size()) != directive) {
        continue;
      }
      notes.push_back({file.path,
                       {lineNumber, line, line.substr(0, hash), hash},
                       line.size() - hash,
                       R"(this is a comment: write include "...", without "#")"});
      return;
    }
  }
}

bool IsBefore(const Diagnostic& a, const Diagnostic& b) {
  const Place& first = a.message.place;
  const Place& second = b.message.place;
  return first.lineNumber != second.lineNumber ? first.lineNumber < second.lineNumber
                                               : first.offset < second.offset;
}

/// Chooses the diagnostics that are shown.
class Selection {
 public:
  Selection(Examination& fileExamination, SourceFile& sourceFile, const Recovery& fileRecovery,
            Warnings warnings)
      : examination(fileExamination),
        file(sourceFile),
        recovery(fileRecovery),
        diagnostics(fileRecovery.diagnostics) {
    addFindings(Severity::Error);
    if (warnings != Warnings::Ignore) addFindings(Severity::Warning);
    std::stable_sort(diagnostics.begin(), diagnostics.end(), IsBefore);
  }

  [[nodiscard]] const std::vector<Diagnostic>& shown() const { return diagnostics; }
  [[nodiscard]] bool isCut() const { return hasMore; }

 private:
  void addFindings(Severity severity) {
    for (const Finding& finding : recovery.findings) {
      if (finding.rule->severity != severity || isInLineAtFault(finding)) continue;
      if (isBeforeForm(finding)) continue;
      const Advice advice = adviceFor(finding);
      if (isRepeated(finding, advice) || isConsequence(finding, advice)) continue;
      if (diagnostics.size() >= mostMessages) {
        hasMore = true;
        return;
      }
      diagnostics.push_back(diagnosticOf(finding, advice));
    }
  }

  /// Returns whether the line of the finding has been reported as a whole.
  [[nodiscard]] bool isInLineAtFault(const Finding& finding) const {
    const std::size_t line = words.places[finding.word].lineNumber;
    const std::vector<std::size_t>& lines = recovery.linesAtFault;
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  [[nodiscard]] Advice adviceFor(const Finding& finding) {
    const bool isUnknown = finding.rule->hint == Hint::SimilarType;
    const bool isPath = finding.text.find('.') != std::string_view::npos;
    if (isUnknown && isPath) {
      std::string advice = examination.typeAdvice(file, finding.text);
      if (!advice.empty()) return {std::move(advice)};
    }
    Advice advice = AdviceFor(finding, words, types);
    if (!advice.text.empty() || !isUnknown || isPath) return advice;
    return {examination.typeAdvice(file, finding.text)};
  }

  /// Returns whether the same has been said about a form of the same line. An example in the advice
  /// makes no difference.
  bool isRepeated(const Finding& finding, const Advice& advice) {
    if (!advice.isAboutForm || advice.text.empty()) return false;
    const std::size_t line = words.places[finding.word].lineNumber;
    return !given.insert({line, advice.text.substr(0, advice.text.find(", as in"))}).second;
  }

  /// Returns whether the finding is about a pair without a colon, and the form of the next word of
  /// its line is at fault: in `string x = 1`, the "=" shows what is meant.
  [[nodiscard]] bool isBeforeForm(const Finding& finding) const {
    const bool isType = IsSecondHalf(words.role(finding.word));
    const std::size_t next = finding.word + (isType ? 1 : 2);
    const bool hasColon = isType ? IsAfterColon(words, finding.word)
                                 : next < words.size() && IsAfterColon(words, finding.word + 1);
    const bool mayFollow =
        finding.rule == &rules::notDeclared || finding.rule == &rules::builtinTypeAsName;
    if (!mayFollow || hasColon || next >= words.size() ||
        !AreOnOneLine(words, finding.word, next)) {
      return false;
    }
    const std::vector<Finding>& findings = recovery.findings;
    const auto isBefore = [](const Finding& other, std::size_t word) { return other.word < word; };
    const auto found = std::lower_bound(findings.begin(), findings.end(), next, isBefore);
    return found != findings.end() && found->word == next && found->rule->hint == Hint::Form;
  }

  /// Returns whether the finding may follow from one about a word just before it on the line, whose
  /// form is at fault: in `int x = 1`, all words after the first have another role than meant. A
  /// colon beside the word shows that it has the right one.
  bool isConsequence(const Finding& finding, const Advice& advice) {
    const std::size_t i = finding.word;
    const std::size_t last = lastForm;
    if (advice.isAboutForm) lastForm = i;
    if (last == noWord || i <= last || !AreOnOneLine(words, last, i)) return false;
    const bool hasColon = IsAfterColon(words, i) || IsBeforeColon(words, i);
    return advice.isAboutForm ? i <= last + 2 && !hasColon
                              : i == last + 1 && finding.rule == &rules::notDeclared;
  }

  [[nodiscard]] Diagnostic diagnosticOf(Finding finding, const Advice& advice) {
    finding.advice = advice.text;
    Diagnostic diagnostic = DiagnosticOf(file, finding);
    const bool isUnknown = finding.rule->hint == Hint::SimilarType;
    if (isUnknown && !std::exchange(isIncludeNoted, true)) {
      appendCommentedInclude(file, diagnostic.notes);
    }
    return diagnostic;
  }

  Examination& examination;
  SourceFile& file;
  const Recovery& recovery;
  const LocatedWords& words = file.words;
  TypeNames types = DeclaredTypes(words);
  std::vector<Diagnostic> diagnostics;
  std::set<std::pair<std::size_t, std::string>> given;  ///< Advice about lines.
  std::size_t lastForm = noWord;                        ///< The last word whose form is at fault.
  bool hasMore = false;
  bool isIncludeNoted = false;
};

/// Returns whether a run fails because of what is wrong.
bool HasError(const Recovery& recovery, Warnings warnings) {
  const auto isError = [&](const Finding& finding) {
    return warnings == Warnings::Fail || finding.rule->severity == Severity::Error;
  };
  return !recovery.diagnostics.empty() ||
         std::any_of(recovery.findings.begin(), recovery.findings.end(), isError);
}

}  // namespace

Outcome reportOn(Examination& examination, SourceFile& file, Warnings warnings) {
  const Recovery* const recovery = examination.examine(file);
  if (recovery == nullptr) return {true, {}};
  const Selection selection(examination, file, *recovery, warnings);
  Outcome outcome{!HasError(*recovery, warnings), {}};
  for (const Diagnostic& diagnostic : selection.shown()) outcome.messages += Lines(diagnostic);
  if (selection.isCut()) {
    outcome.messages += Printable(file.path) + ": more messages are not shown\n";
  }
  if (!recovery->isComplete) {
    outcome.messages += Printable(file.path) + ": the rest is not checked\n";
  }
  return outcome;
}

Outcome reportAlone(const std::string& path, std::string text, Schema& schema, Warnings warnings) {
  SourceFile file = ParseSource(path, std::move(text));
  Examination examination(file);
  Outcome outcome = reportOn(examination, file, warnings);
  schema = std::move(file.schema);
  return outcome;
}

}  // namespace zentho::idlgen
