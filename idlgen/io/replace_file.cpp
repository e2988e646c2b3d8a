#include "io/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>

#include "io/file.h"

namespace zentho::idlgen {
namespace {

/// Delays the signals that users end a program with.
class SignalDelay {
 public:
  SignalDelay() {
    sigset_t ending;
    ::sigemptyset(&ending);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) ::sigaddset(&ending, signal);
    ::pthread_sigmask(SIG_BLOCK, &ending, &earlier);
  }
  SignalDelay(const SignalDelay&) = delete;
  SignalDelay& operator=(const SignalDelay&) = delete;
  ~SignalDelay() { ::pthread_sigmask(SIG_SETMASK, &earlier, nullptr); }

 private:
  sigset_t earlier{};
};

/// Creates a file with a new name in a directory, and sets `path` to its path. Unlike mkostemp,
/// gives it the mode of a new file.
std::error_code createTemporary(const std::string& directory, std::string& path, int& descriptor) {
  constexpr int tries = 100;
  std::error_code error;
  for (int i = 0; i < tries; ++i) {
    // The time tells apart processes with the same number in different containers.
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    path =
        directory + ".idlgen-" + std::to_string(::getpid()) + "-" + std::to_string(time) + ".tmp";
    descriptor = openFile(path, O_WRONLY | O_CREAT | O_EXCL);
    if (descriptor >= 0) return {};
    error = LastError();
    if (error != std::errc::file_exists) return error;
  }
  return error;
}

/// Writes the file and closes it.
std::error_code fill(Descriptor& file, std::string_view bytes, const timespec* time) {
  std::error_code error = writeAll(file.get(), bytes);
  if (!error && time != nullptr) {
    const std::array<timespec, 2> times = {timespec{0, UTIME_OMIT}, *time};
    if (::futimens(file.get(), times.data()) != 0) error = LastError();
  }
  const std::error_code closeError = file.close();
  return error ? error : closeError;
}

}  // namespace

std::error_code replaceFile(const std::string& path, std::string_view bytes, const timespec* time) {
  const SignalDelay delay;
  const std::string directory = DirectoryOf(path);
  std::string temporary;
  int descriptor = -1;
  std::error_code error = createTemporary(directory, temporary, descriptor);
  if (error == std::errc::no_such_file_or_directory && !directory.empty()) {
    std::filesystem::create_directories(directory, error);
    if (!error) error = createTemporary(directory, temporary, descriptor);
  }
  if (error) return error;

  Descriptor file(descriptor);
  error = fill(file, bytes, time);
  if (!error && ::rename(temporary.c_str(), path.c_str()) != 0) error = LastError();
  if (error) ::unlink(temporary.c_str());
  return error;
}

std::error_code readClock(const std::string& path, timespec& time) {
  const SignalDelay delay;
  std::string directory = DirectoryOf(path);
  std::string temporary;
  int descriptor = -1;
  std::error_code error = createTemporary(directory, temporary, descriptor);
  while (error == std::errc::no_such_file_or_directory && !directory.empty()) {
    directory = DirectoryOf(directory.substr(0, directory.size() - 1));
    error = createTemporary(directory, temporary, descriptor);
  }
  if (error) return error;

  const Descriptor file(descriptor);
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) error = LastError();
  time = status.st_mtim;
  ::unlink(temporary.c_str());
  return error;
}

std::error_code removeFile(const std::string& path) {
  if (::unlink(path.c_str()) == 0) return {};
  const std::error_code error = LastError();  // EROFS also if there is no file.
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0 && IsMissing(LastError())) return {};
  return error;
}

}  // namespace zentho::idlgen
