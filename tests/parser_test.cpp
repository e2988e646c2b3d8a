#include "schema/parser.h"

#include <exception>
#include <typeinfo>

#include "support.h"

namespace zentho {
namespace {

/// Parses the text into the schema and gives what is printed. A failure must be a plain exception.
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

TEST(Parser, FillsTheModelThatTheDumpShows) {
  Schema schema;
  EXPECT_EQ(Parse(Data("fleet.idl"), schema), Data("fleet.progress"));
  EXPECT_EQ(Printed([&] { schema.output(); }), Data("fleet.dump"));
}

TEST(Parser, LeavesTheModelOfAnEmptyFileEmpty) {
  Schema schema;
  EXPECT_EQ(Parse("// nothing\n", schema), "");
  EXPECT_EQ(Printed([&] { schema.output(); }),
            "includes:\nnamespace:\n\nenum:\nmessages:\nservices:\n");
}

TEST(Parser, IncludeLosesItsFirstCharacterAndItsExtension) {
  Schema schema;
  Parse(
      "include \"base.idl\" include <net/link.idl> include 'geo/point.old.idl' include base.idl "
      "include base include .hidden include x include \".idl\" include \"a.b/c\"",
      schema);
  EXPECT_EQ(Join(schema.includes), "[base][net/link][geo/point.old][ase][ase][hidden][][][a]");
}

TEST(Parser, NamespaceIsCutAtItsDots) {
  for (const auto& [path, components] : std::vector<std::pair<std::string, std::string>>{
           {"robot.msgs", "[robot][msgs]"}, {".robot..msgs.", "[robot][msgs]"}, {"a", "[a]"}}) {
    Schema schema;
    EXPECT_EQ(Parse("namespace " + path, schema), "namespace done.\n");
    EXPECT_EQ(Join(schema.namespaces), components) << path;
    EXPECT_TRUE(schema.namespaceSet);
  }
}

struct Type {
  const char* declared;
  const char* element;
  int depth;
  bool isInt;
  bool isString;
};

TEST(Parser, MemberTypesLoseTheirBracketsAndSetTheFlags) {
  for (const Type& type : std::vector<Type>{{"uint8", "uint8", 0, true, false},
                                            {"uint16", "uint16", 0, true, false},
                                            {"uint32", "uint32", 0, true, false},
                                            {"uint64", "uint64", 0, true, false},
                                            {"int8", "int8", 0, true, false},
                                            {"int16", "int16", 0, true, false},
                                            {"int32", "int32", 0, true, false},
                                            {"int64", "int64", 0, true, false},
                                            {"string", "string", 0, false, true},
                                            {"[string]", "string", 1, false, true},
                                            {"[[uint8]]", "uint8", 2, true, false},
                                            {"float32", "float32", 0, false, false},
                                            {"INT32", "INT32", 0, false, false},
                                            {"String", "String", 0, false, false},
                                            {"int32]", "int32]", 0, false, false},
                                            {"geo.Point", "geo.Point", 0, false, false},
                                            {"x[int8]]", "int8", 2, true, false},
                                            {"[]", "", 1, false, false}}) {
    Schema schema;
    Parse(std::string("message M { m ") + type.declared + " }", schema);
    const CommonMember member = schema.messages.at(0).members.at(0);
    EXPECT_EQ(member.name, "m");
    EXPECT_EQ(member.type, type.element);
    EXPECT_EQ(member.vectorDepth, type.depth) << type.declared;
    EXPECT_EQ(member.isVector, type.depth > 0 ? 1 : 0) << type.declared;
    EXPECT_EQ(schema.hasIntType, type.isInt) << type.declared;
    EXPECT_EQ(schema.hasString, type.isString) << type.declared;
    EXPECT_FALSE(schema.hasVector || schema.hasMat || schema.namespaceSet);
  }
}

TEST(Parser, MembersOfServicesSetTheFlagsToo) {
  Schema schema;
  Parse("service S { request { t string } response { n [int8] } }", schema);
  EXPECT_TRUE(schema.hasString && schema.hasIntType);
}

class Faults : public testing::TestWithParam<std::string> {};

TEST_P(Faults, AreNamedWithTheTokensReadSoFar) {
  Schema schema;
  EXPECT_EQ(Parse(Data("faults/" + GetParam() + ".idl"), schema, true),
            Data("faults/" + GetParam() + ".out"));
  EXPECT_TRUE(schema.enums.empty() && schema.messages.empty() && schema.services.empty());
}

/// The files of tests/data/faults are named after their one fault.
std::vector<std::string> FaultNames() {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(IDLGEN_TEST_DATA "/faults")) {
    if (file.path().extension() == ".idl") names.push_back(file.path().stem());
  }
  return names;
}

INSTANTIATE_TEST_SUITE_P(Parser, Faults, testing::ValuesIn(FaultNames()),
                         [](const auto& fault) { return fault.param; });

TEST(Parser, KeepsWhatCameBeforeTheFault) {
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

TEST(Parser, RefusesASecondNamespaceBeforeItsPath) {
  Schema schema;
  EXPECT_EQ(
      Parse("namespace ... namespace b", schema, true),
      "namespace done.\nnamespace can be set only once.\n\nlines:\nnamespace\n...\nnamespace\n");
  EXPECT_TRUE(schema.namespaces.empty());
}

TEST(Parser, SetsTheNamespaceBeforeItReadsThePath) {
  Schema schema;
  Parse("namespace", schema, true);
  EXPECT_TRUE(schema.namespaceSet);
}

}  // namespace
}  // namespace zentho
