#include "check/value.h"

#include <array>
#include <sstream>

#include "compiler.h"

namespace zentho::idlgen {
namespace {

/// The names above the values: items A, B and IDLE, and the enum Mode. E is the enum of the value.
NameKind KindOf(std::string_view name) {
  if (name == "A" || name == "B" || name == "IDLE") return NameKind::Item;
  if (name == "Mode") return NameKind::EnumType;
  return name == "E" || name == "Message" ? NameKind::OtherType : NameKind::Unknown;
}

NameKind KindWithInclude(std::string_view name) {
  const NameKind kind = KindOf(name);
  return kind == NameKind::Unknown ? NameKind::Elsewhere : kind;
}

/// Returns the faults, one a line.
std::string Told(const std::string& word, const NameLookup& kindOf = KindOf,
                 bool hasIntegerMacros = false) {
  std::string text;
  for (const ValueFault& fault : CheckValue(word, kindOf, hasIntegerMacros)) {
    std::string sentence(fault.rule->sentence);
    sentence.replace(sentence.find('%'), 1, fault.text);
    text += (text.empty() ? "" : "\n") + sentence;
    if (!fault.advice.empty()) text += ": " + fault.advice;
  }
  return text;
}

bool IsError(const std::string& word) {
  const std::vector<ValueFault> faults = CheckValue(word, KindOf, true);
  return faults.size() == 1 && faults[0].rule->severity == Severity::Error;
}

std::string Unchecked(const std::string& word) {
  return '"' + word + "\" is C++ and is copied unchecked";
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

/// Returns the words that the compiler rejects as values.
std::set<std::string> Rejected(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    text += "namespace n" + std::to_string(&word - words.data()) +
            " { enum Mode { A, B, IDLE }; enum E { X = " + word + ", }; }\n";
  }
  std::set<std::string> rejected;
  for (const std::size_t line : RejectedLines(text, "c++17")) rejected.insert(words.at(line - 1));
  return rejected;
}

/// The values of which nothing is said.
std::vector<std::string> Values() {
  return Words(
      "0 00 077 0'7 0x1F 0XaBcDeF 0b1'01 0B1 1'000 1u 1U 1l 1L 1ul 1LLu 1z 18446744073709551615 "
      "9223372036854775807z "
      "true false 'a' '\\n' '\\x41' '\\xff' '\\377' '\\'' '\\\\' '\\u0041' ';' ',' '}' '\"' '/*' "
      "'?' '?\?' '++' 'ab' 'abcd' '\\0\\1\\2\\3' L'a' u'a' U'a' u8'a' L'é' u'é' U'é' u8'\\u0041' "
      "L'\\u00e9' u'\\uffff' U'\\U0001f600' U'\\U0010ffff' u'\\x1ff' L'\\x1ffff' "
      "A IDLE -1 +1 -A ~0 !A !!A -+~1 not(A) compl(1) not'a' A+1 A-1 A-'a' 1<<2 1>>2 1|A 1&A 1^A "
      "1&&A 1||A 1==A 1!=A 1<=A 1>=A A<B 1>2 A<1>2 A<1>(2) 2*3 7/2 7%2 1-+-1 (1)and(A) (1)or(A) "
      "(1)xor(A) (1)bitand(A) (1)bitor(A) (1)not_eq(A) (A)and'a' (1)-not(2) (1) ((1)) (A|B)&~A "
      "(A)-1 (A)+1 (A)*1 (A)&1 ((A))-1 (int)1 (int)-1 (int)~A (int)+1 (int)(A) (int)'a' (int)A "
      "(int)(long)1 (unsigned)-1 (bool)A (wchar_t)1 (size_t)1 (uint8_t)1 (Mode)1 (Mode)-1 (Mode)A "
      "int(3) int(A+1) int((1)) bool(A) uint8_t(1) int_least16_t(1) Mode(1) Mode(int(1)) "
      "(int(3))-4 sizeof(int) sizeof(float) sizeof(uint8_t) sizeof(Mode) sizeof(A) sizeof(A+1) "
      "sizeof(int)-1 sizeof(A)-1 sizeof(sizeof(int)) sizeof+1 sizeof'a' sizeof~A -sizeof(int) "
      "(int)sizeof(int)");
}

/// The errors that the compiler agrees with.
std::vector<std::string> Mistakes() {
  return Words(
      "08 0'8 0x 0b2 0o7 1''0 1' 1.5 .5 1e3 1E3 0x1p3 0x1P3 -1.5 1.5+1 1_000 1_x 1uu 1lul 1lL 0x1g "
      "0x1e+1 "
      "1u8 1é 1$ + 1+ *1 &A *A !&A bitand(A) 1~2 1!2 1<=>2 1+ 1? 1?2 --1 1--1 A++ A+++1 () 1(2) "
      "A(1) true(1) (1)(2) (A)1 (A)(1) (A)~1 (A)'a' ((int))1 (int) (int)*1 (int)&A (int)(1)2 "
      "(int(3))4 int int+1 int<1 int(3)4 int(3)(4) int(1)(2) size_t int8_t+1 Mode(1)2 "
      "float(1) (float)1 double(1)+1 -(float)1 ~1.5 nullptr -nullptr "
      "sizeof sizeof() sizeof<1 sizeof+ sizeof(int)1 sizeof(int)(1) sizeof(A)(1) "
      "static_cast<int>1 static_cast<int> static_cast(1) static_cast<int>>(1) alignof "
      "decltype(A) decltype(A)1 E(0) (E)1 sizeof(E) sizeof(Message) int(E(0)) int(A(1)) "
      "1+Message(1) "
      "(1)not(2) and(1) class this class(1) throw(1) operator(1) A.B Mode.IDLE (Mode.IDLE)-1 A->B "
      "A[0] [1] ... (A...) "
      "'' L'' u8'é' u8'\\u00e9' u8'ab' u'ab' U'ab' u'😀' u'\\U0001f600' '\\ud800' L'\\udfff' '\\x' "
      "'\\u1' L'\\u1' '\\U0000041' 'a'or(1) 'a'b 'a''b' (1)'a' x'a'");
}

TEST(Value, IsSilentlyAcceptedWithTheCompiler) {
  for (const std::string& word : Values()) EXPECT_EQ(Told(word), "") << word;
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  EXPECT_EQ(Rejected(Values()), std::set<std::string>());
}

TEST(Value, IsAnErrorOnlyWithTheCompiler) {
  const std::vector<std::string> words = Mistakes();
  for (const std::string& word : words) EXPECT_TRUE(IsError(word)) << word;
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  EXPECT_EQ(Rejected(words), std::set<std::string>(words.begin(), words.end()));
}

TEST(Value, CannotEndOrHideWhatFollows) {
  std::vector<std::string> words = Words(
      "1; 1;x=2 1,2 1,D=7 1=2 A=1 A+=1 A<<=1 1} 1{ f<int,1>(2) f(1;2) f(}) f(\"a\") f(A=1) f(A++) "
      "\"a\" "
      "sizeof\"a\" 1\\ \\u0041 f(\\u0041) 1//2 1/*2*/ f(/*) <%1 1%> f(<%) 1?2 f(1?2) f(#) @1 `1` ( "
      "(1 1) )( (1)) f( f(1)) f((1) f(1,2),3 static_cast<int(1) ' 'a '\\' 'a\\' 1'a;' 1';' "
      "1'|';x;' 1.'|';x;' 1.$'a|';x;' '?\?/' 'a'x';' f('a) R'(' \x01 1\x7f '\x01' '\x7f' "
      "'\xc2\x85' 1\xff f(\xff) \xc2\xa0 A° f(°) A\xe2\x80\x8b 1\xe3\x80\x80static A\xe1\x9a\x80 "
      "f(A\xe1\xa0\x8e)");
  words.emplace_back("'\t'");
  for (const std::string& word : words) EXPECT_TRUE(IsError(word)) << word;
}

TEST(Value, IsCopiedUncheckedIfItIsRareCpp) {
  for (const std::string& word : Words(
           "static_cast<int>(1) static_cast<decltype(1>2)>(1) const_cast<A<B<1>>>(1) alignof(int) "
           "noexcept(f(1)) decltype(A)(1) (decltype(A))1 (int*)0 !(void*)0 sizeof(int*) "
           "sizeof(Message*) int() f() f(int) f(1,2) f(1)(2) f(a.b) (A,1) int((1,2)) int(1.5) "
           "1.5<2 !1.5 (bool)nullptr float(1)==1 char8_t(1) (char8_t)1 UNKNOWN|f(1,2)|'é' "
           "f<int>(1,2) 1+f<(int(1),2)>(A) f<g<int>>(1)(2)")) {
    EXPECT_EQ(Told(word), Unchecked(word));
  }
  const std::string deep = std::string(257, '(') + "1" + std::string(257, ')');
  EXPECT_EQ(Told(deep), Unchecked(deep));
  EXPECT_EQ(Told(deep.substr(1, deep.size() - 2)), "");
  EXPECT_TRUE(IsError(std::string(100000, '(')));
}

TEST(Value, ConsistsOfItemsAbove) {
  const std::string isNotAbove = " is not an item above";
  EXPECT_EQ(Told("C"), "\"C\"" + isNotAbove);
  EXPECT_EQ(Told("D+(C*D)+C"), "\"D\"" + isNotAbove + "\n\"C\"" + isNotAbove);
  for (const char* word : {"C(1)", "(C)1", "(C)-1", "(C)(1)", "sizeof(C)", "C<1", "C<1>(2)"}) {
    EXPECT_EQ(Told(word), "\"C\"" + isNotAbove) << word;
    EXPECT_EQ(Told(word, KindWithInclude), "") << word;
  }
  EXPECT_EQ(Told("(C)"), "\"C\"" + isNotAbove);
  EXPECT_EQ(Told("1|E"), "\"E\"" + isNotAbove);
  EXPECT_EQ(Told("concept"), "\"concept\"" + isNotAbove);
  for (const char* word : {"Mode", "-Mode", "(1)+Mode", "E|Mode"}) {
    EXPECT_EQ(Told(word), "\"Mode\" is a type, not an item") << word;
  }
}

TEST(Value, CannotUseTypesThatComeLater) {
  for (const char* word : {"sizeof(E)", "E(0)", "(E)1", "1+int(E(0))"}) {
    EXPECT_EQ(
        Told(word, KindWithInclude),
        "\"E\" cannot be used in a value: of the types in this file, only the enums above can")
        << word;
  }
}

TEST(Value, KnowsTheMacrosOfCstdint) {
  for (const char* word : {"UINT32_MAX", "-INT8_MAX", "INT8_C(3)", "UINT64_C(0xFF)",
                           "INTMAX_C(1'0)", "sizeof(SIZE_MAX)"}) {
    EXPECT_EQ(Told(word, KindOf, true), "") << word;
    EXPECT_NE(Told(word, KindOf, false), "") << word;
  }
  EXPECT_EQ(Told("INT8_C(A)", KindOf, true), Unchecked("INT8_C(A)"));
  EXPECT_EQ(Told("INT64_C(3u)", KindOf, true), Unchecked("INT64_C(3u)"));
  EXPECT_EQ(Told("INT8_C", KindOf, true), "\"INT8_C\" is not an item above");
  EXPECT_EQ(Told("UINT8_MIN", KindOf, true), "\"UINT8_MIN\" is not an item above");
  EXPECT_EQ(Told("UINT8_MAX(1)", KindOf, true), "\"UINT8_MAX(1)\" is not a value");
}

TEST(Value, IsAWarningIfSomeCompilersRejectIt) {
  for (const char* word :
       {"18446744073709551616", "0x1'0000'0000'0000'0000", "18446744073709551615z"}) {
    EXPECT_EQ(Told(std::string("1|") + word),
              std::string("\"") + word + "\" has more than 64 bits");
  }
  for (const std::string& word :
       Words("'é' 'aé' '\\u00e9' '\\u0080' '\\U00110000' '\\400' '\\x100' '\\xffff' "
             "'\\xfffffffffffffffff' 'abcde' '\\o' '\\é' '\xff' L'ab' L'aé' u8'\\x100' u8'\\400' "
             "u'\\x10000' U'\\x1ffffffff' U'\\U00110000'")) {
    EXPECT_EQ(Told("1+" + word + "*" + word),
              word + ": some compilers reject this character: write its number");
  }
}

TEST(Value, HasAnUnknownNameInParenthesesBeforeAnOperator) {
  for (const char* rest : {"-1", "+A", "*1", "&A", "and(A)", "or'a'", "bitand(A)", "not_eq(1)"}) {
    EXPECT_EQ(Told(std::string("(X)") + rest), "\"X\" is not an item above") << rest;
  }
}

TEST(Value, GetsAdvice) {
  const std::vector<std::array<std::string, 3>> rows = {
      {"1|08", "08", "numbers that begin with \"0\" are octal"},
      {"1_000u", "1_000u", "write \"1'000u\""},
      {"0x1e+1", "0x1e+1", "write \"(0x1e)+1\""},
      {"E.A", "E.A", "write \"A\""},
      {"1|robot.Mode.IDLE", "robot.Mode.IDLE", "write \"IDLE\""},
      {"(Mode.IDLE)", "Mode.IDLE", "write \"IDLE\""},
      {"'", "'", "write the number of the character"},
      {"1|u8'é'|2", "u8'é'", "write the number of the character"}};
  for (const auto& [word, text, advice] : rows) {
    EXPECT_EQ(Told(word), '"' + text + "\" is not a value: " + advice);
  }
  EXPECT_EQ(Told("E.C"), "\"E.C\" is not a value");  // No item.
  const std::string longNumber(39, '0');
  EXPECT_EQ(Told("0_" + longNumber), "\"0_" + longNumber + "\" is not a value");
}

}  // namespace
}  // namespace zentho::idlgen
