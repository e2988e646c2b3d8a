#include "words/word_forms.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(IsTypeForm, LooksAtTheWholeWord) {
  for (const char* word :
       {"x",         "a.b",      ".a",        ".a.b.c",     "goto",         "[x]",
        "[[.a.b]]",  "a<b>",     "a.b<.c.d>", "a<b,c>",     "a<1>",         "[a<b>]",
        "a<>",       "a<b<>>",   "a<b<>,c>",  "a<b<c<d>>>", "a<b<c>,d<e>>", "a<b>.c",
        "a<b>.c<d>", "a<b>.c.d", "a<b1>",     "a<12,3>"}) {
    EXPECT_TRUE(IsTypeForm(word)) << word;
  }
  for (const char* word :
       {"",        ".",       "a.",    "a..b",   "..a",   "1",      "a-b",     "[]",
        "[[x]",    "[x]]",    "x[]",   "[x][y]", "]x[",   "[x][",   "[",       "<",
        "<a>",     ".<a>",    "1<a>",  "a<,>",   "a<b,>", "a<,b>",  "a<b,,c>", "a<b",
        "a<b<c>",  "a>",      "a<b>>", "a<b>,c", "a,b",   "a<b>c",  "a<b>.",   "a<b>.1",
        "a<b>.c<", "a<b><c>", "a<1b>", "a<-1>",  "a<b*>", "a<b c>", "a<b[1]>", "a<(b)>"}) {
    EXPECT_FALSE(IsTypeForm(word)) << word;
  }
}

}  // namespace
}  // namespace zentho::idlgen
