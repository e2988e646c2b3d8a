#include "support.h"
#include "words/characters.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

struct Encoding {
  const char* name;
  std::string bytes;
  char32_t code;
  std::size_t size;
  bool valid;
};
using Encodings = testing::TestWithParam<Encoding>;

TEST_P(Encodings, GiveTheFirstCharacter) {
  const Character character = FirstCharacter(GetParam().bytes + "x");
  EXPECT_EQ(static_cast<unsigned>(character.code), static_cast<unsigned>(GetParam().code));
  EXPECT_EQ(character.size, GetParam().size);
  EXPECT_EQ(character.valid, GetParam().valid);
}

const std::vector<Encoding> encodings = {
    {"Ascii", "a", 'a', 1, true},
    {"TwoBytes", "\xc3\xa9", 0xe9, 2, true},
    {"ThreeBytes", "\xef\xbb\xbf", 0xfeff, 3, true},
    {"FourBytes", "\xf0\x9f\x99\x82", 0x1f642, 4, true},
    {"LastCode", "\xf4\x8f\xbf\xbf", 0x10ffff, 4, true},
    {"AfterTheLastCode", "\xf4\x90\x80\x80", 0xf4, 1, false},
    {"Continuation", "\x80", 0x80, 1, false},
    {"TooLongForTwoBytes", "\xc1\xbf", 0xc1, 1, false},
    {"TooLongForThreeBytes", "\xe0\x9f\xbf", 0xe0, 1, false},
    {"TooLongForFourBytes", "\xf0\x8f\xbf\xbf", 0xf0, 1, false},
    {"Surrogate", "\xed\xa0\x80", 0xed, 1, false},
    {"Incomplete", "\xe2\x82", 0xe2, 1, false},
    {"NoUtf8", "\xff", 0xff, 1, false}};
INSTANTIATE_TEST_SUITE_P(Characters, Encodings, testing::ValuesIn(encodings), RowName<Encoding>);

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

TEST(Characters, AreInvisibleUpToTheEndsOfTheRanges) {
  for (const char32_t code :
       {0x00U, 0x1fU, 0x7fU, 0xa0U, 0xadU, 0x200bU, 0x2028U, 0xfeffU, 0xe0001U}) {
    EXPECT_TRUE(IsInvisible(code)) << static_cast<unsigned>(code);
  }
  for (const char32_t code : {0x20U, 0x7eU, 0xa1U, 0xe9U, 0x2010U, 0x2030U, 0x3001U, 0x1f642U}) {
    EXPECT_FALSE(IsInvisible(code)) << static_cast<unsigned>(code);
  }
}

TEST(Characters, AreControlsAlsoBeyondAscii) {
  EXPECT_TRUE(HasControlCharacter("a\x1b"));
  EXPECT_TRUE(HasControlCharacter("\xc2\x9b"));
  EXPECT_FALSE(HasControlCharacter("a\xc2\xa0\x9b"));  // A space, and a byte that is no UTF-8.
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
