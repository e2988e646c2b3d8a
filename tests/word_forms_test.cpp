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

TEST(IsIdentifier, WantsOneName) {
  for (const char* word : {"x", "_", "$", "x1", "goto", "größe", "温度"}) {
    EXPECT_TRUE(IsIdentifier(word)) << word;
  }
  for (const char* word : {"", "1x", "a.b", "a-b", "a b", "a\xff", "a\xe2\x80\x8b"}) {
    EXPECT_FALSE(IsIdentifier(word)) << word;
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

TEST(TemplateNames, AreThoseThatTheFileMayHaveToDeclare) {
  const auto names = TemplateNames("std.map<a.b,std.x<c<>>,1,.d,stdx<a.b>>.e");
  EXPECT_EQ(names, (std::vector<std::string_view>{"a.b", "c", "stdx", "a.b"}));
  EXPECT_TRUE(TemplateNames("").empty());
}

TEST(Components, StandBetweenTheDots) {
  EXPECT_EQ(Components("a.bc"), (std::vector<std::string_view>{"a", "bc"}));
  EXPECT_EQ(Components(".a."), (std::vector<std::string_view>{"", "a", ""}));
  EXPECT_EQ(Components(""), (std::vector<std::string_view>{""}));
}

TEST(BraceOf, LooksAtTheEndsOfAWord) {
  for (const char* word : {"{", "P{", "{{", "{;", "a{\r", ";{"})
    EXPECT_EQ(BraceOf(word), '{') << word;
  for (const char* word : {"}", "};", "},\r", "\t}", "int8}", "}a", "}{", "{}"}) {
    EXPECT_EQ(BraceOf(word), '}') << word;
  }
  for (const char* word : {"", ";", ",\t", "a{b", "a}b", "{a"})
    EXPECT_EQ(BraceOf(word), '\0') << word;
}

struct IncludeRow {
  const char* name;
  IncludeForm form;
  std::vector<const char*> words;
};
using IncludeForms = testing::TestWithParam<IncludeRow>;

TEST_P(IncludeForms, AreThoseOfTheWholeWord) {
  for (const char* word : GetParam().words) EXPECT_EQ(FormOfInclude(word), GetParam().form) << word;
}

const std::vector<IncludeRow> includeForms = {
    {"Path", IncludeForm::Path, {R"("a.idl")", "<a.idl>", R"("../a.b/c.d")", R"("ä.idl")"}},
    {"Unquoted", IncludeForm::Unquoted, {"a.idl", R"(a.idl")", "'a.idl'", "a"}},
    {"Unterminated",
     IncludeForm::Unterminated,
     {R"(")", "<", R"("a.idl)", "<a.idl", R"("a.idl>)", R"("a.idl')"}},
    {"NoExtension", IncludeForm::NoExtension, {R"("")", "<>", R"("a")", R"("a.")", R"("a.b/c")"}},
    {"NoName", IncludeForm::Invalid, {R"(".idl")", "<.idl>", R"(".")", R"("./a")"}},
    {"Code",
     IncludeForm::Invalid,
     {R"("a/*.idl")", R"("a//b.idl")", R"("a\b.idl")", R"("a{b.idl")", R"("a}b.idl")",
      R"("a;b.idl")", R"("a,b.idl")", R"("a"b.idl")", R"(<a"b.idl>)", "a;", R"("a.idl";)"}},
    {"ControlCharacters",
     IncludeForm::Invalid,
     {"\"a\tb.idl\"", "\"a.idl\"\r", "<\x7f.idl>", "\x1b"}},
};
INSTANTIATE_TEST_SUITE_P(WordForms, IncludeForms, testing::ValuesIn(includeForms),
                         RowName<IncludeRow>);

TEST(LooksLikeType, LooksInsideOfBrackets) {
  for (const char* word : {"int8", "string", "double", "[int8]", "[[bool]]", "int8[]", "char[3]"}) {
    EXPECT_TRUE(LooksLikeType(word)) << word;
  }
  for (const char* word : {"Int8", "int8x", "x", "[x]", "", "[", "const", "int8;", "]int8"}) {
    EXPECT_FALSE(LooksLikeType(word)) << word;
  }
}

}  // namespace
}  // namespace zentho::idlgen
