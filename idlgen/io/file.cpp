#include "io/file.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace zentho {
namespace {

/// After a failed write: waits until the file is writable if it would block. Returns whether to try
/// again.
bool WaitToRetry(int descriptor) {
  if (errno == EAGAIN) {
    pollfd output = {descriptor, POLLOUT, 0};
    return ::poll(&output, 1, -1) > 0 || errno == EINTR;
  }
  return errno == EINTR;
}

}  // namespace

int Descriptor::close() {
  if (number < 0) return 0;
  const int result = ::close(number);
  number = -1;
  return result == 0 ? 0 : errno;
}

int readFile(const std::string& path, std::string& text, std::size_t limit) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) return errno;
  std::array<char, 65536> block;
  while (limit > 0) {
    const ssize_t size = ::read(file.get(), block.data(), std::min(limit, block.size()));
    if (size == 0) return 0;
    if (size > 0) {
      text.append(block.data(), static_cast<std::size_t>(size));
      limit -= static_cast<std::size_t>(size);
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0) {
      return EIO;
    } else if (!WaitToRetry(descriptor)) {
      return errno;
    }
  }
  return 0;
}

}  // namespace zentho
