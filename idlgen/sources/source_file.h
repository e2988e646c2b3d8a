#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho::idlgen {

constexpr std::size_t noFile = static_cast<std::size_t>(-1);  ///< No index of a file.

/// What an include statement of a file leads to.
struct Include {
  enum class Kind : std::uint8_t {
    Header,    ///< A C++ header, which nobody looks for.
    NotFound,  ///< No file, or one that is not certain to be the one that C++ finds.
    Found
  };

  std::size_t word;  ///< The index of the path.
  Kind kind = Kind::NotFound;
  std::size_t file = noFile;    ///< The index of the file that was found.
  std::string correction = {};  ///< If none was found: a path that differs by one slip, or nothing.
};

/// An IDL file that has been read and parsed. Is moved, never copied: the words refer to `idl`.
struct SourceFile {
  SourceFile() = default;
  SourceFile(SourceFile&&) = default;
  SourceFile& operator=(SourceFile&&) = default;

  std::string path;  ///< By which it was opened.
  std::string text;
  IDL idl;
  Schema schema;  ///< Of the statements before an error.
  Words words;
  std::optional<ParseError> error;
  std::vector<Include> includes;  ///< In the order of the file.
};

/// Splits and parses the text. Prints nothing. The includes have their words, and those of C++
/// headers their kind.
SourceFile ParseSource(std::string path, std::string text);

/// Returns the path between the quotes or brackets of an include statement, or nothing if it does
/// not have both of them.
std::string_view IncludedPath(std::string_view word);

}  // namespace zentho::idlgen
