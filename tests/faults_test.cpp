#include <csignal>
#include <map>
#include <regex>
#include <sstream>

#include "run_program.h"

// Runs idlgen-header while system calls fail and signals arrive, with strace.

namespace zentho::idlgen {
namespace {

const std::string valid = "enum Mode { IDLE: 0 }";
const std::string older = "#pragma once\nolder\n";
const std::string source = "int notGenerated;\n";
const std::string whole = Data("common/a.header");

struct Scenario {
  const char* name;
  std::string idl;
  std::string before;  ///< The contents of the header before the run. If empty, there is none.
  std::string command;
  bool isValid;  ///< Whether the run succeeds if no call fails.
};

const std::string generate = "idlgen-header a.idl new/a.h";
const Scenario newHeader = {"NewDirectories", valid, "", generate, true};
const Scenario outdated = {"OlderHeader", valid, older, generate, true};
const Scenario idlgen = {"Idlgen", valid, older, "idlgen -f new/a.", true};
const std::vector<Scenario> scenarios = {
    newHeader,
    outdated,
    {"UnchangedHeader", valid, whole, "idlgen-header --if-changed a.idl new/a.h", true},
    {"GrammarError", "enum Mode { IDLE: 0", older, generate, false},
    {"RefusedHeader", valid, source, generate, false}};

/// Runs the command after creating a.idl and the header. The wrapper is what the command begins
/// with, such as "exec strace".
ProgramResult RunHeader(const Scratch& scratch, const Scenario& scenario,
                        const std::string& wrapper) {
  std::filesystem::remove_all(scratch.path("new"));
  if (!scenario.before.empty()) scratch.write("new/a.h", scenario.before);
  scratch.write("a.idl", scenario.idl);
  return RunProgram(scratch, wrapper + " " + scenario.command);
}

/// Returns the files in the directory of the header. If the text is empty, there is none.
std::map<std::string, std::string> Header(const std::string& text) {
  if (text.empty()) return {};
  return {{"a.h", text}};
}

/// A system call of a run. `strace` counts the calls of each name.
struct Call {
  std::string text;
  std::string name;
  int number;

