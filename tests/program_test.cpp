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
  std::vector<std::string> writes;  ///< What each single write to standard output held.
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
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets.data()), 0);
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
    result.writes.push_back(packet.substr(0, static_cast<std::size_t>(size)));
    result.out += result.writes.back();
  }
  if (listener) close(sockets[0]);
  int status = 0;
  waitpid(child, &status, 0);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  result.err = ReadAll(scratch.path("stderr"));
  return result;
}

void ExpectRun(const Scratch& scratch, const std::string& command, int status,
               const std::string& out) {
  const Result result = RunProgram(scratch, command);
  EXPECT_EQ(result.out, out) << command;
  EXPECT_EQ(result.status, status) << command;
  EXPECT_EQ(result.err, "") << command;
}

const std::string empty =
    "#pragma once\n\n#include <zentho/serialization/serialization.h>\n"
    "\n\n\nnamespace zentho {\n} /* namespace zentho */\n\n";

TEST(Program, AnswersACommandLineThatNamesNoWork) {
  const Scratch scratch;
  scratch.write("a.idl", "");
  ExpectRun(scratch, "\"$IDLGEN\"", 255, "no param found.\n");
  for (const char* mode : {"-x", "-F", "-f2", "''", "-dv", "a.idl", "-f\\ "}) {
    ExpectRun(scratch, std::string("\"$IDLGEN\" ") + mode + " a.idl", 255, "mode not supported\n");
  }
  ExpectRun(scratch, "\"$IDLGEN\" -f", 0, "");
  ExpectRun(scratch, "\"$IDLGEN\" -fv", 0, "");
  ExpectRun(scratch, "\"$IDLGEN\" -d a.idl -f", 0, "");
  EXPECT_FALSE(scratch.has("a.h"));
}

TEST(Program, TakesEachFileFromItsTextToItsHeader) {
  const Scratch scratch;
  scratch.write("fleet.idl", Data("fleet.idl"));
  scratch.write("b.idl", "enum E { A:1 }\nmessage M { s: string }\n");
  ExpectRun(scratch, "\"$IDLGEN\" -f fleet.idl ./b.idl missing.idl fleet.idl", 0,
            "idl path:fleet.idl\n" + Data("fleet.progress") +
                "idl path:./b.idl\nenum done.\nmessage done.\nidl path:missing.idl\n" +
                "idl path:fleet.idl\n" + Data("fleet.progress"));
  EXPECT_EQ(ReadAll(scratch.path("fleet.h")), Data("fleet.h.expected"));
  EXPECT_EQ(ReadAll(scratch.path("missing.h")), empty);
  EXPECT_EQ(ReadAll(scratch.path("b.h")).find("cstdint"), std::string::npos);
  EXPECT_NE(ReadAll(scratch.path("b.h")).find("::M"), std::string::npos);
}

TEST(Program, DumpsTokensAndModelWhenVerbose) {
  const Scratch scratch;
  scratch.write("a.idl", "enum E { A:1 }");
  const std::string turn =
      "idl path:a.idl\noutput final idl:\nenum\nE\n{\nA1\n}\nenum done.\nincludes:\nnamespace:\n\n"
      "enum:\nenum name E\n - A = 1\nmessages:\nservices:\n";
  ExpectRun(scratch, "\"$IDLGEN\" -fv a.idl a.idl", 0, turn + turn);
  EXPECT_TRUE(scratch.has("a.h"));
}

TEST(Program, StopsAtTheFirstFault) {
  const Scratch scratch;
  scratch.write("a.idl", "");
  scratch.write("bad.idl", "namespace n\nmessage M { x [ }");
  const std::string failure =
      "namespace done.\nWRONG format in [\n\nlines:\nnamespace\nn\nmessage\nM\n{\nx\n[\n";
  ExpectRun(scratch, "\"$IDLGEN\" -f a.idl bad.idl later.idl", 1,
            "idl path:a.idl\nidl path:bad.idl\n" + failure);
  ExpectRun(scratch, "\"$IDLGEN\" -fv bad.idl later.idl", 1,
            "idl path:bad.idl\noutput final idl:\nnamespace\nn\nmessage\nM\n{\nx\n[\n}\n" +
                failure + "includes:\nnamespace:\nn \nenum:\nmessages:\nservices:\n");
  ExpectRun(scratch, "\"$IDLGEN\" -f a.idl -fv later.idl", 1, "idl path:a.idl\nidl path:-fv\n");
  EXPECT_EQ(ReadAll(scratch.path("a.h")), empty);
  EXPECT_FALSE(scratch.has("bad.h") || scratch.has("later.h"));
}

TEST(Program, WritesEveryLineByItselfAndInOneGo) {
  const Scratch scratch;
  scratch.write("a.idl", "message M { " + std::string(50000, 'm') + " int8 }");
  const Result result = RunProgram(scratch, "\"$IDLGEN\" -fv a.idl");
  EXPECT_EQ(result.status, 0);
  for (const std::string& write : result.writes) EXPECT_EQ(write.find('\n'), write.size() - 1);
}

TEST(Program, OutlivesWhatTheSystemRefuses) {
  const Scratch scratch;
  const std::string path = scratch.write("fleet.idl", Data("fleet.idl"));
  const auto expectHeader = [&](const Result& result) {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(ReadAll(scratch.path("fleet.h")), Data("fleet.h.expected"));
    EXPECT_EQ(ReadAll(path), Data("fleet.idl"));
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
