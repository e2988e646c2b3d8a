#include "findings/diagnostic.h"

#include "findings/excerpt.h"
#include "words/printable.h"

namespace zentho::idlgen {
namespace {

std::string Line(const std::string& path, const char* kind, const Spot& spot,
                 const std::string& sentence) {
  const Place& place = spot.place;
  return Printable(path) + ":" + std::to_string(place.lineNumber) + ":" +
         std::to_string(place.offset + 1) + ": " + kind + ": " + sentence + "\n" +
         Excerpt(place.lineNumber, place.line, place.offset, spot.size);
}

}  // namespace

Spot SpotOf(const LocatedWords& file, std::size_t word) {
  return {file.places[word], file.text(word).size()};
}

std::string Sentence(std::string_view pattern, std::string_view text, const std::string& advice,
                     std::string_view record) {
  std::string sentence;
  for (const char letter : pattern) {
    if (letter == '%') {
      sentence += Shortened(text);
    } else if (letter == '@') {
      sentence += record;
    } else {
      sentence += letter;
    }
  }
  return advice.empty() ? sentence : sentence + ": " + advice;
}

std::string Lines(const std::string& path, const Diagnostic& diagnostic) {
  const char* const kind = diagnostic.severity == Severity::Error ? "error" : "warning";
  std::string lines = Line(path, kind, diagnostic.spot, diagnostic.sentence);
  for (const Note& note : diagnostic.notes) {
    lines += Line(note.path.empty() ? path : note.path, "note", note.spot, note.sentence);
  }
  return lines;
}

}  // namespace zentho::idlgen