  /// Returns a command that injects a fault into this call.
  std::string inject(const std::string& fault) const {
    return "exec strace -o /dev/null -e inject=" + name + ":" + fault +
           ":when=" + std::to_string(number);
  }
};

/// Returns the system calls of a run. Leaves out those before `main`, which begins with a call for
/// SIGPIPE, and the last one, which ends the process: no program can handle their failure. Leaves
/// out brk, which reports a failure by its result, not by an errno.
std::vector<Call> Calls(const Scratch& scratch, const Scenario& scenario) {
  RunHeader(scratch, scenario, "exec strace -o trace");
  std::vector<Call> calls;
  std::map<std::string, int> count;
  std::istringstream trace(ReadAll(scratch.path("trace")));
  for (std::string line; std::getline(trace, line);) {
    const std::string name = line.substr(0, line.find('('));
    ++count[name];
    if (name == "exit_group") break;
    const bool inMain = !calls.empty() || line.find("SIGPIPE") != std::string::npos;
    if (inMain && name != "brk") {
      calls.push_back({line, name, count[name]});
    }
  }
  EXPECT_GT(calls.size(), 5U);
  return calls;
}

template <typename Param>
class NeedsStrace : public testing::TestWithParam<Param> {
  void SetUp() override {
    const std::string reason = WhyNoStrace();
    if (!reason.empty()) GTEST_SKIP() << reason;
  }
};

/// What a run does while some system calls fail. If it prints something, it has failed.
struct Fault {
  const char* name;
  const Scenario& scenario;
  std::string wrapper;
  std::string err;
  std::string header;  ///< The contents of the header after the run. If empty, there is none.
};
using EachFault = NeedsStrace<Fault>;

TEST_P(EachFault, HasItsOutcome) {
  const Fault& fault = GetParam();
  const Scratch scratch;
  const ProgramResult result = RunHeader(scratch, fault.scenario, fault.wrapper);
  EXPECT_EQ(result.err, fault.err);
  EXPECT_EQ(result.status, fault.err.empty() ? 0 : 1);
  EXPECT_EQ(Files(scratch.path("new")), Header(fault.header));
}

const std::string inject = "exec strace --quiet=path-resolution -o /dev/null -e inject=";
const std::string failure = "idlgen-header: new/a.h: ";
// If there is an older header, it is the first file that is opened, and a.idl the second.
const std::vector<Fault> faults = {
    {"InterruptedReadIsRepeated", outdated, inject + "read:error=EINTR:when=2", "", whole},
    {"InterruptedWriteIsRepeated", outdated, inject + "write:error=EINTR:when=1", "", whole},
    {"WriteThatWouldBlockIsRepeated", outdated, inject + "write:error=EAGAIN:when=1", "", whole},
    {"InterruptedWaitIsRepeated", outdated,
     inject + "write:error=EAGAIN:when=1 -e inject=/poll:error=EINTR:when=1", "", whole},
    {"FailedWait", outdated,
     inject + "write:error=EAGAIN:when=1 -e inject=/poll:error=ENOMEM:when=1",
     failure + "Cannot allocate memory\n", ""},
    {"WriteOfNothing", outdated, inject + "write:retval=0:when=1", failure + "Input/output error\n",
     ""},
    {"FailedClose", outdated, inject + "close:error=EDQUOT", failure + "Disk quota exceeded\n", ""},
    {"TakenTemporaryNameIsNotUsed", outdated, inject + "openat:error=EEXIST:when=3", "", whole},
    {"AllTemporaryNamesAreTaken", outdated, inject + "openat:error=EEXIST:when=3+",
     failure + "File exists\n", ""},
    {"DirectoryCannotBeCreated", newHeader, inject + "/^mkdir:error=EROFS",
     failure + "Read-only file system\n", ""},
    {"DirectoryVanishes", newHeader, inject + "openat:error=ENOENT:when=2+",
     failure + "No such file or directory\n", ""},
    {"HeaderThatDoesNotExistNeedsNoRemoval", newHeader,
     "mkdir new; " + inject + "openat:error=EROFS:when=2 -e inject=/^unlink:error=EROFS",
     failure + "Read-only file system\n", ""},
    {"OlderHeaderCannotBeRemoved", outdated,
     inject + "openat:error=EACCES:when=2 -e inject=/^unlink:error=EROFS",
     "idlgen-header: a.idl: Permission denied\n" + failure +
         "cannot be removed: Read-only file system\n",
     older},
    {"HeaderThatAnotherRunRemovesIsNoError", outdated, inject + "openat:error=ENOENT -P new/a.h",
     "", whole},
    {"HeaderThatCannotBeExaminedIsKept", outdated, inject + "/stat:error=EACCES -P new/a.h",
     failure + "Permission denied\n", older},
    {"HeaderThatCannotBeReadIsKept", outdated, inject + "openat:error=EACCES -P new/a.h",
     failure + "Permission denied; it is left as it is\n", older},
    // The third argument gets another device number, which stands at the beginning.
    {"IdlFileIsRecognizedByItsDeviceToo", newHeader,
     "mkdir new; ln a.idl new/a.h; " + inject + "/stat:poke_exit=@arg3=01:when=1",
     failure + "does not begin with \"#pragma once\"; it is left as it is\n", valid},
    // As if another process created the header in the meantime.
    {"IdlgenCreatesFilesWithoutTruncatingThem", idlgen,
     inject + "/stat:error=EACCES -e inject=openat:error=EACCES:when=2 -P new/a.h", "", older}};
INSTANTIATE_TEST_SUITE_P(IdlgenHeader, EachFault, testing::ValuesIn(faults), RowName<Fault>);

using EachCall = NeedsStrace<Scenario>;

TEST_P(EachCall, MayFailOnce) {
  const Scenario& scenario = GetParam();
  const Scratch scratch;
  for (const Call& call : Calls(scratch, scenario)) {
    SCOPED_TRACE(call.text);
    const bool creates = call.text.find("O_CREAT") != std::string::npos;
    EXPECT_EQ(creates, call.text.find("O_EXCL") != std::string::npos);
    const ProgramResult result = RunHeader(scratch, scenario, call.inject("error=EIO"));
    const std::map<std::string, std::string> files = Files(scratch.path("new"));
    EXPECT_EQ(result.out, "");
    if (result.status == 0) {
      EXPECT_TRUE(scenario.isValid);
      EXPECT_EQ(result.err, "");
      EXPECT_EQ(files, Header(whole));
      continue;
    }
    EXPECT_EQ(result.status, 1);
    const bool isSilent = call.text.rfind("write(2", 0) == 0;  // The message was not written.
    EXPECT_EQ(result.err.empty(), isSilent);
    // The header has been removed, or the message says that it could not be.
    const bool isKept = !files.empty() && files == Header(scenario.before);
    EXPECT_TRUE(files.empty() || isKept) << testing::PrintToString(files);
    const bool isNamed = result.err.find("new/a.h: ") != std::string::npos;
    EXPECT_TRUE(!isKept || isNamed || isSilent) << result.err;
  }
}

INSTANTIATE_TEST_SUITE_P(IdlgenHeader, EachCall, testing::ValuesIn(scenarios), RowName<Scenario>);

struct EndingSignal {
  const char* name;
  int number;
};
using EachSignal = NeedsStrace<EndingSignal>;

TEST_P(EachSignal, LeavesTheHeaderWhole) {
  const std::regex temporaryName("\\.idlgen-\\d+-\\d+\\.tmp");
  std::signal(GetParam().number, SIG_DFL);  // In case this runs under nohup.
  const Scratch scratch;
  for (const Call& call : Calls(scratch, outdated)) {
    SCOPED_TRACE(call.text);
    const ProgramResult result =
        RunHeader(scratch, outdated, call.inject(std::string("signal=") + GetParam().name));
    EXPECT_EQ(result.status, -GetParam().number);
    EXPECT_EQ(result.err, "");
    const std::string header = ReadAll(scratch.path("new/a.h"));
    EXPECT_TRUE(header == older || header == whole) << header;
    if (GetParam().number != SIGKILL) {
      EXPECT_EQ(Files(scratch.path("new")), Header(header));
    } else {  // Its temporary file is hidden and disturbs nothing.
      for (const auto& [name, text] : Files(scratch.path("new"))) {
        EXPECT_TRUE(name == "a.h" || std::regex_match(name, temporaryName)) << name;
      }
      EXPECT_EQ(RunProgram(scratch, "exec idlgen-header a.idl new/a.h").status, 0);
      EXPECT_EQ(ReadAll(scratch.path("new/a.h")), whole);
    }
  }
}

constexpr EndingSignal signals[] = {{"SIGHUP", SIGHUP},
                                    {"SIGINT", SIGINT},
                                    {"SIGQUIT", SIGQUIT},
                                    {"SIGTERM", SIGTERM},
                                    {"SIGKILL", SIGKILL}};
INSTANTIATE_TEST_SUITE_P(IdlgenHeader, EachSignal, testing::ValuesIn(signals),
                         RowName<EndingSignal>);

}  // namespace
}  // namespace zentho::idlgen
