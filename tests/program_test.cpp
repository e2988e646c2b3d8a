#include "run_program.h"

// Runs the programs and checks the exit status, the output, and which files are written.

namespace zentho::idlgen {
namespace {

using Programs = testing::TestWithParam<Run>;

TEST_P(Programs, RunAsShown) {
  const std::string reason = GetParam().needsStrace ? WhyNoStrace() : "";
  if (!reason.empty()) GTEST_SKIP() << reason;
  checkRun(GetParam());
}

INSTANTIATE_TEST_SUITE_P(, Programs, testing::ValuesIn(Runs()), RowName<Run>);

TEST(Idlgen, WritesALongLineInOneWrite) {
  const Scratch scratch;
  const std::string name(50000, 'm');
  scratch.write("a.idl", "enum " + name + " { }");
  const ProgramResult result = RunProgram(scratch, "exec idlgen -fv a.idl");
  EXPECT_NE(result.out.find(name), std::string::npos);
  EXPECT_TRUE(result.lineByLine);
}

TEST(Idlgen, WaitsForASlowReaderOfANonBlockingPipe) {
  const Scratch scratch;
  const std::string word(1 << 21, 'x');  // More than a pipe can hold.
  scratch.write("a.idl", word);
  const ProgramResult result = RunProgram(scratch, "exec idlgen -f a.idl", Output::Pipe);
  EXPECT_EQ(result.out, "idl path:a.idl\nWRONG format in " + word + "\n\nlines:\n" + word + "\n");
}

}  // namespace
}  // namespace zentho::idlgen
