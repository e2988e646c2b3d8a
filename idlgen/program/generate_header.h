#pragma once

#include <string>

#include "messages/outcome.h"

namespace zentho::idlgen {

/// What `idlgen-header IDL HEADER` is asked to do.
struct HeaderRequest {
  std::string idl;         ///< The path of the IDL file.
  std::string header;      ///< The path of the header.
  bool ifChanged = false;  ///< Leave a header untouched that already has the text.
  Warnings warnings = Warnings::Report;
};

/// Generates the header of one IDL file, whole or not at all, with the stages in this process.
/// Checks what the file means first. Creates missing directories. Prints nothing.
///
/// Refuses to touch what may not be a generated header: the IDL file, a link, a device, or a file
/// that is neither empty nor begins with "#pragma once". After any other failure, removes an older
/// header, so that nothing is compiled with it.
[[nodiscard]] Outcome generateHeader(const HeaderRequest& request);

}  // namespace zentho::idlgen
