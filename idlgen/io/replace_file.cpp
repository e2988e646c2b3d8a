#include "io/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
std::error_code fill(Descriptor& file, std::string_view bytes) {
  const std::error_code writeError = writeAll(file.get(), bytes);
  const std::error_code closeError = file.close();
  return writeError ? writeError : closeError;
}

}  // namespace

std::error_code replaceFile(const std::string& path, std::string_view bytes) {
  const SignalDelay delay;
  const std::string directory = path.substr(0, path.rfind('/') + 1);
  std::string temporary;
  int descriptor = -1;
  std::error_code error = createTemporary(directory, temporary, descriptor);
  if (error == std::errc::no_such_file_or_directory && !directory.empty()) {
    std::filesystem::create_directories(directory, error);
    if (!error) error = createTemporary(directory, temporary, descriptor);
  }
  if (error) return error;

  Descriptor file(descriptor);
  error = fill(file, bytes);
  if (!error && ::rename(temporary.c_str(), path.c_str()) != 0) error = LastError();
  if (error) ::unlink(temporary.c_str());
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
