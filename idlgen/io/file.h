#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentho {

/// Owns a file descriptor, which is negative if the file could not be opened.
class Descriptor {
 public:
  explicit Descriptor(int descriptor) : number(descriptor) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  [[nodiscard]] int get() const { return number; }

  /// Closes the file. Returns 0 or the errno of the failure.
  int close();

 private:
  int number;
};

/// Returns whether the call returns 0, if necessary at a second try. For calls whose spurious
/// failure would do harm: cost a file, keep an outdated one, or hide the reason of an error.
template <typename Call>
bool Succeeds(const Call& call) {
  return call() == 0 || call() == 0;
}

/// Appends the contents of a file to `text`, but at most `limit` bytes. Returns 0 or the errno of
/// the failure; the bytes before it have been appended.
int readFile(const std::string& path, std::string& text, std::size_t limit = std::string::npos);

/// Writes all bytes. Returns 0 or the errno of the failure. An interrupted write is repeated. If a
/// write would block, because somebody has set O_NONBLOCK on a shared terminal or pipe, waits.
int writeAll(int descriptor, std::string_view bytes);

}  // namespace zentho
