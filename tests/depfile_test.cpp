#include "program/depfile.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(Depfile, IsAMakefile) {
  EXPECT_EQ(Depfile("s", {}), "s:\n");
  EXPECT_EQ(Depfile("out/my s", {"a.idl", "b c\t$#.idl"}),
            "out/my\\ s: \\\n a.idl \\\n b\\ c\\\t$$\\#.idl\n\na.idl:\n\nb\\ c\\\t$$\\#.idl:\n");
}

TEST(Depfile, DoublesBackslashesOnlyBeforeABlank) {
  EXPECT_EQ(Depfile(R"(a\b\\c)", {}), R"(a\b\\c:)"
                                      "\n");
  EXPECT_EQ(Depfile(R"(a\ b\\ c)", {}), R"(a\\\ b\\\\\ c:)"
                                        "\n");
  EXPECT_EQ(Depfile(R"(a\#)", {}), R"(a\\#:)"
                                   "\n");
}

TEST(Depfile, IsKnownByItsForm) {
  const std::string depfile = Depfile("my out/s 1", {"a.idl"});
  for (const char* target : {"my out/s 1", "s 1", "/other tree/s 1"}) {
    EXPECT_TRUE(IsDepfile(depfile, target));
    EXPECT_TRUE(IsDepfile(Depfile(target, {"b", "c"}), "my out/s 1"));
  }
  EXPECT_FALSE(IsDepfile(depfile, "1"));
  for (const char* other :
       {"", "s", "s:", "s: a.idl\n b\n", "s: \\\n", "s: \\\n\ta\n", "s.o: \\\n a\n", "xs: \\\n a\n",
        "all s: \\\n a\n", "all d/s: \\\n a\n", "# s\ns: \\\n a\n"}) {
    EXPECT_FALSE(IsDepfile(other, "d/s")) << other;
  }
}

}  // namespace
}  // namespace zentho::idlgen
