#include "io/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <vector>

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

/// Creates missing directories and appends them to `made`. Returns whether the directory can now be
/// used or is worth another try, otherwise sets errno.
bool makeDirectories(const std::string& directory, std::vector<std::string>& made) {
  for (std::size_t end = directory.find('/', 1); end != std::string::npos;
       end = directory.find('/', end + 1)) {
    const std::string path = directory.substr(0, end);
    if (::mkdir(path.c_str(), 0777) == 0) {
      made.push_back(path);
    } else if (errno != EEXIST) {
      // ENOENT: another run has failed and removed the directories that it had made.
      return errno == ENOENT;
    }
  }
  return true;
}

/// Creates a file in the directory. Sets `name` to its path. Returns its descriptor, or -1 with
/// errno.
int createTemporary(const std::string& directory, std::string& name,
                    std::vector<std::string>& made) {
  constexpr int tries = 100;
  for (int i = 0; i < tries; ++i) {
    // The time tells apart processes with the same number in different containers.
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    name = directory + ".idlgen-" + std::to_string(getpid()) + "-" + std::to_string(time) + ".tmp";
    const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0) return file;
    if (errno == ENOENT) {
      if (!makeDirectories(directory, made)) return -1;
      errno = ENOENT;  // For the last try.
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
  std::vector<std::string> made;
  Descriptor file(createTemporary(path.substr(0, path.rfind('/') + 1), temporary, made));
  const bool created = file.get() >= 0;
  int error = created ? writeAll(file.get(), bytes) : errno;
  const int closeError = file.close();
  if (error == 0) error = closeError;
  if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
  if (error == 0) return 0;

  if (created) removeFile(temporary);
  for (; !made.empty(); made.pop_back()) ::rmdir(made.back().c_str());
  return error;
}

int removeFile(const std::string& path) {
  if (Succeeds([&] { return ::unlink(path.c_str()); })) return 0;
  const int error = errno;
  struct stat left {};
  return error == ENOENT || lstat(path.c_str(), &left) != 0 ? 0 : error;
}

}  // namespace zentho
