#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "findings/places.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// The words of a file and where they stand, in two lists with the same indexes.
struct LocatedWords {
  [[nodiscard]] std::size_t size() const { return words.size(); }
  [[nodiscard]] std::string_view text(std::size_t i) const { return words.texts[i]; }
  [[nodiscard]] Role role(std::size_t i) const { return words.roles[i]; }

  Words words;
  std::vector<Place> places;
};

/// Some words that follow each other: those from `first` on, up to `end`.
struct WordRange {
  std::size_t first;
  std::size_t end;
};

/// Returns whether the two words stand on one line.
bool AreOnOneLine(const LocatedWords& file, std::size_t a, std::size_t b);

/// Returns the index of the first word after this one that stands on a later line.
std::size_t LineEnd(const LocatedWords& file, std::size_t i);

/// Returns whether the next character after the word, apart from spaces, is a colon.
bool IsBeforeColon(const LocatedWords& file, std::size_t i);

/// Returns whether the last character before the word, apart from spaces, is a colon.
bool IsAfterColon(const LocatedWords& file, std::size_t i);

/// Returns whether two colons join the word to the next one, as in `a::B`.
bool IsJoinedByColons(const LocatedWords& file, std::size_t i);

/// Returns the index of the brace that closes the one at `opening`, also with other characters
/// beside it, as in `};`. If there is none, that of the last word of its line.
std::size_t ClosingBrace(const LocatedWords& file, std::size_t opening);

/// Returns the index of the first "{" of the line that begins with this word, or of the next line
/// if that begins with it. `noWord` if there is none.
std::size_t OpeningBrace(const LocatedWords& file, std::size_t i);

/// Returns how many more braces are opened than closed.
std::ptrdiff_t OpenBraces(const LocatedWords& file);

/// The names of the enums and messages of a file.
using TypeNames = std::unordered_set<std::string_view>;

TypeNames DeclaredTypes(const LocatedWords& file);

}  // namespace zentho::idlgen
