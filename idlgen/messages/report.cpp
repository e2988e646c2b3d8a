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

/// Returns the name of the enum, message or service that contains the word, or of its part, such
/// as "Drive.Request".
std::string RecordName(const Words& words, std::size_t word) {
  std::string part;
  for (std::size_t i = word; i-- > 0;) {
    const Role role = words.roles[i];
    if (role == Role::Part && part.empty()) {
      part = words.texts[i] == "request" ? ".Request" : ".Response";
    }
    if (IsRecordName(role)) return Shortened(words.texts[i]) + part;
  }
  return {};
}

/// Returns the place of the first comment that is meant as an include, if there is one.
std::vector<Spot> CommentedInclude(std::string_view text) {
  for (std::size_t lineNumber = 1; !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::size_t hash = line.find_first_not_of(' ');
    for (const std::string_view directive : {"#include", "#import"}) {
      if (hash == std::string_view::npos || line.substr(hash, directive.size()) != directive) {
        continue;
      }
      return {{{lineNumber, line, line.substr(0, hash), hash}, line.size() - hash}};
    }
  }
  return {};
}

bool IsBefore(const Diagnostic& a, const Diagnostic& b) {
  const Place& first = a.spot.place;
  const Place& second = b.spot.place;
  return first.lineNumber != second.lineNumber ? first.lineNumber < second.lineNumber
                                               : first.offset < second.offset;
}

/// Chooses the diagnostics that are shown.
class Selection {
 public:
  Selection(Examination& fileExamination, std::size_t fileIndex, const Recovered& fileRecovered,
            Warnings warnings)
      : examination(fileExamination),
        index(fileIndex),
        recovered(fileRecovered),
        diagnostics(fileRecovered.diagnostics) {
    addFindings(Severity::Error);
    if (warnings != Warnings::Ignore) addFindings(Severity::Warning);
    std::stable_sort(diagnostics.begin(), diagnostics.end(), IsBefore);
  }

  [[nodiscard]] const std::vector<Diagnostic>& shown() const { return diagnostics; }
  [[nodiscard]] bool isCut() const { return hasMore; }

