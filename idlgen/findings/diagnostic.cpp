#include "findings/diagnostic.h"

#include <algorithm>
#include <utility>

#include "findings/meant_line.h"
#include "words/printable.h"

namespace zentho::idlgen {
namespace {

/// Returns the name of the enum, message or service that contains the word, or of its part, such
/// as "Drive.Request".
std::string RecordName(const Words& words, std::size_t word) {
  std::string part;
  for (std::size_t i = word; i-- > 0;) {
    const Role role = words.role(i);
    if (role == Role::Part && part.empty()) {
      part = words.text(i) == "request" ? ".Request" : ".Response";
    }
    if (IsRecordName(role)) return Shortened(words.text(i)) + part;
  }
  return {};
}

Remark RemarkAt(SourceFile& file, std::size_t word, std::string sentence) {
  file.locateWords();
  return {file.path, file.words.places[word], file.words.text(word).size(), std::move(sentence)};
}

/// Returns how many columns a printable text takes: one for each character.
std::size_t Width(const std::string& printable) {
  return static_cast<std::size_t>(std::count_if(printable.begin(), printable.end(),
                                                [](char byte) { return (byte & 0xc0) != 0x80; }));
}

/// Returns the part of the line that contains the beginning of the bytes, and a second line that
/// marks them.
std::string Excerpt(const Remark& message) {
  const auto& [lineNumber, line, code, begin] = message.place;
  constexpr std::size_t context = 40;
  const std::size_t cut =
      begin + context <= maxShownSize ? 0 : CharacterBegin(line, begin - context);
  const std::string_view part = line.substr(cut);
  const std::size_t shown = ShownSize(part);
  const std::string before = (cut > 0 ? "..." : "") + Printable(part.substr(0, begin - cut));
  const std::string word =
      Printable(line.substr(begin, std::min(message.size, cut + shown - begin)));

  std::string number = std::to_string(lineNumber);
  number.insert(0, number.size() < 5 ? 5 - number.size() : 0, ' ');
  const std::string margin(number.size(), ' ');
  const std::size_t width = std::max<std::size_t>(Width(word), 1);
  return number + " | " + (cut > 0 ? "..." : "") + Shortened(part) + "\n" + margin + " | " +
         std::string(Width(before), ' ') + "^" + std::string(width - 1, '~') + "\n";
}

std::string Lines(const Remark& message, const char* kind) {
  const Place& place = message.place;
  return Printable(message.path) + ":" + std::to_string(place.lineNumber) + ":" +
         std::to_string(place.offset + 1) + ": " + kind + ": " + message.sentence + "\n" +
         Excerpt(message);
}

/// Returns a sentence or note of a rule, with the word in place of `%` and the record of `@`.
std::string Filled(std::string_view pattern, std::string_view word, std::string_view record) {
  std::string sentence;
  for (const char letter : pattern) {
    if (letter == '%') {
      sentence += Shortened(word);
    } else if (letter == '@') {
      sentence += record;
    } else {
      sentence += letter;
    }
  }
  return sentence;
}

}  // namespace

Diagnostic DiagnosticOf(SourceFile& file, const Finding& finding) {
  const Rule& rule = *finding.rule;
  std::string record;
  std::vector<Remark> notes;
  for (const auto& [other, word] : finding.others) {
    record = RecordName(other->words, word);
    notes.push_back(RemarkAt(*other, word, Filled(rule.note, other->words.text(word), {})));
  }
  file.locateWords();
  Advice advice = finding.advice;
  if (advice.text.empty()) advice = {std::string(rule.advice), std::string(rule.example)};
  const bool isLineAtFault = IsInList(file.words.role(finding.word)) && !advice.isQuestion();
  const std::string meant = isLineAtFault ? MeantLine(file.words, finding.word) : std::string();
  if (!meant.empty()) advice.example = meant;
  std::string sentence = WithAdvice(Filled(rule.sentence, finding.text, record), advice);
  return {rule.severity, RemarkAt(file, finding.word, std::move(sentence)), std::move(notes)};
}

std::string WithAdvice(std::string sentence, const Advice& advice) {
  if (!advice.text.empty()) sentence += ": " + advice.text;
  if (advice.example.empty()) return sentence;
  return sentence + (advice.text.empty() ? ": write " : ", as in ") + Quoted(advice.example);
}

std::string Lines(const Diagnostic& diagnostic) {
  const bool isError = diagnostic.severity == Severity::Error;
  std::string lines = Lines(diagnostic.message, isError ? "error" : "warning");
  for (const Remark& note : diagnostic.notes) lines += Lines(note, "note");
  return lines;
}

}  // namespace zentho::idlgen
