#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "schema/words.h"

namespace zentho::idlgen {

/// Where a word begins in the text of a file.
struct Place {
  std::size_t lineNumber;  ///< Counts from 1.
  std::string_view line;
  std::string_view code;  ///< The line without its comment.
  std::size_t offset;     ///< In the line, in bytes.
};

/// The words of a file, and where they stand. A valid file needs no places: `locate` finds them.
/// Then there is one for each word.
struct LocatedWords : Words {
  std::vector<Place> places;
  bool lackBraces = false;  ///< Whether they opened more than they closed when they were located.
};

/// Finds the places of the words of a text, which it has in this order, and counts its braces.
void locate(LocatedWords& words, std::string_view text);

/// Some words that follow each other: those from `first` on, up to `end`.
struct WordRange {
  std::size_t first;
  std::size_t end;
};

/// Returns whether the two words stand on one line.
bool AreOnOneLine(const LocatedWords& words, std::size_t a, std::size_t b);

/// Returns the index of the first word after this one that stands on a later line.
std::size_t LineEnd(const LocatedWords& words, std::size_t i);

/// Returns whether the next character after the word, apart from spaces, is a colon.
bool IsBeforeColon(const LocatedWords& words, std::size_t i);

/// Returns whether the last character before the word, apart from spaces, is a colon.
bool IsAfterColon(const LocatedWords& words, std::size_t i);

/// Returns whether two colons join the word to the next one, as in `a::B`.
bool IsJoinedByColons(const LocatedWords& words, std::size_t i);

/// Returns the index of the brace that closes the one at `opening`, also with other characters
/// beside it, as in `};`. If there is none, that of the last word of its line.
std::size_t ClosingBrace(const LocatedWords& words, std::size_t opening);

/// Returns the index of the first "{" in the rest of the line from this word on, or of the next
/// line if that begins with it. `noWord` if there is none.
std::size_t OpeningBrace(const LocatedWords& words, std::size_t i);

/// Returns how many more braces are opened than closed.
std::ptrdiff_t OpenBraces(const Words& words);

}  // namespace zentho::idlgen
