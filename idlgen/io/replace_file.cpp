#include "io/replace_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "io/file.h"

namespace zentho {
namespace {

/// Delays the signals that users end a program with.
class SignalDelay {
 public:
  SignalDelay() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, &before);
  }
  SignalDelay(const SignalDelay&) = delete;
  SignalDelay& operator=(const SignalDelay&) = delete;
  ~SignalDelay() { sigprocmask(SIG_SETMASK, &before, nullptr); }

 private:
  sigset_t before{};
};

/// Creates a file next to `path`, and missing directories. Sets `name` to its path. Returns its
/// descriptor, or -1 with errno.
int createTemporary(const std::string& path, std::string& name) {
  const std::string directory = path.substr(0, path.rfind('/') + 1);
  constexpr int tries = 100;
  for (int i = 0; i < tries; ++i) {
    // The time tells apart processes with the same number in different containers.
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    name = directory + ".idlgen-" + std::to_string(getpid()) + "-" + std::to_string(time) + ".tmp";
    const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0) return file;
    if (errno == ENOENT && i == 0) {
      std::error_code error;
      std::filesystem::create_directories(directory, error);
      if (error) {
        errno = error.value();
        return -1;
      }
    } else if (errno != EEXIST) {
      return -1;
    }
  }
  return -1;
}

}  // namespace

int replaceFile(const std::string& path, std::string_view bytes) {
  const SignalDelay delay;
  std::string temporary;
  Descriptor file(createTemporary(path, temporary));
  if (file.get() < 0) return errno;
  int error = writeAll(file.get(), bytes);
  const int closeError = file.close();
  if (error == 0) error = closeError;
  if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
  if (error != 0) removeFile(temporary);
  return error;
}

int removeFile(const std::string& path) {
  if (Succeeds([&] { return ::unlink(path.c_str()); })) return 0;
  return errno == ENOENT || errno == ENOTDIR ? 0 : errno;
}

}  // namespace zentho
