#include "io/line_writer.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "support.h"

namespace zentho {
namespace {

TEST(Descriptor, ClosesOnce) {
  Descriptor file(dup(STDOUT_FILENO));
  EXPECT_FALSE(file.close());
  EXPECT_FALSE(file.close());
  EXPECT_FALSE(Descriptor(-1).close());
}

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

TEST(FileLineWriter, RepeatsAnInterruptedWrite) {
  static std::array<int, 2> ends;  // A full pipe, which the signal handler empties.
  static std::string content;
  ASSERT_EQ(pipe(ends.data()), 0);
  content.resize(static_cast<std::size_t>(fcntl(ends[1], F_GETPIPE_SZ)));
  ASSERT_EQ(write(ends[1], content.data(), content.size()), static_cast<ssize_t>(content.size()));
  struct sigaction drain = {};
  drain.sa_handler = [](int) { (void)!read(ends[0], content.data(), content.size()); };
  sigaction(SIGALRM, &drain, nullptr);
  ualarm(20000, 0);
  FileLineWriter(ends[1]).writeLine({"ab"});
  content.resize(static_cast<std::size_t>(read(ends[0], content.data(), content.size())));
  EXPECT_EQ(content, "ab\n");
  close(ends[0]);
}

}  // namespace
}  // namespace zentho
