#pragma once

namespace zentho::util {

/// The one function of the framework that the generator calls.
///
/// The program may be linked with the framework's own library instead of file_path.cpp. Not
/// noexcept: the framework's implementation may throw.
class FilePath {
 public:
  /// Creates an empty file at `path`, a zero-terminated string, and its missing parent directories.
  /// Does not change an existing file. Ignores errors: the caller's own open fails then.
  static void createFile(const char* path);
};

}  // namespace zentho::util
