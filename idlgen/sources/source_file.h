#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"
#include "words/located_words.h"

namespace zentho::idlgen {

struct SourceFile;

/// What an include statement leads to.
struct Include {
  SourceFile* file = nullptr;   ///< nullptr if there is none that C++ is certain to find.
  std::string correction = {};  ///< If there is none: a path that differs by one slip, or nothing.
};

/// What recovery has taken out of a file.
struct DroppedWords {
  std::unordered_set<std::string_view> names;  ///< May be declared there.
  bool mayDeclareAnything = false;             ///< Such as an include.
};

/// An IDL file: as it was read, and as recovery has it read instead. Is never copied, since the
/// words refer to `idl`, and not moved once it is located, since places refer to `text`.
struct SourceFile {
  SourceFile() = default;
  SourceFile(SourceFile&&) = default;
  SourceFile& operator=(SourceFile&&) = default;

  std::string path;  ///< By which it was opened.
  std::string text;
  IDL idl;
  Schema schema;  ///< Of the statements before the first error.
  LocatedWords words;
  std::optional<ParseError> error;                         ///< Why the parser refuses these words.
  std::unordered_map<std::string_view, Include> includes;  ///< By the word of the path.
  std::list<std::string> ownTexts;  ///< What recovery has put in place of words of the text.
  DroppedWords dropped;
  bool isDamaged = false;  ///< Whether recovery has found a fault.
};

/// Splits and parses the text. Prints nothing. Nothing is included yet.
SourceFile ParseSource(std::string path, std::string text);

/// Finds the places of the words, unless that has been done.
void locate(SourceFile& file);

/// Returns the path between the quotes or brackets of an include statement, or nothing if it does
/// not have both of them.
std::string_view IncludedPath(std::string_view word);

}  // namespace zentho::idlgen
