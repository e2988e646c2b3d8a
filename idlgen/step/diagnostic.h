#pragma once

#include <string>
#include <string_view>

#include "schema/parser.h"

namespace zentho {

/// Returns the text with control characters as `\t`, `\r` or `\x1b`, so that it takes one line.
std::string Printable(std::string_view text);

/// Returns the message about a grammar error in the IDL file at `path`, which contains `text`:
///
///     idl/robot.idl:12: error: WRONG format in messag
///        12 | messag Pose {
///
/// One more line follows if a word read so far contains a tab, a carriage return or a '}', as these
/// may be at fault.
std::string Diagnostic(const std::string& path, std::string_view text, const ParseError& error);

}  // namespace zentho
