#include "sources/source_tree.h"

#include <sys/stat.h>

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(DiskTree, TellsFilesFromWhatIsNoneAndKnowsThemByAnyPath) {
  const Scratch scratch;
  const std::string path = scratch.write("d/a.idl", "text");
  std::filesystem::create_hard_link(path, scratch.path("hard"));
  std::filesystem::create_symlink("d/a.idl", scratch.path("soft"));
  ASSERT_EQ(mkfifo(scratch.path("fifo").c_str(), 0666), 0);
  DiskTree tree;
  EXPECT_EQ(tree.look(path).kind, Entry::Kind::File);
  EXPECT_EQ(tree.look(scratch.path("hard")).id, tree.look(path).id);
  EXPECT_EQ(tree.look(scratch.path("soft")).id, tree.look(path).id);
  EXPECT_EQ(tree.look(scratch.path("d")).kind, Entry::Kind::Directory);
  EXPECT_EQ(tree.look(scratch.path("fifo")).kind, Entry::Kind::Other);
  EXPECT_EQ(tree.look("/dev/null").kind, Entry::Kind::Other);
  EXPECT_EQ(tree.look(path + "/b").kind, Entry::Kind::Missing);
  EXPECT_EQ(tree.look(path + std::string("\0b", 2)).kind, Entry::Kind::Missing);
  EXPECT_EQ(tree.look(scratch.path(std::string(300, 'n'))).kind, Entry::Kind::Unreadable);

  std::string text;
  EXPECT_EQ(tree.read(scratch.path("fifo"), text).kind, Entry::Kind::Other);
  EXPECT_EQ(tree.read(path, text).id, tree.look(path).id);
  EXPECT_EQ(text, "text");
  std::vector<std::string> names;
  EXPECT_FALSE(tree.list(scratch.path("."), names));
  EXPECT_EQ(names, (std::vector<std::string>{"d", "fifo", "hard", "soft"}));
  EXPECT_TRUE(tree.list(scratch.path("none"), names));
  EXPECT_EQ(names, std::vector<std::string>());
}

}  // namespace
}  // namespace zentho::idlgen
