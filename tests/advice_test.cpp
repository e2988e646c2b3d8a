#include "recovery/advice.h"

#include "support.h"
#include "words/foreign_words.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

struct SimilarRow {
  const char* name;
  std::string word;
  std::vector<std::string> candidates;
  std::string found;
};
using SimilarWords = testing::TestWithParam<SimilarRow>;

TEST_P(SimilarWords, AreFound) {
  SimilarWord similar(GetParam().word);
  for (const std::string& candidate : GetParam().candidates) similar.compare(candidate);
  EXPECT_EQ(similar.found(), GetParam().found);
}

const std::string forty(40, 'x');

const std::vector<SimilarRow> similarRows = {
    {"MissingLetter", "strng", {"int8", "string"}, "string"},
    {"LetterTooMany", "strinng", {"string"}, "string"},
    {"OtherLetter", "int7", {"int8"}, "int8"},
    {"SwappedLetters", "Psoe", {"Pose"}, "Pose"},
    {"SwappedLettersApart", "Pesox", {"Posex"}, ""},
    {"OneOfThreeLetters", "abc", {"axc"}, "axc"},
    {"TwoOfThreeLetters", "abc", {"axx"}, ""},
    {"OneOfTwoLetters", "ab", {"ax", "a", "abc"}, ""},
    {"TwoOfSixLetters", "abcdef", {"abcdxx"}, "abcdxx"},
    {"ThreeOfSixLetters", "abcdef", {"abcxxx", "abc", "abcdefxxx"}, ""},
    {"CaseMakesNoDifference", "INT8_z", {"int8_Z"}, "int8_Z"},
    {"SignsHaveNoCase", "a@@", {"a``"}, ""},
    {"MostSimilarOne", "abcdef", {"abcdxx", "abcdex", "abcxef", "abxxef"}, "abcdex"},
    {"FortyLetters", forty, {forty.substr(1)}, forty.substr(1)},
    {"MoreThanFortyLetters", forty + "x", {forty}, ""},
    {"NoCandidate", "abc", {}, ""},
};
INSTANTIATE_TEST_SUITE_P(Advice, SimilarWords, testing::ValuesIn(similarRows), RowName<SimilarRow>);

TEST(DidYouMean, AsksForAWord) {
  EXPECT_EQ(DidYouMean("a\tb"), R"(did you mean "a\tb"?)");
  EXPECT_EQ(DidYouMean(""), "");
}

TEST(KeywordFor, KnowsTheKeywordsOfOtherLanguages) {
  const std::vector<std::pair<const char*, const char*>> keywords = {
      {"import", "include"},   {"package", "namespace"},
      {"module", "namespace"}, {"struct", "message"},
      {"class", "message"},    {"record", "message"},
      {"table", "message"},    {"interface", "service"},
      {"include", "include"},  {"namespace", "namespace"},
      {"enum", "enum"},        {"message", "message"},
      {"service", "service"},  {"Struct", ""},
      {"mesage", ""},          {"request", ""},
      {"union", ""},           {"", ""}};
  for (const auto& [word, keyword] : keywords) EXPECT_EQ(KeywordFor(word), keyword) << word;
  EXPECT_EQ(SimilarKeyword("table"), "message");
  EXPECT_EQ(SimilarKeyword("Mesage"), "message");
  EXPECT_EQ(SimilarKeyword("structs"), "");
}

struct AdviceRow {
  const char* name;
  Role role;
  std::vector<const char*> words;
  const char* advice;
};
using FormAdvices = testing::TestWithParam<AdviceRow>;

TEST_P(FormAdvices, SayWhatToDo) {
  for (const char* word : GetParam().words) {
    EXPECT_EQ(FormAdvice(word, GetParam().role), GetParam().advice) << word;
  }
}

