#include "program/depfile.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(Depfile, IsAMakefile) {
  EXPECT_EQ(Depfile("s", {}), "s:\n");
  EXPECT_EQ(Depfile("out/my s", {"a.idl", "b c\t$#.idl"}),
            "out/my\\ s: \\\n a.idl \\\n b\\ c\\\t$$\\#.idl\n\na.idl:\n\nb\\ c\\\t$$\\#.idl:\n");
}

TEST(Depfile, DoublesBackslashesOnlyBeforeABlankOrANumberSign) {
  EXPECT_EQ(RuleBeginning(R"(a\b\\c)"), R"(a\b\\c:)");
  EXPECT_EQ(RuleBeginning(R"(a\ b\\ c)"), R"(a\\\ b\\\\\ c:)");
  EXPECT_EQ(RuleBeginning(R"(a\#)"), R"(a\\#:)");
}

}  // namespace
}  // namespace zentho::idlgen
