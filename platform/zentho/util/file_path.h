#pragma once

namespace zentho::util {

/// The one function of the framework that the generator calls.
///
/// The program may be linked with the framework's own library instead of file_path.cpp, so the
/// declaration promises only what both implementations guarantee; in particular, it is not
/// noexcept.
class FilePath {
 public:
  /// Creates an empty file at `path`, a zero-terminated string, and its missing parent directories.
  /// Does not change an existing file. Ignores errors; opening the file fails then, too.
  static void createFile(const char* path);
};

}  // namespace zentho::util
