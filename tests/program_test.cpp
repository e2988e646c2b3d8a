#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "support.h"

extern char** environ;

// Runs the program and checks the exit status, the output, and which files are written.

namespace zentho {
namespace {

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

/// Runs a shell command in the scratch directory, with the program in $IDLGEN.
Result RunProgram(const Scratch& scratch, const std::string& command,
                  Output output = Output::Packets) {
  setenv("IDLGEN", IDLGEN_PROGRAM, 1);
  const std::string script =
      "cd '" + scratch.path(".") + "' && exec 2>'" + scratch.path("stderr") + "' && " + command;
  std::array<char*, 4> arguments = {const_cast<char*>("sh"), const_cast<char*>("-c"),
                                    const_cast<char*>(script.c_str()), nullptr};
  std::array<int, 2> ends{};
  if (output == Output::Packets) {
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()), 0);
  } else {
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
  }
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  if (output == Output::Closed) close(ends[0]);
  pid_t child = 0;
  EXPECT_EQ(posix_spawn(&child, "/bin/sh", &actions, nullptr, arguments.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);

  Result result;
  if (output == Output::Pipe) usleep(200000);
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

/// A case is a directory with a command, its expected output and status, input files, and a
/// NAME.expected for each file NAME that must be written. Any other header fails the test.
TEST(Program, MatchesExpectedResultOfEachCase) {
  for (const auto& directory : std::filesystem::directory_iterator(IDLGEN_TEST_DATA "/program")) {
    SCOPED_TRACE(directory.path().filename());
    const Scratch scratch;
    std::filesystem::copy(directory.path(), scratch.path("."),
                          std::filesystem::copy_options::recursive);
    const Result result = RunProgram(scratch, ReadAll(scratch.path("command")));
    EXPECT_EQ(result.out, ReadAll(scratch.path("out")));
    EXPECT_EQ(std::to_string(result.status), ReadAll(scratch.path("status")));
    EXPECT_TRUE(result.lineByLine && result.err.empty());
    for (const auto& file : std::filesystem::recursive_directory_iterator(scratch.path("."))) {
      const std::filesystem::path& path = file.path();
      if (path.extension() == ".expected") {
        EXPECT_EQ(ReadAll(path.parent_path() / path.stem()), ReadAll(path)) << path;
      } else if (path.extension() == ".h" && file.is_regular_file()) {
        EXPECT_TRUE(std::filesystem::exists(path.string() + ".expected")) << path;
      }
    }
  }
}

TEST(Program, WritesALongLineInOneWrite) {
  const Scratch scratch;
  const std::string name(50000, 'm');
  scratch.write("a.idl", "enum " + name + " { }");
  const Result result = RunProgram(scratch, "exec \"$IDLGEN\" -fv a.idl");
  EXPECT_NE(result.out.find(name), std::string::npos);
  EXPECT_TRUE(result.lineByLine);
}

TEST(Program, WaitsForASlowReaderOfANonBlockingPipe) {
  const Scratch scratch;
  const std::string word(100000, 'x');
  scratch.write("a.idl", word);
  EXPECT_EQ(RunProgram(scratch, "exec \"$IDLGEN\" -f a.idl", Output::Pipe).out,
            "idl path:a.idl\nWRONG format in " + word + "\n\nlines:\n" + word + "\n");
}

TEST(Program, SurvivesFailedWrites) {
  const Scratch scratch;
  const std::string path = scratch.write("fleet.idl", Data("program/several_files/fleet.idl"));
  const auto expectHeader = [&](const Result& result) {
    EXPECT_TRUE(result.status == 0 && result.err.empty()) << result.status << result.err;
    EXPECT_EQ(ReadAll(scratch.path("fleet.h")), Data("program/several_files/fleet.h.expected"));
    EXPECT_EQ(ReadAll(path), Data("program/several_files/fleet.idl"));
    std::filesystem::remove(scratch.path("fleet.h"));
  };
  expectHeader(RunProgram(scratch, "exec \"$IDLGEN\" -fv fleet.idl", Output::Closed));
  expectHeader(RunProgram(scratch, "exec \"$IDLGEN\" -fv fleet.idl >&- <&-"));
  expectHeader(RunProgram(scratch, "exec \"$IDLGEN\" -fv fleet.idl >/dev/full"));

  EXPECT_EQ(RunProgram(scratch, "ulimit -f 0; exec \"$IDLGEN\" -f fleet.idl").status, 0);
  EXPECT_EQ(ReadAll(scratch.path("fleet.h")), "");
}

}  // namespace
}  // namespace zentho
