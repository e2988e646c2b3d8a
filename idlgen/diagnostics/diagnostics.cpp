#include "diagnostics/diagnostics.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>

#include "check/places.h"
#include "diagnostics/hints.h"
#include "diagnostics/printable.h"

namespace zentho {
namespace {

/// The number of errors and warnings that are shown.
constexpr std::size_t limit = 20;

bool IsError(const Finding& finding) {
  return finding.rule->severity == Severity::Error;
}

/// Returns the first findings, but no warning if there are more errors than can be shown.
std::vector<Finding> Selected(const std::vector<Finding>& findings, std::size_t count) {
  if (findings.size() <= count) return findings;
  const auto errors =
      static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), IsError));
  std::size_t errorsLeft = std::min(errors, count);
  std::size_t warningsLeft = count - errorsLeft;
  std::vector<Finding> selected;
  for (const Finding& finding : findings) {
    std::size_t& left = IsError(finding) ? errorsLeft : warningsLeft;
    if (left == 0) continue;
    --left;
    selected.push_back(finding);
  }
  return selected;
}

/// Returns the name of the enum, message or service that contains the word, or of its part, such as
/// "Drive.Request".
std::string RecordName(const Words& words, std::size_t word) {
  std::string part;
  for (std::size_t i = word; i-- > 0;) {
    const Role role = words[i].role;
    if (role == Role::Part && part.empty()) {
      part = words[i].text == "request" ? ".Request" : ".Response";
    }
    if (role == Role::EnumName || role == Role::MessageName || role == Role::ServiceName) {
      return Shortened(words[i].text) + part;
    }
  }
  return {};
}

/// Returns the index of the word that a note about the grammar error shows, or `noWord`: the
/// keyword of the incomplete statement, or the first namespace.
std::size_t OtherWord(const Words& words, const ParseError& error) {
  switch (error.kind) {
    case ParseError::Kind::WrongFormat:
      return noWord;
    case ParseError::Kind::EndOfFile: {
      std::size_t i = error.tokensRead - 1;
      while (words[i].role != Role::Statement) --i;
      return i;
    }
    case ParseError::Kind::SecondNamespace: {
      const auto first = std::find(words.roles.begin(), words.roles.end(), Role::NamespacePath);
      return static_cast<std::size_t>(first - words.roles.begin());
    }
  }
  return noWord;
}

/// Makes the messages about one file.
class Writer {
 public:
  Writer(const std::string& filePath, const Words& fileWords,
         const std::map<std::size_t, Place>& wordPlaces)
      : path(filePath), words(fileWords), places(wordPlaces) {}

  void writeFinding(const Finding& finding) {
    write(IsError(finding) ? "error" : "warning", finding.word, sentenceOf(finding));
    if (finding.other != noWord) write("note", finding.other, std::string(finding.rule->note));
  }

  void writeGrammarError(const ParseError& error, bool isFirst) {
    const std::size_t last = error.tokensRead - 1;
    write("error", last, Shortened(error.reason));
    const std::string hint = GrammarHint(error, words, places.at(last), isFirst);
    if (!hint.empty()) text += location(last) + ": note: " + hint + "\n";
    const std::size_t other = OtherWord(words, error);
    if (other == noWord) return;
    const bool isStatement = words[other].role == Role::Statement;
    write("note", other,
          isStatement ? "this " + std::string(words[other].text) + " is not complete"
                      : "the first one is here");
  }

  std::string text;

 private:
  /// Writes a message and the line of its word.
  void write(const char* kind, std::size_t word, const std::string& sentence) {
    const Place& place = places.at(word);
    text += location(word) + ": " + kind + ": " + sentence + "\n" +
            Excerpt(place.lineNumber, place.line, place.offset, words[word].text.size());
  }

  [[nodiscard]] std::string location(std::size_t word) const {
    const Place& place = places.at(word);
    return Printable(path) + ":" + std::to_string(place.lineNumber) + ":" +
           std::to_string(place.offset + 1);
  }

  [[nodiscard]] std::string sentenceOf(const Finding& finding) const {
    std::string sentence;
    for (const char letter : finding.rule->sentence) {
      if (letter == '%') {
        sentence += Shortened(finding.text);
      } else if (letter == '@') {
        sentence += RecordName(words, finding.other);
      } else {
        sentence += letter;
      }
    }
    const std::string hint = hintFor(finding);
    return hint.empty() ? sentence : sentence + ": " + hint;
  }

  [[nodiscard]] std::string hintFor(const Finding& finding) const {
    if (!finding.advice.empty()) return finding.advice;
    switch (finding.rule->hint) {
      case Hint::None:
        return {};
      case Hint::Form:
        return FormHint(finding.text, words[finding.word]);
      case Hint::SimilarType:
        return TypeHint(finding.text, finding.word, words);
      case Hint::ItemValue:
        return ItemHint(finding.text, words[finding.word], places.at(finding.word));
      case Hint::Colons:
        return ColonsHint(words[finding.word], places.at(finding.word));
    }
    return {};
  }

  const std::string& path;
  const Words& words;
  const std::map<std::size_t, Place>& places;
};

/// Returns the words whose places the messages show.
std::set<std::size_t> WantedWords(const Words& words, const std::vector<Finding>& findings,
                                  const ParseError* grammarError) {
  std::set<std::size_t> wanted;
  for (const Finding& finding : findings) {
    wanted.insert(finding.word);
    if (finding.other != noWord) wanted.insert(finding.other);
  }
  if (grammarError != nullptr) {
    wanted.insert(grammarError->tokensRead - 1);
    const std::size_t other = OtherWord(words, *grammarError);
    if (other != noWord) wanted.insert(other);
  }
  return wanted;
}

/// Returns "1 error" or "2 errors".
std::string Count(std::size_t number, const std::string& noun) {
  return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

}  // namespace

std::string Diagnostics(const std::string& path, std::string_view text, const Words& words,
                        const std::vector<Finding>& findings, const ParseError* grammarError) {
  const std::vector<Finding> shown =
      Selected(findings, grammarError == nullptr ? limit : limit - 1);
  const std::map<std::size_t, Place> places =
      FindPlaces(text, words, WantedWords(words, shown, grammarError));
  Writer writer(path, words, places);
  for (const Finding& finding : shown) writer.writeFinding(finding);
  if (grammarError != nullptr) {
    const bool isFirst = std::none_of(findings.begin(), findings.end(), IsError);
    writer.writeGrammarError(*grammarError, isFirst);
  }
  if (shown.size() < findings.size()) {
    writer.text += Printable(path) + ": " + Count(findings.size() - shown.size(), "more message") +
                   " not shown\n";
  }
  return writer.text;
}

}  // namespace zentho
