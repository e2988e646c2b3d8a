#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "findings/finding.h"
#include "findings/rules.h"
#include "sources/source_file.h"
#include "words/located_words.h"

namespace zentho::idlgen {

/// A sentence about some bytes of a line. Refers to the text of the file.
struct Remark {
  std::string path;
  Place place;
  std::size_t size;
  std::string sentence;
};

/// An error or a warning, with its notes:
///
///     idl/robot.idl:7:8: error: "int8;" is not a type: delete the ";"
///         7 |     x: int8;
///           |        ^~~~~
///
struct Diagnostic {
  Severity severity;
  Remark message;
  std::vector<Remark> notes = {};
};

/// Returns what is said about a finding in a file.
Diagnostic DiagnosticOf(SourceFile& file, const Finding& finding);

/// Returns a sentence with the advice and its example.
std::string WithAdvice(std::string sentence, const Advice& advice);

/// Returns the lines of a diagnostic.
std::string Lines(const Diagnostic& diagnostic);

}  // namespace zentho::idlgen
