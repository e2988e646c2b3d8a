#pragma once

#include <map>
#include <string>
#include <vector>

#include "messages/outcome.h"

namespace zentho::idlgen {

/// The texts of IDL files by their paths.
using Files = std::map<std::string, std::string>;

/// Checks what is said about the file at `path`: the form of the lines, the number of messages and
/// their places, and that nothing in them can disturb a terminal. Returns the place and the kind of
/// each error and warning, such as "a.idl:1:9: error".
std::vector<std::string> checkTold(const Files& files, const std::string& path,
                                   const Outcome& result);

}  // namespace zentho::idlgen
