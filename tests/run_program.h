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

namespace zentho::idlgen {

struct ProgramResult {
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
inline ProgramResult RunProgram(const Scratch& scratch, const std::string& command,
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

  ProgramResult result;
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

/// Checks a case: a directory with a command, its expected output and status, and input files. Each
/// case also has the files of tests/data/common.
///
/// Without a file "out", "err" or "status", the output must be empty and the status 0. The input
/// files must stay as they are, but if there is a NAME.expected, the file NAME must have that text
/// afterwards. Other headers and temporary files must be gone.
inline void checkCase(const std::string& name) {
  const Scratch scratch;
  for (const std::string& directory : {std::string("common"), name}) {
    std::filesystem::copy(IDLGEN_TEST_DATA "/" + directory, scratch.path("."),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
  }
  std::map<std::string, std::string> expected = Files(scratch.path("."));
  for (const auto& [file, text] : Files(scratch.path("."))) {
    const std::filesystem::path path = file;
    if (path.extension() == ".expected") expected[path.parent_path() / path.stem()] = text;
  }
  const auto find = [&](const char* file, const char* otherwise) {
    return expected.count(file) == 0 ? otherwise : expected[file];
  };

  const ProgramResult result = RunProgram(scratch, expected["command"]);
  EXPECT_EQ(result.out, find("out", ""));
  EXPECT_EQ(result.err, find("err", ""));
  EXPECT_EQ(std::to_string(result.status), find("status", "0"));
  EXPECT_TRUE(result.lineByLine);
  std::map<std::string, std::string> files = Files(scratch.path("."));
  for (const auto& [file, text] : expected) {
    EXPECT_EQ(files.count(file), 1U) << file;
    EXPECT_EQ(files[file], text) << file;
  }
  for (const auto& [file, text] : files) {
    const std::string extension = std::filesystem::path(file).extension();
    const bool isLeft = extension == ".h" || extension == ".tmp";
    EXPECT_TRUE(!isLeft || expected.count(file) == 1) << file;
  }
}

}  // namespace zentho::idlgen
