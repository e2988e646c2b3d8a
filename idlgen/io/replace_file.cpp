#include "io/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>

#include "io/file.h"

namespace zentho {
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

/// Creates a file with a new name in the directory of `path`, and sets `name` to its path. Returns
/// a negative descriptor and sets errno if it fails. Unlike mkostemp, gives it the mode of a new
/// file.
int createTemporary(const std::string& path, std::string& name) {
  constexpr int tries = 100;
  for (int i = 0; i < tries; ++i) {
    // The time tells apart processes with the same number in different containers.
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    name = path.substr(0, path.rfind('/') + 1) + ".idlgen-" + std::to_string(::getpid()) + "-" +
           std::to_string(time) + ".tmp";
    const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
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
  std::string temporary;
  int created = createTemporary(path, temporary);
  if (created < 0 && errno == ENOENT) {
    std::error_code error;
    std::filesystem::create_directories(path.substr(0, path.rfind('/') + 1), error);
    if (error) return error;
    created = createTemporary(path, temporary);
  }
  if (created < 0) return LastError();

  Descriptor file(created);
  std::error_code error = fill(file, bytes);
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

}  // namespace zentho
