#include "io/file.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace zentho::idlgen {
namespace {

/// Waits until the file is writable, or a signal arrives.
std::error_code waitUntilWritable(int descriptor) {
  pollfd output = {descriptor, POLLOUT, 0};
  return ::poll(&output, 1, -1) > 0 || errno == EINTR ? std::error_code() : LastError();
}

}  // namespace

std::error_code LastError() {
  return {errno, std::generic_category()};
}

bool IsMissing(const std::error_code& error) {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

std::string DirectoryOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

std::string FileName(std::string_view path) {
  return std::string(path.substr(path.rfind('/') + 1));
}

std::error_code Descriptor::close() {
  if (value < 0) return {};
  const int result = ::close(value);
  value = -1;
  return result == 0 ? std::error_code() : LastError();
}

int openFile(const std::string& path, int flags) {
  constexpr mode_t mode = 0666;
  int descriptor = -1;
  do {
    descriptor = ::open(path.c_str(), flags | O_CLOEXEC, mode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

std::error_code readAll(int descriptor, std::string& text, std::size_t limit) {
  std::array<char, 16384> block;
  while (limit > 0) {
    const ssize_t size = ::read(descriptor, block.data(), std::min(limit, block.size()));
    if (size == 0) return {};
    if (size > 0) {
      text.append(block.data(), static_cast<std::size_t>(size));
      limit -= static_cast<std::size_t>(size);
    } else if (errno != EINTR) {
      return LastError();
    }
  }
  return {};
}

std::error_code readFile(const std::string& path, std::string& text, std::size_t limit) {
  const Descriptor file(openFile(path, O_RDONLY));
  return file.get() < 0 ? LastError() : readAll(file.get(), text, limit);
}

std::error_code writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    if (written == 0) return std::make_error_code(std::errc::io_error);
    std::error_code error = LastError();
    if (error == std::errc::interrupted) continue;
    if (error == std::errc::resource_unavailable_try_again) error = waitUntilWritable(descriptor);
    if (error) return error;
  }
  return {};
}

}  // namespace zentho::idlgen
