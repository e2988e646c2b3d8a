#include "check/value.h"

#include <sstream>

#include "support.h"

namespace zentho {
namespace {

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

TEST(Value, IsLiteralsAndNamesJoinedByOperators) {
  for (const std::string& word : Words(
           "0 00 077 0'7 0x1F 0XaBcDeF 0b1'0 1'000 1u 1U 1l 1L 1ul 1LLu 1z 18446744073709551615 "
           "'a' '\\n' '\\x41' '\\'' '\\\\' ';' '}' '/*' 'ab' L'a' u'a' U'a' u8'a' true sizeof(int) "
           "A A1 é A+1 A-1 -1 +1 -A ~0 !A --1 1<<2 1>>2 1|2 1&2 1^2 1&&2 1||2 1==2 1!=2 1<=2 1>=2 "
           "1<2 1>2 1*2 1/2 1%2 1?2 (1) ((1)) (A|B)&~C int(3) f() f(1,2) (int)3 (int)~0 (1)or(2) "
           "static_cast<int>(1) not(1) 1-'a' 'a'|'b'")) {
    EXPECT_TRUE(ReadValue(word).isValid) << word;
  }
}

TEST(Value, IsNothingElse) {
  for (const std::string& word :
       Words("08 0x 0x' 1' '1 1''0 0b2 1.5 .5 1e3 1_x 1uu 1lul 0x1g = + 1+ *1 &A 1~2 1!2 1=2 1<=>2 "
             "() (1 1) )( (1)) 1(2) f(, ,1 1,2 1; {1} 1} \"a\" 'a a' '' ''' and(1) (1)not(2) "
             "(int)(2)3 (1)3 '\\' '\\x' \\u0041 R'a' x'a' "
             "1//2 1/*2 <%1 1%>2 1??2 [1] 1[2] a.b a::b a->b @1 `1` nullptr class int sizeof 0xE+1 "
             "0x1e-1 1int #1 \x01 "
             "'\x01' \xff u8'é' 1é é° A° (1)'a'b")) {
    EXPECT_FALSE(ReadValue(word).isValid) << word;
  }
}

TEST(Value, NamesItsParts) {
  const Value value = ReadValue("A|(B+f(C))*sizeof(D)|18446744073709551616|'é'");
  EXPECT_TRUE(value.isValid);
  EXPECT_EQ(value.names, (std::vector<std::string_view>{"A", "B"}));
  EXPECT_EQ(value.types, (std::vector<std::string_view>{"f", "C", "D"}));
  EXPECT_EQ(value.tooLarge, "18446744073709551616");
  EXPECT_EQ(value.wideCharacter, "'é'");
  EXPECT_EQ(ReadValue("0xFFFF'FFFF'FFFF'FFFF").tooLarge, "");
  EXPECT_EQ(ReadValue("0x1'0000'0000'0000'0000").tooLarge, "0x1'0000'0000'0000'0000");
  EXPECT_EQ(ReadValue("L'é'").wideCharacter, "");
}

}  // namespace
}  // namespace zentho
