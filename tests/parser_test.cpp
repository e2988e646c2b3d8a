#include "schema/parser.h"

#include <exception>
#include <sstream>
#include <tuple>
#include <typeinfo>

#include "support.h"

namespace zentho {
namespace {

/// Returns the output of parsing the text. With `fails`, it must throw a plain std::exception.
std::string Parse(const std::string& text, Schema& schema, bool fails = false) {
  const IDL idl = Load(text);
  return Printed([&] {
    try {
      Parser().parse(idl, schema);
      EXPECT_FALSE(fails);
    } catch (const std::exception& failure) {
      EXPECT_TRUE(fails && typeid(failure) == typeid(std::exception));
    }
  });
}

std::string Join(const std::vector<std::string>& strings) {
  std::string text;
  for (const std::string& string : strings) text += "[" + string + "]";
  return text;
}

TEST(Parser, FillsTheModel) {
  Schema schema;
  EXPECT_EQ(Parse(Data("program/several_files/fleet.idl"), schema), Data("fleet.progress"));
  EXPECT_EQ(Printed([&] { schema.output(); }), Data("fleet.dump"));
}

TEST(Parser, IncludeDropsFirstCharacterAndExtension) {
  Schema schema;
  Parse(
      "include \"base.idl\" include <net/link.idl> include 'geo/point.old.idl' include base.idl "
      "include base include .hidden include x include \".idl\" include \"a.b/c\"",
      schema);
  EXPECT_EQ(Join(schema.includes), "[base][net/link][geo/point.old][ase][ase][hidden][][][a]");
}

TEST(Parser, SplitsNamespaceAtDots) {
  for (const auto& [path, components] : std::vector<std::pair<std::string, std::string>>{
           {"robot.msgs", "[robot][msgs]"}, {".robot..msgs.", "[robot][msgs]"}, {"a", "[a]"}}) {
    Schema schema;
    EXPECT_EQ(Parse("namespace " + path, schema), "namespace done.\n");
    EXPECT_EQ(Join(schema.namespaces), components) << path;
    EXPECT_TRUE(schema.namespaceSet);
  }
}

TEST(Parser, StripsBracketsFromTypes) {
  for (const auto& [declared, element, depth] :
       std::vector<std::tuple<const char*, const char*, int>>{{"int32", "int32", 0},
                                                              {"[string]", "string", 1},
                                                              {"[[uint8]]", "uint8", 2},
                                                              {"x[int8]]", "int8", 2},
                                                              {"int32]", "int32]", 0},
                                                              {"geo.Point", "geo.Point", 0},
                                                              {"[]", "", 1}}) {
    Schema schema;
    Parse(std::string("message M { m ") + declared + " }", schema);
    const CommonMember member = schema.messages.at(0).members.at(0);
    EXPECT_EQ(member.name + " " + member.type, std::string("m ") + element);
    EXPECT_EQ(member.vectorDepth, depth) << declared;
    EXPECT_EQ(member.isVector, depth > 0 ? 1 : 0) << declared;
  }
}

TEST(Parser, ElementTypesSetFlags) {
  for (const auto& [types, isInt, isString] : std::vector<std::tuple<const char*, bool, bool>>{
           {"uint8 uint16 uint32 uint64 int8 int16 int32 int64 [[uint8]] x[int8]]", true, false},
           {"string [string]", false, true},
           {"float32 float64 INT32 String int32] a.string a.int8 Pose", false, false}}) {
    std::istringstream words(types);
    for (std::string type; words >> type;) {
      for (const char* before : {"message M { m ", "service S { request { m ",
                                 "service S { request { } response { m "}) {
        Schema schema;
        Parse(before + type, schema, true);  // Flags are set even if the statement fails.
        EXPECT_EQ(schema.hasIntType, isInt) << type;
        EXPECT_EQ(schema.hasString, isString) << type;
        EXPECT_FALSE(schema.hasVector || schema.hasMat || schema.namespaceSet);
      }
    }
  }
}

/// Each file in tests/data/errors is named after its one error.
TEST(Parser, ReportsErrorAndTokensReadSoFar) {
  for (const auto& file : std::filesystem::directory_iterator(IDLGEN_TEST_DATA "/errors")) {
    if (file.path().extension() != ".idl") continue;
    const std::string error = file.path().stem();
    SCOPED_TRACE(error);
    Schema schema;
    EXPECT_EQ(Parse(ReadAll(file.path()), schema, true), Data("errors/" + error + ".out"));
    EXPECT_TRUE(schema.enums.empty() && schema.messages.empty() && schema.services.empty());
  }
}

TEST(Parser, KeepsStatementsBeforeTheError) {
  Schema schema;
  EXPECT_EQ(
      Parse("namespace ..\ninclude \"a.idl\" enum E { } message M { x string y int8 z [ }", schema,
            true),
      "namespace done.\ninclude done.\nenum done.\nWRONG format in [\n\nlines:\nnamespace\n..\n"
      "include\n\"a.idl\"\nenum\nE\n{\n}\nmessage\nM\n{\nx\nstring\ny\nint8\nz\n[\n");
  EXPECT_EQ(Join(schema.includes), "[a]");
  EXPECT_EQ(schema.enums.size(), 1U);
  EXPECT_TRUE(schema.messages.empty());
  EXPECT_TRUE(schema.hasString && schema.hasIntType && schema.namespaceSet);
}

}  // namespace
}  // namespace zentho
