#include "io/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "support.h"

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

TEST(ReadFile, ReturnsTheReasonOfAFailure) {
  const Scratch scratch;
  std::string text;
  EXPECT_EQ(readFile(scratch.path("none"), text), std::errc::no_such_file_or_directory);
  EXPECT_EQ(readFile(scratch.path("."), text), std::errc::is_a_directory);
}

TEST(WriteAll, RepeatsAnInterruptedWrite) {
  static std::array<int, 2> ends;  // A full pipe, which the signal handler empties.
  static std::string content;
  ASSERT_EQ(pipe(ends.data()), 0);
  content.resize(static_cast<std::size_t>(fcntl(ends[1], F_GETPIPE_SZ)));
  ASSERT_EQ(write(ends[1], content.data(), content.size()), static_cast<ssize_t>(content.size()));
  struct sigaction drain = {};
  drain.sa_handler = [](int) { (void)!read(ends[0], content.data(), content.size()); };
  sigaction(SIGALRM, &drain, nullptr);
  ualarm(20000, 0);
  EXPECT_FALSE(writeAll(ends[1], "ab\n"));
  content.resize(static_cast<std::size_t>(read(ends[0], content.data(), content.size())));
  EXPECT_EQ(content, "ab\n");
  close(ends[0]);
  EXPECT_EQ(close(ends[1]), 0);
}

}  // namespace
}  // namespace zentho::idlgen
