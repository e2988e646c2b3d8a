#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "support.h"

extern char** environ;

// The real program on real files: statuses, the order of the output, and what is written and not.

namespace zentho {
namespace {

struct Result {
  int status = 0;  ///< The exit status, or minus the signal that ended the program.
  std::string out;
  bool lineByLine = true;  ///< Whether each single write to standard output held one line.
  std::string err;
};

/// Runs a shell command in the scratch directory; "$IDLGEN" is the program. Standard output is a
/// socket that keeps each write apart; without a listener it is one that nobody reads from.
Result RunProgram(const Scratch& scratch, const std::string& command, bool listener = true) {
  setenv("IDLGEN", IDLGEN_PROGRAM, 1);
  const std::string script =
      "cd '" + scratch.path(".") + "' && exec 2>'" + scratch.path("stderr") + "' && " + command;
  std::array<char*, 4> arguments = {const_cast<char*>("sh"), const_cast<char*>("-c"),
                                    const_cast<char*>(script.c_str()), nullptr};
  std::array<int, 2> sockets{};
  const int type = (listener ? SOCK_SEQPACKET : SOCK_STREAM) | SOCK_CLOEXEC;
  EXPECT_EQ(socketpair(AF_UNIX, type, 0, sockets.data()), 0);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, sockets[1], STDOUT_FILENO);
  if (!listener) close(sockets[0]);
  pid_t child = 0;
  EXPECT_EQ(posix_spawn(&child, "/bin/sh", &actions, nullptr, arguments.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  close(sockets[1]);

  Result result;
  std::string packet(1 << 18, '\0');
  for (ssize_t size = 0; listener && (size = read(sockets[0], packet.data(), packet.size())) > 0;) {
    const std::string write = packet.substr(0, static_cast<std::size_t>(size));
    result.lineByLine = result.lineByLine && write.find('\n') == write.size() - 1;
    result.out += write;
  }
  if (listener) close(sockets[0]);
  int status = 0;
  waitpid(child, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  result.err = ReadAll(scratch.path("stderr"));
  return result;
}

/// A case is a directory: a command, what it is to print and return, the files that it finds, and
/// those that it is to leave, with ".expected" after their names.
TEST(Program, DoesInEachCaseWhatItShould) {
  for (const auto& directory : std::filesystem::directory_iterator(IDLGEN_TEST_DATA "/program")) {
    SCOPED_TRACE(directory.path().filename());
    const Scratch scratch;
    std::filesystem::copy(directory.path(), scratch.path("."),
                          std::filesystem::copy_options::recursive);
    const Result result = RunProgram(scratch, ReadAll(scratch.path("command")));
    EXPECT_EQ(result.out, ReadAll(scratch.path("out")));
    EXPECT_EQ(std::to_string(result.status), ReadAll(scratch.path("status")));
    EXPECT_TRUE(result.lineByLine && result.err.empty());
    for (const auto& file : std::filesystem::directory_iterator(scratch.path("."))) {
      const std::string name = file.path().filename();
      if (file.path().extension() == ".expected") {
        EXPECT_EQ(ReadAll(scratch.path(file.path().stem())), ReadAll(file.path()));
      } else if (file.path().extension() == ".h" && !file.is_directory()) {
        EXPECT_TRUE(scratch.has(name + ".expected")) << name;
      }
    }
  }
}

TEST(Program, WritesALineOfAnyLengthInOneGo) {
  const Scratch scratch;
  const std::string name(50000, 'm');
  scratch.write("a.idl", "enum " + name + " { }");
  const Result result = RunProgram(scratch, "exec \"$IDLGEN\" -fv a.idl");
  EXPECT_NE(result.out.find(name), std::string::npos);
  EXPECT_TRUE(result.lineByLine);
}

TEST(Program, GoesOnWithALineThatAPipeTookAPartOf) {
  const Scratch scratch;
  const std::string word(100000, 'x');
  scratch.write("a.idl", word);
  const Result result = RunProgram(scratch,
                                   "mkfifo pipe; \"$IDLGEN\" -f a.idl >pipe & { sleep 0.2;"
                                   " kill -STOP $!; sleep 0.1; kill -CONT $!; cat; } <pipe");
  EXPECT_EQ(result.out, "idl path:a.idl\nWRONG format in " + word + "\n\nlines:\n" + word + "\n");
}

TEST(Program, OutlivesWhatTheSystemRefuses) {
  const Scratch scratch;
  const std::string path = scratch.write("fleet.idl", Data("program/several_files/fleet.idl"));
  const auto expectHeader = [&](const Result& result) {
    EXPECT_TRUE(result.status == 0 && result.err.empty()) << result.status << result.err;
    EXPECT_EQ(ReadAll(scratch.path("fleet.h")), Data("program/several_files/fleet.h.expected"));
    EXPECT_EQ(ReadAll(path), Data("program/several_files/fleet.idl"));
    std::filesystem::remove(scratch.path("fleet.h"));
  };
  expectHeader(RunProgram(scratch, "exec \"$IDLGEN\" -fv fleet.idl", false));
  expectHeader(RunProgram(scratch, "exec \"$IDLGEN\" -fv fleet.idl >&- <&-"));
  expectHeader(RunProgram(scratch, "exec \"$IDLGEN\" -fv fleet.idl >/dev/full"));

  EXPECT_EQ(RunProgram(scratch, "ulimit -f 0; exec \"$IDLGEN\" -f fleet.idl").status, 0);
  EXPECT_EQ(ReadAll(scratch.path("fleet.h")), "");
}

}  // namespace
}  // namespace zentho
