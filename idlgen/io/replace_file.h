#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <system_error>

namespace zentho::idlgen {

/// Creates or replaces the file at `path`, whole or not at all: writes a temporary file in the same
/// directory and renames it. Creates missing directories. SIGHUP, SIGINT, SIGQUIT and SIGTERM wait
/// until the temporary file is gone. The file gets this time of modification, if there is one.
[[nodiscard]] std::error_code replaceFile(const std::string& path, std::string_view bytes,
                                          const timespec* time = nullptr);

/// Reads the clock that gives the file at `path` its time, which may not be that of this machine:
/// creates a temporary file in its directory, or if there is none, in the nearest one above it.
[[nodiscard]] std::error_code readClock(const std::string& path, timespec& time);

/// Removes the file at `path`, if there is one.
[[nodiscard]] std::error_code removeFile(const std::string& path);

}  // namespace zentho::idlgen
