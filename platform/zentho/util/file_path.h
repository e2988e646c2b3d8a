#pragma once

namespace zentho::util {

/// The one function of the framework that the generator calls.
///
/// The program may be linked with the framework's own library instead of file_path.cpp, so the
/// declaration promises no more than both keep: it is not noexcept.
class FilePath {
 public:
  /// Makes the file at `path`, a zero-terminated string, ready to be opened for writing: missing
  /// parent directories are made and, where there is no file, an empty one. What exists is left
  /// untouched. Reports nothing and throws nothing: a refusal shows when the file is opened.
  static void createFile(const char* path);
};

}  // namespace zentho::util