const std::vector<AdviceRow> adviceRows = {
    {"CommentOfC",
     Role::MemberName,
     {"/*", "/**", "*/", "a*/", "a/*b", "--a", "(*"},
     R"(comments start with "#")"},
    {"CommentOfCpp", Role::MemberType, {"//", "///", "//a"}, R"(here, only "#" starts a comment)"},
    {"Tab", Role::Statement, {"\tmessage", "a\tb\r", "int8;\t"}, "use spaces instead of tabs"},
    {"CarriageReturn",
     Role::MemberType,
     {"int8\r", "\r", "};\r"},
     "end lines with LF, not with CR LF"},
    {"ByteOrderMark",
     Role::Statement,
     {"\xef\xbb\xbfmessage"},
     "save the file without a byte order mark"},
    {"OpeningBrace", Role::MessageName, {"M{", "{a{"}, R"(put a space before "{")"},
    {"ClosingBrace", Role::MemberType, {"int8}", "int8}}"}, R"(put spaces around "}")"},
    {"ClosingBraceAndSemicolon",
     Role::ItemValue,
     {"0};"},
     R"(put spaces around "}" and delete the ";")"},
    {"ClosingBraceAndComma",
     Role::ItemValue,
     {"0},"},
     R"(put spaces around "}" and delete the ",")"},
    {"Parenthesis", Role::MemberType, {"f(x)", "(default=3)"}, R"(it contains "(")"},
    {"EqualsSignOfAnItem",
     Role::ItemName,
     {"A=1", "=", "A=", "=="},
     R"(write a colon, as in "A: 1")"},
    {"EqualsSignOfAValue", Role::ItemValue, {"=", "A=1", "A="}, R"(write a colon, as in "A: 1")"},
    {"EqualsSignForAColon",
     Role::MemberName,
     {"x=int8", "x="},
     R"(write a colon, as in "x: int8")"},
    {"EqualsSignForAType", Role::MemberType, {"="}, R"(write a colon, as in "x: int8")"},
    {"EqualsSignForADefault",
     Role::MemberType,
     {"int8=3", "=3"},
     "there are no default values or field numbers"},
    {"EqualsSignAfterAMember",
     Role::MemberName,
     {"=", "=3", "=="},
     "there are no default values or field numbers"},
    {"TypeForAName",
     Role::MemberName,
     {"[int8]", "int8[]", "double[]"},
     R"(put the name first, as in "x: int8")"},
    {"Map", Role::MemberType, {"map<int8", "std.map<a,b>;", "unordered_map<"}, "there are no maps"},
    {"Vector",
     Role::MemberType,
     {"vector<a;", "a.list<", "sequence<a"},
     R"(vectors are written as "[int8]")"},
    {"FixedSize",
     Role::MemberType,
     {"int8[3]", "[3]", "[int8,3]", "int8[3][4]"},
     "there are no arrays of a fixed size"},
    {"Semicolon", Role::MemberType, {"int8;", ";", "int8;x"}, R"(delete the ";")"},
    {"SemicolonAfterAPath", Role::IncludePath, {R"("a.idl";)"}, R"(delete the ";")"},
    {"Comma", Role::MemberType, {"int8,", "int8,x", "a<b,"}, R"(delete the ",")"},
    {"Annotation", Role::MemberName, {"@id", "@"}, "there are no annotations"},
    {"BracketAlone", Role::MemberType, {"[", "]"}, R"(a type is one word, as in "[int8]")"},
    {"EmptyBrackets",
     Role::MemberType,
     {"[]", "[[]]"},
     R"(the type of the elements is missing, as in "[int8]")"},
    {"MissingBracket", Role::MemberType, {"[int8", "[[int8]"}, R"(a "]" is missing at its end)"},
    {"NumberOfBrackets", Role::MemberType, {"int8]", "[int8]]", "x[int8"}, "count the brackets"},
    {"BracketsAfterAType",
     Role::MemberType,
     {"a[]", "a[b]", "[a][b]"},
     R"(the brackets are around the type, as in "[int8]")"},
    {"Pointer", Role::MemberType, {"int8*", "a&"}, "there are no pointers and references"},
    {"Slash", Role::MemberType, {"geo/Pose", "/"}, "write a dot between names"},
    {"Operator",
     Role::ItemName,
     {"<<", "+", "|", "?"},
     "write the value as one word, without spaces"},
    {"Dash", Role::EnumName, {"a-b", "-"}, R"(write "_" instead of "-")"},
    {"Dot", Role::MemberName, {"a.b", "1.2"}, "names contain no dots"},
    {"FieldNumber", Role::MemberName, {"1", "12"}, "there are no field numbers"},
    {"Digit", Role::NamespacePath, {"1a", "1"}, "names begin with a letter"},
    {"DoubleSlash", Role::IncludePath, {R"("a//b.idl")"}, R"(write one "/")"},
    {"OddCharacter", Role::MemberName, {"a“b", "“"}, R"(it contains "“")"},
    {"OddByte", Role::MemberType, {"a\xff"}, R"(it contains "\xff")"},
    {"AnyOtherValue",
     Role::ItemValue,
     {"1+", "f(", "'é"},
     "values are integers, items above, and expressions of them without spaces"},
    {"Nothing", Role::MemberName, {"+", "a!", "a(b"}, ""},
};
INSTANTIATE_TEST_SUITE_P(Advice, FormAdvices, testing::ValuesIn(adviceRows), RowName<AdviceRow>);

struct SignTestRow {
  const char* name;
  Signs signs;
  std::vector<Word> words;
  const char* found;  ///< The index of the word and the advice.
};
using SignsOfLines = testing::TestWithParam<SignTestRow>;

TEST_P(SignsOfLines, ComeInTheOrderOfTheCauses) {
  const std::optional<Sign> sign = FindSign(GetParam().signs, GetParam().words);
  const std::string found =
      sign.has_value() ? std::to_string(sign->word) + ": " + sign->advice : "none";
  EXPECT_EQ(found, GetParam().found);
}

constexpr Role name = Role::MemberName;
constexpr Role type = Role::MemberType;
constexpr Role value = Role::ItemValue;

const std::vector<SignTestRow> signRows = {
    {"CommentBeforeATab",
     Signs::Characters,
     {{"a\tb", name}, {"x", type}, {"/*", name}},
     R"(2: comments start with "#")"},
    {"TabBeforeACarriageReturn",
     Signs::Characters,
     {{"a\r", name}, {"x\t", type}},
     "1: use spaces instead of tabs"},
    {"MapBeforeASemicolon", Signs::Forms, {{"x;", name}, {"map<a", type}}, "1: there are no maps"},
    {"SemicolonBeforeBrackets", Signs::Forms, {{"[x", type}, {"y;", name}}, R"(1: delete the ";")"},
    {"TypeInFirstPlaceBeforeAMap",
     Signs::Forms,
     {{"int8[]", name}, {"map<a", type}},
     R"(0: put the name first, as in "x: int8")"},
    {"FirstOfEqualSigns",
     Signs::Forms,
     {{"x", name}, {"a;", type}, {"b;", name}},
     R"(1: delete the ";")"},
    {"TemplateThatIsRight", Signs::Forms, {{"x", name}, {"std.vector<int>", type}}, "none"},
    {"ComparisonThatIsRight", Signs::Assignments, {{"A", Role::ItemName}, {"B==1", value}}, "none"},
    {"CharacterThatIsRight", Signs::Forms, {{"A", Role::ItemName}, {"','", value}}, "none"},
    {"OnlyTheSignsThatAreAsked", Signs::Assignments, {{"x;", name}, {"int8\t", type}}, "none"},
};
INSTANTIATE_TEST_SUITE_P(Advice, SignsOfLines, testing::ValuesIn(signRows), RowName<SignTestRow>);

}  // namespace
}  // namespace zentho::idlgen
