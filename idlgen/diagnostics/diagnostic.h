#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "check/rules.h"
#include "reader/places.h"

namespace zentho {

/// A word that a diagnostic shows.
struct Spot {
  Place place;
  std::size_t size;  ///< In bytes.
};

/// A diagnostic about a file:
///
///     idl/robot.idl:7:8: error: "int8;" is not a type: delete the ";"
///         7 |     x: int8;
///           |        ^~~~~
///
struct Diagnostic {
  Severity severity;
  Spot spot;
  std::string sentence;
  std::string note = {};  ///< A second sentence, about another place. Empty if there is none.
  Spot noteSpot = {};
};

/// Returns the sentence of a rule about this text, followed by the advice, if there is one.
std::string Sentence(const Rule& rule, std::string_view text, const std::string& advice,
                     std::string_view record = {});

/// Returns the lines of a diagnostic about the file at `path`.
std::string Lines(const std::string& path, const Diagnostic& diagnostic);

}  // namespace zentho
