#pragma once

#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"
#include "sources/include_search.h"
#include "words/located_words.h"

namespace zentho::idlgen {

struct SourceFile;

/// What is reported at an include statement: of its path, or of one in a file that it brings.
struct MissingInclude {
  std::string path;    ///< Its word, and where it stands if that is elsewhere.
  std::string advice;  ///< What to do about it, or why it cannot be read.
  bool isUnreadable;
  std::size_t others = 0;  ///< The number of the other includes of which that is true.
};

/// What an include statement leads to.
struct Include {
  IncludeKind kind = IncludeKind::Other;
  SourceFile* file = nullptr;              ///< The file that was found.
  std::string reason = {};                 ///< Why it cannot be read.
  std::list<MissingInclude> missing = {};  ///< What is reported here.
};

/// Names that may be declared although no word that is read declares them.
struct PossibleNames {
  std::unordered_set<std::string_view> names;
  bool mayDeclareAnything = false;  ///< As an include may.
};

/// An IDL file, from its reading to its messages. Stays where it is: the words refer to `idl`, and
/// their places to `text`.
struct SourceFile {
  /// Splits and parses the text. Prints nothing. Nothing is included yet.
  SourceFile(std::string openedPath, std::string wholeText);
  SourceFile(const SourceFile&) = delete;
  SourceFile& operator=(const SourceFile&) = delete;

  /// Finds the places of the words, unless that has been done.
  void locateWords();

  // As it was read.
  std::string path;  ///< By which it was opened.
  std::string text;
  IDL idl;
  Schema schema;  ///< Of the statements before the first error.
  std::unordered_map<std::string_view, Include> includes;  ///< By the word of the path.
  bool isNamed = false;      ///< Whether the run names it, or has only found its include.
  std::string sameHeaderAs;  ///< The path of a named file before it with the same header, or empty.

  // As the parser reads it: at first the words of the text, later those that recovery puts there.
  LocatedWords words;
  std::optional<ParseError> error;  ///< Why the parser refuses these words.
  std::list<std::string> ownTexts;  ///< What recovery has put in place of words of the text.
  PossibleNames dropped;            ///< In words that recovery has taken out.
};

/// Returns the words of the paths that a file includes, in their order.
std::vector<std::string_view> IncludeWords(const SourceFile& file);

/// Returns the path that the word of an include statement means, also if its quotes are missing or
/// wrong, or a ";" follows. Nothing if there is none.
std::string_view IncludedPath(std::string_view word);

}  // namespace zentho::idlgen
