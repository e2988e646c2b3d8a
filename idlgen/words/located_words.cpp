#include "words/located_words.h"

#include <algorithm>

#include "reader/idl.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns 1 for a word that opens a brace, -1 for one that closes one, and 0 for all others.
std::ptrdiff_t Depth(std::string_view word) {
  const char brace = BraceOf(word);
  return brace == '{' ? 1 : brace == '}' ? -1 : 0;
}

/// Returns the rest of the line's code after the word.
std::string_view CodeAfter(const LocatedWords& words, std::size_t i) {
  const Place& place = words.places[i];
  return place.code.substr(std::min(place.offset + words.text(i).size(), place.code.size()));
}

}  // namespace

void locate(LocatedWords& words, std::string_view text) {
  // The words follow each other in the text, with nothing but separators and comments between them.
  constexpr std::string_view separators = " :";
  std::vector<Place>& places = words.places;
  places.clear();
  places.reserve(words.size());
  words.lackBraces = OpenBraces(words) > 0;
  for (std::size_t lineNumber = 1; places.size() < words.size(); ++lineNumber) {
    const std::string_view line = TakeLine(text);
    const std::string_view code = WithoutComment(line);
    std::size_t offset = code.find_first_not_of(separators);
    while (offset != std::string_view::npos) {
      const std::size_t size = words.text(places.size()).size();
      places.push_back({lineNumber, line, code, offset});
      offset = code.find_first_not_of(separators, offset + size);
    }
  }
}

bool AreOnOneLine(const LocatedWords& words, std::size_t a, std::size_t b) {
  return words.places[a].lineNumber == words.places[b].lineNumber;
}

std::size_t LineEnd(const LocatedWords& words, std::size_t i) {
  std::size_t end = i + 1;
  while (end < words.size() && AreOnOneLine(words, i, end)) ++end;
  return end;
}

bool IsBeforeColon(const LocatedWords& words, std::size_t i) {
  const std::string_view after = CodeAfter(words, i);
  const std::size_t next = after.find_first_not_of(" \t");
  return next != std::string_view::npos && after[next] == ':';
}

bool IsAfterColon(const LocatedWords& words, std::size_t i) {
  const std::string_view before = words.places[i].code.substr(0, words.places[i].offset);
  const std::size_t last = before.find_last_not_of(" \t");
  return last != std::string_view::npos && before[last] == ':';
}

bool IsJoinedByColons(const LocatedWords& words, std::size_t i) {
  const std::string_view after = CodeAfter(words, i);
  return after.substr(0, 2) == "::" && after.size() > 2 &&
         std::string_view(" :\t\r").find(after[2]) == std::string_view::npos;
}

std::size_t ClosingBrace(const LocatedWords& words, std::size_t opening) {
  std::ptrdiff_t depth = 0;
  for (std::size_t i = opening; i < words.size(); ++i) {
    depth += Depth(words.text(i));
    if (depth <= 0) return i;
  }
  return LineEnd(words, opening) - 1;
}

std::size_t OpeningBrace(const LocatedWords& words, std::size_t i) {
  const std::size_t end = LineEnd(words, i);
  for (; i < end; ++i) {
    if (words.text(i) == "{") return i;
  }
  return end < words.size() && words.text(end) == "{" ? end : noWord;
}

std::ptrdiff_t OpenBraces(const Words& words) {
  std::ptrdiff_t open = 0;
  for (const std::string_view text : words.texts) open += Depth(text);
  return open;
}

}  // namespace zentho::idlgen
