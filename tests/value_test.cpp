#include "check/value.h"

#include <sstream>

#include "compiler.h"
#include "findings/diagnostic.h"

// The values of which there are too many for tests/data/checks.

namespace zentho::idlgen {
namespace {

/// The names above the values: items A and B, and the enum Mode. E is the enum of the value.
Meaning MeaningOfName(std::string_view name) {
  if (name == "A" || name == "B") return Meaning::Item;
  return name == "Mode" ? Meaning::Type : Meaning::Unknown;
}

/// Returns the sentence about the word, or an empty text.
std::string Reported(const std::string& word) {
  const std::vector<Finding> findings = CheckValue(word, 3, MeaningOfName);
  if (findings.empty()) return {};
  const Finding& finding = findings.front();
  EXPECT_EQ(findings.size(), 1U) << word;
  EXPECT_EQ(finding.word, 3U) << word;
  std::string sentence(finding.rule->sentence);
  sentence.replace(sentence.find('%'), 1, finding.text);
  return WithAdvice(std::move(sentence), finding.advice);
}

bool IsError(const std::string& word) {
  const std::vector<Finding> findings = CheckValue(word, 3, MeaningOfName);
  return findings.size() == 1 && findings.front().rule->severity == Severity::Error;
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
            " { enum Mode { A, B }; enum E { X = " + word + ", }; }\n";
  }
  std::set<std::string> rejected;
  for (const std::size_t line : RejectedLines(text, "c++17")) rejected.insert(words.at(line - 1));
  return rejected;
}

TEST(Value, IsAnErrorWithTheCompiler) {
  const std::vector<std::string> words = Words(
      "0'8 0b2 0o7 1''0 1' .5 1e3 1E3 0x1p3 0x1P3 -1.5 1.5+1 1_x 1uu 1lul 1lL 0x1g 1u8 1é 1$ + 1+ "
      "*1 "
      "!&A bitand(A) 1~2 1!2 1<=>2 1? 1--1 A+++1 () 1(2) (1)(2) (A)(1) (A)~1 (A)'a' ((int))1 "
      "(int)*1 (int)&A (int)(1)2 (int(3))4 int+1 int<1 int(3)4 int(3)(4) int(1)(2) Mode(1)2 (Mode) "
      "-(float)1 ~1.5 -nullptr sizeof sizeof+ sizeof(int)1 sizeof(int)(1) static_cast<int> "
      "static_cast(1) static_cast<int>>(1) alignof decltype(A)1 int(A(1)) f(1)2 (1)not(2) and(1) "
      "class this class(1) throw(1) operator(1) A.B (Mode.A)-1 A->B A[0] [1] ... (A...) "
      "0x nullptr int size_t 1<< (A)1 A(1) true(1) (int) sizeof<1 static_cast<int>1 (float)1 "
      "int8_t+1 1?2 --1 A++ &A *A u8'ab' 1|u'ab' U'ab' 'a'or(1) "
      "L'' u8'é' u8'\\u00e9' u'😀' u'\\U0001f600' '\\ud800' L'\\udfff' '\\x' '\\u1' '\\U0000041' "
      "'a'b 'a''b' (1)'a' x'a'");
  for (const std::string& word : words) EXPECT_TRUE(IsError(word)) << word;
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  EXPECT_EQ(Rejected(words), std::set<std::string>(words.begin(), words.end()));
}

TEST(Value, CannotEndOrHideWhatFollows) {
  std::vector<std::string> words = Words(
      "1;x=2 1=2 A=1 A+=1 A<<=1 1} 1{ f<1,2>(3) f(}) f(A=1) f(A++) f(<:) f(1//2) 1/*2*/ <%1 1%> "
      "f(1<<<%) f(%>=1) f([]) f(1?2) f(#) @1 `1` ( (1 1) )( (1)) f( f(1)) f((1) f(1,2),3 f(1)(2 "
      "static_cast<int(1) ' 'a '\\' 'a\\' 1'a;' 1';' 1'|';x;' 1.'|';x;' f(1.5';') 1.$'a|';x;' "
      "\"a\" sizeof\"a\" sizeof(R\"x(\" (\")x\") f(' ') 1\\ f(<%) f(/*) f(1;2) 0;int/**/x(int) "
      "f(\"a\") f(u8R\"(a)\") f(\\u0041) f(1?\?/ sizeof+1 int(1.5) 1.5<2 int() "
      "f<int,1>(2) f(a[1]) '?\?/' f('?\?/') 'a'x';' f('a) f(''') R'(' f(R\"(\") \x01 1\x7f '\x01' "
      "'\x7f' '\xc2\x85' "
      "1\xff f(\xff) \xc2\xa0 A° f(°) A\xe2\x80\x8b 1\xe3\x80\x80static A\xe1\x9a\x80 "
      "f(A\xe1\xa0\x8e)");
  words.emplace_back("'\t'");
  for (const std::string& word : words) EXPECT_TRUE(IsError(word)) << word;
}

TEST(Value, IsCopiedUncheckedWithCallsAndCommas) {
  for (const std::string& word :
       Words("const_cast<X>(1) noexcept(f(1)) f() f(int) f(1)(2) f(1.5) f('(') f(/) sizeof() "
             "float(1) "
             "typeid(A) sizeof(sizeof(int)) ((A,1),2) int((1,2)) (X)f(1) !(X)1 (X)~1 (X)(1) (X)'a' "
             "alignof(int)|X decltype(A)(1) INT64_C(1) Mode(0) (Mode)1 (E)1 "
             "char8_t(1) (char8_t)1 (Mode)+1 UNKNOWN|f(1,2)|'é' f<1>(2)(3)")) {
    EXPECT_EQ(Reported(word), '"' + word + "\" is C++ and is copied unchecked");
  }
}

TEST(Value, IsNestedNoDeeperThanCompilersAllow) {
  const std::string deep = std::string(257, '(') + "1" + std::string(257, ')');
  EXPECT_EQ(Reported(deep), '"' + deep + "\" is C++ and is copied unchecked");
  EXPECT_EQ(Reported(deep.substr(1, deep.size() - 2)), "");
  EXPECT_TRUE(IsError(std::string(256, '(') + "int)" + std::string(256, ')')));
  EXPECT_TRUE(IsError(std::string(100000, '(')));
}

TEST(Value, IsAWarningIfSomeCompilersRejectIt) {
  for (const std::string& word :
       Words("18446744073709551616 0x1'0000'0000'0000'0000 18446744073709551615z")) {
    EXPECT_EQ(Reported("1|" + word), '"' + word + "\" has more than 64 bits");
  }
  for (const std::string& word :
       Words("'é' 'aé' '\\u00e9' '\\u0080' '\\U00110000' '\\400' '\\x100' '\\xffff' "
             "'\\xfffffffffffffffff' 'abcde' '\\o' '\\é' '\xff' L'ab' L'aé' u8'\\x100' u8'\\400' "
             "u'\\x10000' U'\\x1ffffffff' U'\\U00110000'")) {
    EXPECT_EQ(Reported("1+" + word + "*" + word), word + ": some compilers reject this character");
  }
}

TEST(Value, GetsNoLongAdvice) {
  const std::string number = "0_" + std::string(39, '0');
  EXPECT_EQ(Reported(number), '"' + number + "\" is not a value");
}

}  // namespace
}  // namespace zentho::idlgen
