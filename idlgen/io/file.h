#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

namespace zentho::idlgen {

/// Returns the reason why the last system call failed. Call it right after that.
[[nodiscard]] std::error_code LastError();

/// Returns whether the error means that there is no such file.
[[nodiscard]] bool IsMissing(const std::error_code& error);

/// Returns the directory of a path, with a '/' at its end, or nothing for the current directory.
std::string DirectoryOf(const std::string& path);

/// Returns what follows the directory of a path.
std::string FileName(std::string_view path);

/// Owns a file descriptor, which is negative if the file could not be opened.
class Descriptor {
 public:
  explicit Descriptor(int descriptor) : value(descriptor) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { (void)close(); }

  [[nodiscard]] int get() const { return value; }

  /// Closes the file, once.
  [[nodiscard]] std::error_code close();

 private:
  int value;
};

/// Opens a file as the system call does, with the mode of a new file. Repeats an interrupted call.
[[nodiscard]] int openFile(const std::string& path, int flags);

/// Appends what is left of an open file to `text`, but at most `limit` bytes. After a failure, the
/// bytes before it have been appended.
[[nodiscard]] std::error_code readAll(int descriptor, std::string& text,
                                      std::size_t limit = std::string::npos);

/// Appends the contents of a file to `text`, but at most `limit` bytes. After a failure, the bytes
/// before it have been appended.
[[nodiscard]] std::error_code readFile(const std::string& path, std::string& text,
                                       std::size_t limit = std::string::npos);

/// Writes all bytes. An interrupted write is repeated. If a write would block, because somebody has
/// set O_NONBLOCK on a shared terminal or pipe, waits.
[[nodiscard]] std::error_code writeAll(int descriptor, std::string_view bytes);

}  // namespace zentho::idlgen
