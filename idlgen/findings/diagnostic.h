#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "findings/located_words.h"
#include "findings/places.h"
#include "findings/rules.h"

namespace zentho::idlgen {

/// A word that a diagnostic shows.
struct Spot {
  Place place;
  std::size_t size;  ///< In bytes.
};

Spot SpotOf(const LocatedWords& file, std::size_t word);

/// A second sentence of a diagnostic, about another place.
struct Note {
  std::string path;  ///< Of the file, or empty if it is the same one.
  Spot spot;
  std::string sentence;
};

/// What is said about a place in a file:
///
///     idl/robot.idl:7:8: error: "int8;" is not a type: delete the ";"
///         7 |     x: int8;
///           |        ^~~~~
///
struct Diagnostic {
  Severity severity;
  Spot spot;
  std::string sentence;
  std::vector<Note> notes = {};
};

/// Returns a sentence or note of a rule, with the text in place of `%` and the record in place of
/// `@`, followed by the advice, if there is one.
std::string Sentence(std::string_view pattern, std::string_view text, const std::string& advice,
                     std::string_view record = {});

/// Returns the lines of a diagnostic about the file at `path`.
std::string Lines(const std::string& path, const Diagnostic& diagnostic);

}  // namespace zentho::idlgen
