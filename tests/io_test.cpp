#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include "io/file.h"
#include "io/line_writer.h"
#include "support.h"

// What the runs of the programs do not show.

namespace zentho::idlgen {
namespace {

TEST(Descriptor, ClosesOnce) {
  Descriptor file(dup(STDOUT_FILENO));
  EXPECT_FALSE(file.close());
  EXPECT_EQ(fcntl(file.get(), F_GETFD), -1);
  EXPECT_FALSE(file.close());
  EXPECT_FALSE(Descriptor(-1).close());
}

TEST(ReadFile, AppendsUpToTheLimit) {
  const Scratch scratch;
  const std::string path = scratch.write("file", std::string(20000, 'a') + "end");
  std::string text = "begin ";
  EXPECT_FALSE(readFile(path, text, 20001));
  EXPECT_EQ(text, "begin " + std::string(20000, 'a') + "e");
}

TEST(FileLineWriter, WritesEachLineImmediatelyAndDropsAllAfterAFailedWrite) {
  const Scratch scratch;
  scratch.write("lines", "earlier content");
  FileLineWriter writer(scratch.path("lines"));
  writer.writeLine({"a", "", "b"});
  writer.writeLine({});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\n\n");

  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  rlimit limited = unlimited;
  limited.rlim_cur = 5;
  std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limited);
  writer.writeLine({"cd"});
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, SIG_DFL);
  writer.writeLine({"ef"});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\n\nc");
}

}  // namespace
}  // namespace zentho::idlgen