 private:
  void addFindings(Severity severity) {
    for (const Finding& finding : recovered.findings) {
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
    const std::size_t line = recovered.file.places[finding.word].lineNumber;
    const std::vector<std::size_t>& lines = recovered.linesAtFault;
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  [[nodiscard]] Advice adviceFor(const Finding& finding) {
    const bool isUnknown = finding.rule->hint == Hint::SimilarType;
    const bool isPath = finding.text.find('.') != std::string_view::npos;
    if (isUnknown && isPath) {
      std::string advice = examination.typeAdvice(index, finding.text);
      if (!advice.empty()) return {std::move(advice)};
    }
    Advice advice = AdviceFor(finding, recovered.file, types);
    if (!advice.text.empty() || !isUnknown || isPath) return advice;
    return {examination.typeAdvice(index, finding.text)};
  }

  /// Returns whether the same has been said about a form of the same line. An example in the advice
  /// makes no difference.
  bool isRepeated(const Finding& finding, const Advice& advice) {
    if (!advice.isAboutForm || advice.text.empty()) return false;
    const std::size_t line = recovered.file.places[finding.word].lineNumber;
    return !given.insert({line, advice.text.substr(0, advice.text.find(", as in"))}).second;
  }

  /// Returns whether the finding is about a pair without a colon, and the form of the next word of
  /// its line is at fault: in `string x = 1`, the "=" shows what is meant.
  [[nodiscard]] bool isBeforeForm(const Finding& finding) const {
    const LocatedWords& file = recovered.file;
    const bool isType = IsSecondHalf(file.role(finding.word));
    const std::size_t next = finding.word + (isType ? 1 : 2);
    const bool hasColon = isType ? IsAfterColon(file, finding.word)
                                 : next < file.size() && IsAfterColon(file, finding.word + 1);
    const bool mayFollow =
        finding.rule == &rules::notDeclared || finding.rule == &rules::builtinTypeAsName;
    if (!mayFollow || hasColon || next >= file.size() || !AreOnOneLine(file, finding.word, next)) {
      return false;
    }
    const std::vector<Finding>& findings = recovered.findings;
    const auto isBefore = [](const Finding& other, std::size_t word) { return other.word < word; };
    const auto found = std::lower_bound(findings.begin(), findings.end(), next, isBefore);
    return found != findings.end() && found->word == next && found->rule->hint == Hint::Form;
  }

  /// Returns whether the finding may follow from one about a word just before it on the line, whose
  /// form is at fault: in `int x = 1`, all words after the first have another role than meant. A
  /// colon beside the word shows that it has the right one.
  bool isConsequence(const Finding& finding, const Advice& advice) {
    const LocatedWords& file = recovered.file;
    const std::size_t i = finding.word;
    const std::size_t last = lastForm;
    if (advice.isAboutForm) lastForm = i;
    if (last == noWord || i <= last || !AreOnOneLine(file, last, i)) return false;
    const bool hasColon = IsAfterColon(file, i) || IsBeforeColon(file, i);
    return advice.isAboutForm ? i <= last + 2 && !hasColon
                              : i == last + 1 && finding.rule == &rules::notDeclared;
  }

  [[nodiscard]] Diagnostic diagnosticOf(const Finding& finding, const Advice& advice) {
    const LocatedWords& file = recovered.file;
    Diagnostic diagnostic{finding.rule->severity, SpotOf(file, finding.word), {}};
    std::string record;
    for (const WordInFile& other : {finding.other, finding.another}) {
      if (other.word == noWord) continue;
      const bool isHere = other.file == nothing;
      const LocatedWords& otherWords = isHere ? file : examination.locatedWords(other.file);
      record = RecordName(otherWords.words, other.word);
      diagnostic.notes.push_back({isHere ? std::string() : examination.file(other.file).path,
                                  SpotOf(otherWords, other.word), std::string(finding.rule->note)});
    }
    if (finding.rule == &rules::notDeclared && !std::exchange(isIncludeNoted, true)) {
      for (const Spot& spot : CommentedInclude(examination.file(index).text)) {
        diagnostic.notes.push_back(
            {{}, spot, R"(this is a comment: write include "...", without "#")"});
      }
    }
    diagnostic.sentence = Sentence(finding.rule->sentence, finding.text, advice.text, record);
    return diagnostic;
  }

  Examination& examination;
  std::size_t index;  ///< Of the file.
  const Recovered& recovered;
  TypeNames types = DeclaredTypes(recovered.file);
  std::vector<Diagnostic> diagnostics;
  std::set<std::pair<std::size_t, std::string>> given;  ///< Advice about lines.
  std::size_t lastForm = noWord;                        ///< The last word whose form is at fault.
  bool hasMore = false;
  bool isIncludeNoted = false;
};

/// Returns whether a run fails because of what is wrong.
bool HasError(const Recovered& recovered, Warnings warnings) {
  return !recovered.diagnostics.empty() ||
         std::any_of(
             recovered.findings.begin(), recovered.findings.end(), [&](const Finding& finding) {
               return warnings == Warnings::Fail || finding.rule->severity == Severity::Error;
             });
}

}  // namespace

Outcome reportOn(Examination& examination, std::size_t file, Warnings warnings) {
  const Recovered* const recovered = examination.examine(file);
  if (recovered == nullptr) return {true, {}};
  const Selection selection(examination, file, *recovered, warnings);
  const SourceFile& source = examination.file(file);
  Outcome outcome{!source.error.has_value() && !HasError(*recovered, warnings), {}};
  for (const Diagnostic& diagnostic : selection.shown()) {
    outcome.messages += Lines(source.path, diagnostic);
  }
  if (selection.isCut()) {
    outcome.messages += Printable(source.path) + ": more messages are not shown\n";
  }
  if (!recovered->isComplete) {
    outcome.messages += Printable(source.path) + ": the rest is not checked\n";
  }
  return outcome;
}

Outcome reportAlone(const std::string& path, std::string text, Schema& schema, Warnings warnings) {
  SourceFile file = ParseSource(path, std::move(text));
  Examination examination(file);
  Outcome outcome = reportOn(examination, 0, warnings);
  schema = std::move(file.schema);
  return outcome;
}

}  // namespace zentho::idlgen
