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

struct FormRow {
  const char* name;
  std::vector<const char*> types;
  std::vector<const char*> others;
};
using TypeForms = testing::TestWithParam<FormRow>;

TEST_P(TypeForms, AreThoseOfTheWholeWord) {
  for (const char* word : GetParam().types) EXPECT_TRUE(IsTypeForm(word)) << word;
  for (const char* word : GetParam().others) EXPECT_FALSE(IsTypeForm(word)) << word;
}

const std::vector<FormRow> typeForms = {
    {"Names", {"x", "a.b", ".a", ".a.b.c", "goto"}, {"", ".", "a.", "a..b", "..a", "1", "a-b"}},
    {"Brackets", {"[x]", "[[.a.b]]"}, {"[]", "[[x]", "[x]]", "x[]", "[x][y]", "]x[", "[x][", "["}},
    {"Templates", {"a<b>", "a.b<.c.d>", "a<b,c>", "a<1>", "[a<b>]"}, {"<", "<a>", ".<a>", "1<a>"}},
    {"EmptyLists", {"a<>", "a<b<>>", "a<b<>,c>"}, {"a<,>", "a<b,>", "a<,b>", "a<b,,c>"}},
    {"Depth", {"a<b<c<d>>>", "a<b<c>,d<e>>"}, {"a<b", "a<b<c>", "a>", "a<b>>", "a<b>,c", "a,b"}},
    {"Members",
     {"a<b>.c", "a<b>.c<d>", "a<b>.c.d"},
     {"a<b>c", "a<b>.", "a<b>.1", "a<b>.c<", "a<b><c>"}},
    {"Arguments", {"a<b1>", "a<12,3>"}, {"a<1b>", "a<-1>", "a<b*>", "a<b c>", "a<b[1]>", "a<(b)>"}},
};
INSTANTIATE_TEST_SUITE_P(WordForms, TypeForms, testing::ValuesIn(typeForms), RowName<FormRow>);

}  // namespace
}  // namespace zentho::idlgen
