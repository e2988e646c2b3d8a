#include "io/line_writer.h"

#include <sys/resource.h>

#include <csignal>

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(FileLineWriter, WritesEachLineImmediately) {
  const Scratch scratch;
  scratch.write("lines", "earlier content");
  FileLineWriter writer(scratch.path("lines"));
  writer.writeLine({"a", "", "b"});
  writer.writeLine({});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\n\n");
}

TEST(StringLineWriter, AppendsToAString) {
  StringLineWriter writer;
  writer.text = "old ";
  writer.writeLine({"a", "", "b"});
  writer.writeLine({});
  EXPECT_EQ(writer.text, "old ab\n\n");
}

TEST(FileLineWriter, DropsAllLinesAfterAFailedWrite) {
  const Scratch scratch;
  FileLineWriter writer(scratch.path("lines"));
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

}  // namespace
}  // namespace zentho::idlgen
