#pragma once

#include <string>

namespace zentho::idlgen {

/// Checks that words of the IDL file are where they belong in an accepted header, and nowhere else.
void checkHeader(const std::string& header);

}  // namespace zentho::idlgen
