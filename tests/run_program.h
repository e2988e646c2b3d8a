#pragma once

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

#include "support.h"

extern char** environ;

namespace zentho {

struct Result {
  int status = 0;  ///< The exit status, or minus the signal that killed the program.
  std::string out;
  bool lineByLine = true;  ///< Whether each write to standard output was one line.
  std::string err;
};

/// What standard output is connected to.
enum class Output {
  Packets,  ///< A socket that keeps the writes apart.
  Pipe,     ///< A non-blocking pipe that is full before somebody reads from it.
  Closed,   ///< A pipe whose other end is closed.
};

/// Runs a shell command in the scratch directory, with the programs in $IDLGEN and $IDLGEN_HEADER.
inline Result RunProgram(const Scratch& scratch, const std::string& command,
                         Output output = Output::Packets) {
  setenv("IDLGEN", IDLGEN_PROGRAM, 1);
  setenv("IDLGEN_HEADER", IDLGEN_HEADER_PROGRAM, 1);
  const std::string script =
      "cd '" + scratch.path(".") + "' && exec 2>'" + scratch.path("stderr") + "' && " + command;
  std::array<char*, 4> arguments = {const_cast<char*>("sh"), const_cast<char*>("-c"),
                                    const_cast<char*>(script.c_str()), nullptr};
  std::array<int, 2> ends{};
  if (output == Output::Packets) {
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()), 0);
  } else {
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
    fcntl(ends[0], F_SETFL, 0);
  }
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  if (output == Output::Closed) close(ends[0]);
  pid_t child = 0;
  EXPECT_EQ(posix_spawn(&child, "/bin/sh", &actions, nullptr, arguments.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  if (output == Output::Pipe) {
    pollfd writable = {ends[1], POLLOUT, 0};
    for (int i = 0; i < 1000 && poll(&writable, 1, 0) > 0; ++i) usleep(1000);
  }
  close(ends[1]);

  Result result;
  std::string packet(1 << 18, '\0');
  for (ssize_t size; (size = read(ends[0], packet.data(), packet.size())) > 0;) {
    const std::string write = packet.substr(0, static_cast<std::size_t>(size));
    result.lineByLine = result.lineByLine && write.find('\n') == write.size() - 1;
    result.out += write;
  }
  if (output != Output::Closed) close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  result.err = ReadAll(scratch.path("stderr"));
  return result;
}

/// Checks a case: a directory with a command, its expected output and status, input files, and a
/// NAME.expected for each file NAME that must be there afterwards. Without a file "out" or "err",
/// that output must be empty, and without a file "status", the status 0. Any other header or a
/// temporary file is a failure.
inline void checkCase(const std::string& name) {
  const Scratch scratch;
  std::filesystem::copy(IDLGEN_TEST_DATA "/" + name, scratch.path("."),
                        std::filesystem::copy_options::recursive);
  const Result result = RunProgram(scratch, ReadAll(scratch.path("command")));
  const auto expected = [&](const char* file, const char* otherwise) {
    const std::string path = scratch.path(file);
    return std::filesystem::exists(path) ? ReadAll(path) : otherwise;
  };
  EXPECT_EQ(result.out, expected("out", ""));
  EXPECT_EQ(std::to_string(result.status), expected("status", "0"));
  EXPECT_TRUE(result.lineByLine);
  EXPECT_EQ(result.err, expected("err", ""));
  for (const auto& file : std::filesystem::recursive_directory_iterator(scratch.path("."))) {
    const std::filesystem::path& path = file.path();
    EXPECT_NE(path.extension(), ".tmp") << path;
    if (path.extension() == ".expected") {
      EXPECT_EQ(ReadAll(path.parent_path() / path.stem()), ReadAll(path)) << path;
    } else if (path.extension() == ".h" && !file.is_directory()) {
      EXPECT_TRUE(std::filesystem::exists(path.string() + ".expected")) << path;
    }
  }
}

}  // namespace zentho
