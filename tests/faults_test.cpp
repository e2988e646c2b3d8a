#include <csignal>
#include <map>
#include <sstream>

#include "run_program.h"

// Runs idlgen-header while system calls fail and signals arrive, with strace.

namespace zentho {
namespace {

const std::string older = "#pragma once\nolder\n";
const std::string source = "int notGenerated;\n";
const std::string whole =
    "#pragma once\n\n#include <zentho/serialization/serialization.h>\n\n\nenum Mode {\n"
    "    IDLE = 0,\n}; /* enum Mode */\n\n\nnamespace zentho {\n} /* namespace zentho */\n\n";

struct Scenario {
  const char* name;
  std::string idl;
  std::string before;  ///< The contents of the header before the run. If empty, there is none.
  std::string option;
  bool isValid;  ///< Whether the run succeeds if no call fails.
};

const Scenario outdated = {"OlderHeader", "enum Mode { IDLE: 0 }", older, "", true};
const std::vector<Scenario> scenarios = {
    {"NewDirectories", "enum Mode { IDLE: 0 }", "", "", true},
    outdated,
    {"UnchangedHeader", "enum Mode { IDLE: 0 }", whole, "--if-changed ", true},
    {"GrammarError", "enum Mode { IDLE: 0", older, "", false},
    {"RefusedHeader", "enum Mode { IDLE: 0 }", source, "", false}};

/// Runs idlgen-header on a.idl, which is created, with a command such as strace before it.
Result RunHeader(const Scratch& scratch, const Scenario& scenario, const std::string& wrapper) {
  std::filesystem::remove_all(scratch.path("new"));
  if (!scenario.before.empty()) scratch.write("new/a.h", scenario.before);
  scratch.write("a.idl", scenario.idl);
  return RunProgram(scratch,
                    "exec " + wrapper + " \"$IDLGEN_HEADER\" " + scenario.option + "a.idl new/a.h");
}

/// Returns the names and contents of all files in the directory of the header.
std::string Files(const Scratch& scratch) {
  std::string files;
  if (!std::filesystem::exists(scratch.path("new"))) return files;
  for (const auto& file : std::filesystem::directory_iterator(scratch.path("new"))) {
    files += file.path().filename().string() + ":\n" + ReadAll(file.path());
  }
  return files;
}

/// A system call of a run. `strace` counts the calls of each name.
struct Call {
  std::string text;
  std::string name;
  int number;

  /// Returns a command that injects a fault into this call.
  std::string inject(const std::string& fault) const {
    return "strace -o /dev/null -e inject=" + name + ":" + fault +
           ":when=" + std::to_string(number);
  }
};

/// Returns the system calls of a run. Leaves out those before `main`, which begins with a call for
/// SIGPIPE, and the last one, which ends the process: no program can handle their failure. Leaves
/// out brk, which reports a failure by its result, not by an errno.
std::vector<Call> Calls(const Scratch& scratch, const Scenario& scenario) {
  RunHeader(scratch, scenario, "strace -o trace");
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

/// Skips tests that need strace, if there is none or if it has no permission. The loader of a
/// dynamically linked program and the code of sanitizers make system calls of their own.
template <typename Param>
class NeedsStrace : public testing::TestWithParam<Param> {
  void SetUp() override {
    if (!IDLGEN_IS_STATIC) GTEST_SKIP() << "not statically linked";
    if (RunProgram(Scratch(), "strace -o /dev/null true").status != 0) {
      GTEST_SKIP() << "strace is missing or not permitted";
    }
  }
};

using Faults = NeedsStrace<std::string>;

TEST_P(Faults, MatchesExpectedResult) {
  checkCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(IdlgenHeader, Faults, testing::ValuesIn(DataCases("faults")), CaseName);

using EachCall = NeedsStrace<Scenario>;

TEST_P(EachCall, MayFailOnce) {
  const Scenario& scenario = GetParam();
  const std::string earlier = scenario.before.empty() ? "" : "a.h:\n" + scenario.before;
  const Scratch scratch;
  for (const Call& call : Calls(scratch, scenario)) {
    SCOPED_TRACE(call.text);
    const Result result = RunHeader(scratch, scenario, call.inject("error=EIO"));
    const std::string files = Files(scratch);
    EXPECT_EQ(result.out, "");
    if (result.status == 0) {
      EXPECT_TRUE(scenario.isValid);
      EXPECT_EQ(result.err, "");
      EXPECT_EQ(files, "a.h:\n" + whole);
      continue;
    }
    EXPECT_EQ(result.status, 1);
    const bool isSilent = call.text.rfind("write(2", 0) == 0;  // The message was not written.
    EXPECT_EQ(result.err.empty(), isSilent);
    // The header has been removed, or the message says that it could not be.
    const bool isKept = !files.empty() && files == earlier;
    EXPECT_TRUE(files.empty() || isKept) << files;
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
  std::signal(GetParam().number, SIG_DFL);  // In case this runs under nohup.
  const Scratch scratch;
  for (const Call& call : Calls(scratch, outdated)) {
    SCOPED_TRACE(call.text);
    const Result result =
        RunHeader(scratch, outdated, call.inject(std::string("signal=") + GetParam().name));
    EXPECT_EQ(result.status, -GetParam().number);
    EXPECT_EQ(result.err, "");
    const std::string header = ReadAll(scratch.path("new/a.h"));
    EXPECT_TRUE(header == older || header == whole) << header;
    if (GetParam().number != SIGKILL) {
      EXPECT_EQ(Files(scratch), "a.h:\n" + header);
    } else {  // Its temporary file disturbs nothing.
      EXPECT_EQ(RunProgram(scratch, "exec \"$IDLGEN_HEADER\" a.idl new/a.h").status, 0);
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
}  // namespace zentho
