#include "io/replace_file.h"

#include "support.h"

namespace zentho {
namespace {

/// Returns the names of the files in the scratch directory.
std::set<std::string> Files(const Scratch& scratch) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(scratch.path("."))) {
    names.insert(entry.path().filename());
  }
  return names;
}

TEST(ReplaceFile, CreatesTheFileAndItsDirectories) {
  const Scratch scratch;
  EXPECT_FALSE(replaceFile(scratch.path("a/b/../c//file"), "text"));
  EXPECT_EQ(ReadAll(scratch.path("a/c/file")), "text");
}

TEST(ReplaceFile, ReplacesALongerFile) {
  const Scratch scratch;
  const std::string path = scratch.write("file", "longer text");
  EXPECT_FALSE(replaceFile(path, "text"));
  EXPECT_EQ(ReadAll(path), "text");
  EXPECT_EQ(Files(scratch), std::set<std::string>{"file"});
}

TEST(ReplaceFile, LeavesNothingAfterAFailure) {
  const Scratch scratch;
  scratch.write("directory/file", "text");
  EXPECT_EQ(replaceFile(scratch.path("directory"), "text"), std::errc::is_a_directory);
  EXPECT_EQ(replaceFile(scratch.path("directory/file/a"), "text"), std::errc::not_a_directory);
  EXPECT_EQ(Files(scratch), std::set<std::string>{"directory"});
}

TEST(RemoveFile, FailsOnlyIfTheFileStays) {
  const Scratch scratch;
  const std::string path = scratch.write("file", "text");
  EXPECT_FALSE(removeFile(path));
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_FALSE(removeFile(path));
  EXPECT_FALSE(removeFile(scratch.write("other", "") + "/none"));
  EXPECT_EQ(removeFile(scratch.path(".")), std::errc::is_a_directory);
}

}  // namespace
}  // namespace zentho
