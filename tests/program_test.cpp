#include "run_program.h"

// Runs the programs and checks the exit status, the output, and which files are written.

namespace zentho::idlgen {
namespace {

using Case = testing::TestWithParam<std::string>;

TEST_P(Case, MatchesExpectedResult) {
  checkCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Idlgen, Case, testing::ValuesIn(DataCases("program")), CaseName);
INSTANTIATE_TEST_SUITE_P(IdlgenHeader, Case, testing::ValuesIn(DataCases("header")), CaseName);

TEST(Idlgen, WritesALongLineInOneWrite) {
  const Scratch scratch;
  const std::string name(50000, 'm');
  scratch.write("a.idl", "enum " + name + " { }");
  const ProgramResult result = RunProgram(scratch, "exec \"$IDLGEN\" -fv a.idl");
  EXPECT_NE(result.out.find(name), std::string::npos);
  EXPECT_TRUE(result.lineByLine);
}

TEST(Idlgen, WaitsForASlowReaderOfANonBlockingPipe) {
  const Scratch scratch;
  const std::string word(1 << 21, 'x');  // More than a pipe can hold.
  scratch.write("a.idl", word);
  const ProgramResult result = RunProgram(scratch, "exec \"$IDLGEN\" -f a.idl", Output::Pipe);
  EXPECT_EQ(result.out, "idl path:a.idl\nWRONG format in " + word + "\n\nlines:\n" + word + "\n");
}

TEST(Idlgen, SurvivesFailedWrites) {
  const Scratch scratch;
  const std::string path = scratch.write("fleet.idl", Data("program/several_files/fleet.idl"));
  const auto expectHeader = [&](const ProgramResult& result) {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
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
}  // namespace zentho::idlgen
