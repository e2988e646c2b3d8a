#include "recovery/separators.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Reads the parts of the words between separators, which may be none, in place of the words.
void splitWords(LocatedWords& words, std::string_view separators) {
  std::vector<std::string_view> texts;
  std::vector<Place> places;
  for (std::size_t i = 0; i < words.size(); ++i) {
    for (const std::string_view part : Parts(words.text(i), separators)) {
      texts.push_back(part);
      places.push_back(words.places[i]);
      places.back().offset += static_cast<std::size_t>(part.data() - words.text(i).data());
    }
  }
  words.texts = std::move(texts);
  words.places = std::move(places);
}

/// Returns the error about the character at this place.
Diagnostic ErrorAt(const SourceFile& file, const Place& place, const Rule& rule) {
  return {
      Severity::Error,
      {file.path, place, 1, WithAdvice(std::string(rule.sentence), {std::string(rule.advice)})}};
}

}  // namespace

std::optional<Diagnostic> dropCarriageReturns(SourceFile& file) {
  LocatedWords& words = file.words;
  std::size_t lines = 0;
  std::vector<std::size_t> returns;  // A word of each line that ends with a CR.
  std::vector<std::size_t> ends;     // The words that end with it. It may be part of a comment.
  for (std::size_t i = 0; i < words.size(); i = LineEnd(words, i)) {
    const std::size_t last = LineEnd(words, i) - 1;
    if (words.text(last).back() == '\r') ends.push_back(last);
    if (words.text(i) == "\r") continue;  // There is no word in this line.
    ++lines;
    if (words.places[i].line.back() == '\r') returns.push_back(i);
  }
  if (ends.empty() || (lines > 0 && returns.size() * 2 <= lines)) return std::nullopt;
  Place place = words.places[returns.empty() ? ends.front() : returns.front()];
  place.offset = place.line.size() - 1;
  for (const std::size_t i : ends) words.texts[i].remove_suffix(1);
  splitWords(words, {});  // Drops those that are empty now.
  return ErrorAt(file, place, rules::carriageReturns);
}

std::optional<Diagnostic> dropTabs(SourceFile& file) {
  LocatedWords& words = file.words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::size_t tab = words.text(i).find('\t');
    if (tab == std::string_view::npos) continue;
    Place place = words.places[i];
    place.offset += tab;
    splitWords(words, "\t");
    return ErrorAt(file, place, rules::tabs);
  }
  return std::nullopt;
}

bool IsSeparator(std::string_view word) {
  return word.find_first_not_of(foreignSeparators) == std::string_view::npos;
}

std::vector<std::string_view> Parts(std::string_view text, std::string_view separators) {
  std::vector<std::string_view> parts;
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
    if (text.empty()) return parts;
    parts.push_back(text.substr(0, text.find_first_of(separators)));
    text.remove_prefix(parts.back().size());
  }
}

}  // namespace zentho::idlgen
