#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <utility>

#include "reader/idl.h"
#include "schema/schema.h"

namespace zentho {

/// Why and where parsing stopped.
struct ParseError : std::exception {
  ParseError(std::string why, std::size_t count) : reason(std::move(why)), tokensRead(count) {}

  std::string reason;      ///< One line, such as "WRONG format in messag".
  std::size_t tokensRead;  ///< How many tokens of the file were read; the last one is at fault.
};

/// Parses IDL files into their models. Has no state, so one parser can be used for many files.
///
/// A fixed interface, see CONTRIBUTING.md.
class Parser {
 public:
  /// Fills the empty `schema` from the tokens of `idl`. Prints one line per completed statement.
  ///
  /// The first error prints a diagnostic, an empty line, "lines:" and each token read so far on its
  /// own line, and throws a plain std::exception. The schema then contains the statements before
  /// the error, and the includes, namespaces and flags found so far.
  void parse(const IDL& idl, Schema& schema) const;

  /// The same, but prints nothing and throws a ParseError.
  void parseSilently(const IDL& idl, Schema& schema) const;
};

}  // namespace zentho
