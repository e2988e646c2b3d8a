#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <utility>

#include "reader/idl.h"
#include "schema/schema.h"
#include "schema/words.h"

namespace zentho {

/// Why and where parsing stopped.
struct ParseError : std::exception {
  enum class Kind { WrongFormat, SecondNamespace, EndOfFile };

  ParseError(Kind errorKind, std::string errorReason, std::size_t wordsRead)
      : kind(errorKind), reason(std::move(errorReason)), tokensRead(wordsRead) {}

  [[nodiscard]] const char* what() const noexcept override { return reason.c_str(); }

  Kind kind;
  std::string reason;      ///< One line, such as "WRONG format in messag".
  std::size_t tokensRead;  ///< The error was noticed at the last one of these.
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

  /// The same, and fills the empty `words` with all words of the file, also if it throws.
  void parseSilently(const IDL& idl, Schema& schema, Words& words) const;

  /// The same for the texts of `words`. Sets their roles, also if it throws.
  void parseSilently(Words& words, Schema& schema) const;
};

}  // namespace zentho
