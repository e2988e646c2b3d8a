#include "io/replace_file.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(ReplaceFile, CreatesTheFileAndItsDirectories) {
  const Scratch scratch;
  EXPECT_FALSE(replaceFile(scratch.path("a/b/../c//file"), "text"));
  EXPECT_EQ(ReadAll(scratch.path("a/c/file")), "text");
}

TEST(ReplaceFile, ReplacesALongerFile) {
  const Scratch scratch;
  EXPECT_FALSE(replaceFile(scratch.write("file", "longer text"), "text"));
  EXPECT_EQ(Files(scratch.path(".")), (std::map<std::string, std::string>{{"file", "text"}}));
}

TEST(ReplaceFile, LeavesNothingAfterAFailure) {
  const Scratch scratch;
  scratch.write("directory/file", "text");
  EXPECT_EQ(replaceFile(scratch.path("directory"), "text"), std::errc::is_a_directory);
  EXPECT_EQ(replaceFile(scratch.path("directory/file/a"), "text"), std::errc::not_a_directory);
  EXPECT_EQ(Files(scratch.path(".")),
            (std::map<std::string, std::string>{{"directory/file", "text"}}));
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
}  // namespace zentho::idlgen
