#pragma once

#include <optional>
#include <string>
#include <vector>

#include "messages/outcome.h"

namespace zentho::idlgen {

/// What `idlgen-header --check` is asked to do.
struct CheckRequest {
  std::vector<std::string> files;          ///< The paths of the IDL files.
  std::vector<std::string> directories;    ///< Where included files are searched for, in order.
  std::vector<std::string> argumentFiles;  ///< From which the arguments come.
  std::string argumentError;               ///< Why not all arguments could be read, or empty.
  std::optional<std::string> stamp;        ///< The file to write after success.
  std::optional<std::string> depfile;      ///< The file for the dependencies of the stamp,
                                           ///< without which there is none.
  Warnings warnings = Warnings::Report;
};

/// Checks IDL files without generating headers. Returns the messages in the order of the files.
/// After success, writes the depfile and the stamp. Prints nothing.
///
/// The stamp has the time at which the run began, by the clock of its file system: what is saved
/// while the run reads is newer.
///
/// Refuses to write to a link, to a file that the run reads, and to what may not be an older stamp
/// or depfile. After any other failure, removes an older stamp.
[[nodiscard]] Outcome checkFiles(const CheckRequest& request);

}  // namespace zentho::idlgen
