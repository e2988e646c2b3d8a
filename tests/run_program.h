#pragma once

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <map>
#include <sstream>
#include <string>
#include <vector>

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
};

/// Runs a shell command in the scratch directory, with the programs in its PATH.
inline ProgramResult RunProgram(const Scratch& scratch, const std::string& command,
                                Output output = Output::Packets) {
  const std::string script = "PATH='" IDLGEN_PROGRAMS "':$PATH && cd '" + scratch.path(".") +
                             "' && exec 2>'" + scratch.path("stderr") + "' && " + command;
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
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  result.err = ReadAll(scratch.path("stderr"));
  return result;
}

/// A run of the programs: what a shell shows, after the files that are there before. A line "$ ..."
/// is a command, which "> ..." continues. Below it are the lines of its standard output, those of
/// standard error after "! ", and its status, if it is not 0. A line "=== PATH" shows a file.
struct Run {
  std::string name;
  bool needsStrace;
  std::map<std::string, std::string> files;  ///< That are there before.
  std::string transcript;
};

/// Called by GoogleTest if the test of the run has failed.
inline void PrintTo(const Run& run, std::ostream* output) {
  *output << run.name;
}

/// Returns the runs in tests/data/runs. The option "strace" says what they need.
inline std::vector<Run> Runs() {
  std::vector<Run> runs;
  for (const DataCase& given : DataCases("runs")) {
    const std::size_t begin = given.text.find("$ ");
    std::map<std::string, std::string> files;
    for (const auto& file : CaseFiles(given.text.substr(0, begin))) files.insert(file);
    runs.push_back({given.name, given.option == "strace", files, given.text.substr(begin)});
  }
  return runs;
}

/// Returns why system calls cannot be made to fail, or nothing. The loader of a dynamically linked
/// program and the code of sanitizers make system calls of their own.
inline std::string WhyNoStrace() {
  if (!IDLGEN_IS_STATIC) return "not statically linked";
  const bool works = RunProgram(Scratch(), "strace -o /dev/null true").status == 0;
  return works ? "" : "strace is missing or not permitted";
}

/// Returns the lines with this before each of them.
inline std::string After(const std::string& before, const std::string& text) {
  std::string shown;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) shown += before + line + "\n";
  return shown;
}

/// Checks a run in a directory with its files and those of tests/data/common. The files must be as
/// they were or have been shown last. Other headers and temporary files must be gone.
inline void checkRun(const Run& run) {
  const Scratch scratch;
  std::map<std::string, std::string> files = run.files;
  files.merge(Files(IDLGEN_TEST_DATA "/common"));
  for (const auto& [path, text] : files) scratch.write(path, text);
  std::string shown;
  std::istringstream lines(run.transcript);
  for (std::string line; std::getline(lines, line);) {
    if (StartsWith(line, "=== ")) {
      const std::string path = line.substr(4);
      files[path] = ReadAll(scratch.path(path));
      shown += line + "\n" + files[path];
    } else if (StartsWith(line, "$ ")) {
      std::string command = line.substr(2);
      while (lines.peek() == '>' && std::getline(lines, line)) command += "\n" + line.substr(2);
      const ProgramResult result = RunProgram(scratch, command);
      shown += "$ " + After("> ", command).substr(2) + result.out + After("! ", result.err);
      if (result.status != 0) shown += "status " + std::to_string(result.status) + "\n";
      EXPECT_TRUE(result.lineByLine || command.find("idlgen -f") == std::string::npos) << command;
    }
  }
  EXPECT_EQ(shown, run.transcript);
  const std::map<std::string, std::string> left = Files(scratch.path("."));
  for (const auto& [path, text] : files) {
    EXPECT_EQ(left.count(path), 1U) << path;
    if (left.count(path) == 1) {
      EXPECT_EQ(left.at(path), text) << path;
    }
  }
  for (const auto& [path, text] : left) {
    const bool isOutput = EndsWith(path, ".h") || EndsWith(path, ".tmp");
    EXPECT_TRUE(!isOutput || files.count(path) == 1) << path;
  }
}

}  // namespace zentho::idlgen
