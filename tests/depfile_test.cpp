#include "header/depfile.h"

#include "support.h"

namespace zentho {
namespace {

TEST(Depfile, EscapesWhatMakeReads) {
  EXPECT_EQ(Depfile("s p", {"a b", "a\\ b", "a\\b", "$a#b", "a\\#"}),
            "s\\ p: \\\n a\\ b \\\n a\\\\\\ b \\\n a\\b \\\n $$a\\#b \\\n a\\\\#\n"
            "\na\\ b:\n\na\\\\\\ b:\n\na\\b:\n\n$$a\\#b:\n\na\\\\#:\n");
}

}  // namespace
}  // namespace zentho
