#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace zentho::idlgen {

/// Creates or replaces the file at `path`, whole or not at all: writes a temporary file in the same
/// directory and renames it. Creates missing directories. SIGHUP, SIGINT, SIGQUIT and SIGTERM wait
/// until the temporary file is gone.
[[nodiscard]] std::error_code replaceFile(const std::string& path, std::string_view bytes);

/// Removes the file at `path`, if there is one.
[[nodiscard]] std::error_code removeFile(const std::string& path);

}  // namespace zentho::idlgen
