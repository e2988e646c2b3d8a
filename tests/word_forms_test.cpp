#include "words/word_forms.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(IsNameCharacter, LeavesLettersOfAllLanguagesToTheCompiler) {
  for (const char32_t code :
       {U'a', U'z', U'A', U'Z', U'0', U'9', U'_', U'$', U'ª', U'µ', U'·', U'º', U'À', U'é', U'温',
        U'\u1fff', U'\u203f', U'\u2070', U'\U0001f642'}) {
    EXPECT_TRUE(IsNameCharacter(code)) << static_cast<unsigned>(code);
  }
  for (const char32_t code :
       {U'@',      U'[',      U'`',      U'{',      U'/',      U':',     U'-', U'\x7f',
        U'\u00a0', U'©',      U'¿',      U'×',      U'÷',      U'→',     U'−', U'■',
        U'⟨',      U'\u1680', U'\u180e', U'\u2000', U'\u206f', U'\u3000'}) {
    EXPECT_FALSE(IsNameCharacter(code)) << static_cast<unsigned>(code);
  }
}

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
