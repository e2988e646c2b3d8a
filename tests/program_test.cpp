#include "run_program.h"

// Runs the programs and checks the exit status, the output, and which files are written.

namespace zentho {
namespace {

/// Checks a case: a directory with a command, its expected output and status, and input files. Each
/// case also has the files of tests/data/common.
///
/// Without a file "out", "err" or "status", the output must be empty and the status 0. The input
/// files must stay as they are, but if there is a NAME.expected, the file NAME must have that text
/// afterwards. Other headers and temporary files must be gone.
void checkCase(const std::string& name) {
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

  const Result result = RunProgram(scratch, expected["command"]);
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
  const Result result = RunProgram(scratch, "exec \"$IDLGEN\" -fv a.idl");
  EXPECT_NE(result.out.find(name), std::string::npos);
  EXPECT_TRUE(result.lineByLine);
}

TEST(Idlgen, WaitsForASlowReaderOfANonBlockingPipe) {
  const Scratch scratch;
  const std::string word(1 << 21, 'x');  // More than a pipe can hold.
  scratch.write("a.idl", word);
  const Result result = RunProgram(scratch, "exec \"$IDLGEN\" -f a.idl", Output::Pipe);
  EXPECT_EQ(result.out, "idl path:a.idl\nWRONG format in " + word + "\n\nlines:\n" + word + "\n");
}

TEST(Idlgen, SurvivesFailedWrites) {
  const Scratch scratch;
  const std::string path = scratch.write("fleet.idl", Data("program/several_files/fleet.idl"));
  const auto expectHeader = [&](const Result& result) {
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
}  // namespace zentho
