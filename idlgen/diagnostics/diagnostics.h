#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/rules.h"
#include "schema/parser.h"

namespace zentho {

/// Returns the messages about the IDL file at `path`, which contains `text`: the findings, and at
/// last the grammar error, if there is one. Each shows its place:
///
///     idl/robot.idl:7:8: error: "int8;" is not a type: delete the ";"
///         7 |     x: int8;
///           |        ^~~~~
///
/// Of many, 20 are shown, errors rather than warnings.
std::string Diagnostics(const std::string& path, std::string_view text, const Words& words,
                        const std::vector<Finding>& findings, const ParseError* grammarError);

}  // namespace zentho
