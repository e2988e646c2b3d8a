#include "generator/generator.h"

#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "io/line_writer.h"
#include "support.h"

namespace zentho {
namespace {

/// Returns the generated header. Generating must print nothing.
std::string Header(const Schema& schema) {
  const Scratch scratch;
  EXPECT_EQ(Printed([&] { Generator(schema).generate(scratch.path("new/one.idl")); }), "");
  return ReadAll(scratch.path("new/one.h"));
}

const std::string framework = "#pragma once\n\n#include <zentho/serialization/serialization.h>\n";
const std::string noTypes = "\n\n\nnamespace zentho {\n} /* namespace zentho */\n\n";

TEST(Generator, WritesIncludesForFlags) {
  EXPECT_EQ(Header({}), framework + noTypes);

  const std::vector<std::pair<bool Schema::*, std::string>> flags = {
      {&Schema::hasIntType, "#include <cstdint>\n"},
      {&Schema::hasString, "#include <string>\n"},
      {&Schema::hasVector, "#include <vector>\n"},
      {&Schema::hasMat, "#include <opencv2/core/mat.hpp>\n"}};
  Schema all;
  all.includes = {"a.b/c"};
  std::string everyLine;
  for (const auto& [flag, line] : flags) {
    Schema one;
    one.*flag = all.*flag = true;
    EXPECT_EQ(Header(one), framework + line + noTypes);
    everyLine += line;
  }
  EXPECT_EQ(Header(all), framework + everyLine + "#include \"a.b/c.h\"\n" + noTypes);
}

TEST(Generator, QualifiesTypesWithoutNamespace) {
  Schema schema;
  schema.messages.push_back({"Pose", {{3, "a", 0, "flat"}, {2, ".x..y", 1, "deep"}}});
  EXPECT_EQ(Header(schema), Data("pose.h.expected"));
}

TEST(LineWriter, WritesEachLineImmediately) {
  const Scratch scratch;
  scratch.write("lines", "earlier content");
  LineWriter writer(scratch.path("lines"));
  writer.writeLine({"a", "", "b"});
  writer.writeLine({});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\n\n");
}

TEST(LineWriter, DropsAllLinesAfterAFailedWrite) {
  const Scratch scratch;
  LineWriter writer(scratch.path("lines"));
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  rlimit limited = unlimited;
  limited.rlim_cur = 4;

  std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limited);
  writer.writeLine({"ab"});
  writer.writeLine({"cd"});
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, SIG_DFL);
  writer.writeLine({"ef"});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\nc");
}

TEST(LineWriter, RepeatsAnInterruptedWrite) {
  static std::array<int, 2> ends;  // A full pipe, which the signal handler empties.
  static std::string content(1 << 16, ' ');
  ASSERT_EQ(pipe(ends.data()), 0);
  ASSERT_EQ(write(ends[1], content.data(), content.size()), 1 << 16);
  struct sigaction drain = {};
  drain.sa_handler = [](int) { (void)!read(ends[0], content.data(), content.size()); };
  sigaction(SIGALRM, &drain, nullptr);
  ualarm(20000, 0);
  LineWriter(ends[1]).writeLine({"ab"});
  content.resize(static_cast<std::size_t>(read(ends[0], content.data(), content.size())));
  EXPECT_EQ(content, "ab\n");
  close(ends[0]);
}

}  // namespace
}  // namespace zentho
