#pragma once

#include <string>
#include <string_view>

namespace zentho {

/// Creates or replaces the file at `path`, whole or not at all: writes a temporary file in the same
/// directory and renames it. Creates missing directories, and removes them again if it fails.
/// Replaces a link, not its target. SIGHUP, SIGINT and SIGTERM wait until the temporary file is
/// gone. Returns 0 or the errno of the failure.
int replaceFile(const std::string& path, std::string_view bytes);

/// Removes the file at `path`, if there is one. Returns 0 or the errno of the failure.
int removeFile(const std::string& path);

}  // namespace zentho
