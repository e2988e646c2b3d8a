#include "schema/parser.h"

#include <exception>
#include <sstream>
#include <tuple>
#include <typeinfo>

#include "support.h"

namespace zentho::idlgen {
namespace {

/// Returns the output of parsing the text, which must have no error.
std::string Parse(const std::string& text, Schema& schema) {
  const IDL idl = Load(text);
  return Printed([&] { EXPECT_NO_THROW(Parser().parse(idl, schema)); });
}

/// Returns the output of parsing the text, which must throw a plain std::exception.
std::string ParseWithError(const std::string& text, Schema& schema) {
  const IDL idl = Load(text);
  return Printed([&] {
    try {
      Parser().parse(idl, schema);
      ADD_FAILURE() << "no error";
    } catch (const std::exception& failure) {
      EXPECT_STREQ(typeid(failure).name(), typeid(std::exception).name());
    }
  });
}

TEST(Parser, FillsTheModel) {
  Schema schema;
  EXPECT_EQ(Parse(Data("common/fleet.idl"), schema), Data("fleet.progress"));
  EXPECT_EQ(Printed([&] { schema.output(); }), Data("fleet.dump"));
}

TEST(Parser, IncludeDropsFirstCharacterAndExtension) {
  Schema schema;
  Parse(
      "include \"base.idl\" include <net/link.idl> include 'geo/point.old.idl' include base.idl "
      "include base include .hidden include x include \".idl\" include \"a.b/c\"",
      schema);
  EXPECT_EQ(schema.includes, (std::vector<std::string>{"base", "net/link", "geo/point.old", "ase",
                                                       "ase", "hidden", "", "", "a"}));
}

TEST(Parser, TakesTheBracketsFromTypes) {
  const std::vector<CommonMember> expected = {
      {0, "int32", 0, "a"},  {1, "string", 1, "b"}, {2, "uint8", 1, "c"}, {2, "int8", 1, "d"},
      {0, "int32]", 0, "e"}, {0, "geo.P", 0, "f"},  {1, "", 1, "g"}};
  Schema schema;
  Parse("message M { a int32 b [string] c [[uint8]] d x[int8]] e int32] f geo.P g [] }", schema);
  const auto fields = [](const CommonMember& member) {
    return std::tie(member.name, member.type, member.vectorDepth, member.isVector);
  };
  const std::vector<CommonMember>& members = schema.messages.at(0).members;
  ASSERT_EQ(members.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(fields(members[i]), fields(expected[i]));
}

struct ElementType {
  const char* name;
  const char* types;
  bool isInt;
  bool isString;
};
using ElementTypes = testing::TestWithParam<ElementType>;

TEST_P(ElementTypes, SetFlags) {
  std::istringstream words(GetParam().types);
  for (std::string type; words >> type;) {
    for (const char* before :
         {"message M { m ", "service S { request { m ", "service S { request { } response { m "}) {
      SCOPED_TRACE(before + type);
      Schema schema;
      ParseWithError(before + type, schema);  // Flags are set even if the statement fails.
      EXPECT_EQ(schema.hasIntType, GetParam().isInt);
      EXPECT_EQ(schema.hasString, GetParam().isString);
      EXPECT_FALSE(schema.hasVector);
      EXPECT_FALSE(schema.hasMat);
      EXPECT_FALSE(schema.namespaceSet);
    }
  }
}

constexpr ElementType elementTypes[] = {
    {"Integers", "uint8 uint16 uint32 uint64 int8 int16 int32 int64 [[uint8]] x[int8]]", true,
     false},
    {"Strings", "string [string]", false, true},
    {"Others", "float32 float64 INT32 String int32] a.string a.int8 Pose", false, false}};
INSTANTIATE_TEST_SUITE_P(Parser, ElementTypes, testing::ValuesIn(elementTypes),
                         RowName<ElementType>);

struct Error {
  const char* name;
  std::string text;
  std::string reason;
  std::size_t tokensRead;
};
using Errors = testing::TestWithParam<Error>;

TEST_P(Errors, PrintTheReasonAndTheTokensReadSoFar) {
  std::string out = GetParam().reason + "\n\nlines:\n";
  std::istringstream words(GetParam().text);
  std::string word;
  for (std::size_t i = 0; i < GetParam().tokensRead && words >> word; ++i) out += word + "\n";
  Schema schema;
  EXPECT_EQ(ParseWithError(GetParam().text, schema), out);
  EXPECT_TRUE(schema.enums.empty());
  EXPECT_TRUE(schema.messages.empty());
  EXPECT_TRUE(schema.services.empty());
}

TEST_P(Errors, AreThrownWithReasonAndPlace) {
  const IDL idl = Load(GetParam().text);
  Schema schema;
  try {
    Parser().parseSilently(idl, schema);
    ADD_FAILURE() << "no error";
  } catch (const ParseError& error) {
    EXPECT_EQ(error.reason, GetParam().reason);
    EXPECT_EQ(error.tokensRead, GetParam().tokensRead);
  }
}

const std::vector<Error> errors = {
    {"UnknownStatement", "ENUM Color { RED 0 }", "WRONG format in ENUM", 1},
    {"IncludeWithoutAPath", "include", "unexpected end of file.", 1},
    {"EnumWithoutABrace", "enum Color ( RED 0 }", "WRONG format in (", 3},
    {"ItemWithoutAValue", "enum E { A }", "unexpected end of file.", 5},
    {"MessageWithoutABrace", "message P ( x int8 }", "WRONG format in (", 3},
    {"UnclosedMessage", "message P { x int8", "unexpected end of file.", 5},
    {"TextBeforeABracket", "message P { m x[int8] }", "WRONG format in [int8", 5},
    {"TextAfterABracket", "message P { m [int8]x }", "WRONG format in [int8]x", 5},
    {"ServiceWithoutABrace", "service S request", "WRONG format in request", 3},
    {"ServiceWithoutARequest", "service S { response { } }", "WRONG format in response", 4},
    {"ServiceWithoutAResponse", "service S { request { } }", "WRONG format in }", 7},
    {"ServiceWithTwoRequests", "service S { request { } response { } request",
     "WRONG format in request", 10},
    {"UnclosedService", "service S { request { } response { }", "unexpected end of file.", 9}};
INSTANTIATE_TEST_SUITE_P(Parser, Errors, testing::ValuesIn(errors), RowName<Error>);

TEST(Parser, TakesOneNamespace) {
  Schema schema;
  EXPECT_EQ(ParseWithError("namespace ... namespace b", schema),
            "namespace done.\nnamespace can be set only once.\n\nlines:\nnamespace\n...\n"
            "namespace\n");
}

TEST(Parser, KeepsStatementsBeforeTheError) {
  Schema schema;
  EXPECT_EQ(
      ParseWithError(
          "namespace .a..b.\ninclude \"a.idl\" enum E { } message M { x string y int8 z [ }",
          schema),
      "namespace done.\ninclude done.\nenum done.\nWRONG format in [\n\nlines:\nnamespace\n.a..b.\n"
      "include\n\"a.idl\"\nenum\nE\n{\n}\nmessage\nM\n{\nx\nstring\ny\nint8\nz\n[\n");
  EXPECT_EQ(schema.includes, std::vector<std::string>{"a"});
  EXPECT_EQ(schema.namespaces, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(schema.enums.size(), 1U);
  EXPECT_TRUE(schema.messages.empty());
  EXPECT_TRUE(schema.hasString);
  EXPECT_TRUE(schema.hasIntType);
  EXPECT_TRUE(schema.namespaceSet);
}

}  // namespace
}  // namespace zentho::idlgen
