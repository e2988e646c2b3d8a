#include "recovery/recovery.h"

#include <algorithm>

#include "check/files_check.h"
#include "sources/source_file.h"
#include "support.h"

// Which words are read of a file that cannot be read as it stands, and what is said about the rest.

namespace zentho::idlgen {
namespace {

/// Appends a line "LINE:COLUMN: SENTENCE".
void append(const Spot& spot, const std::string& sentence, std::string& lines) {
  if (!lines.empty()) lines += "\n";
  lines += std::to_string(spot.place.lineNumber) + ":" + std::to_string(spot.place.offset + 1) +
           ": " + sentence;
}

struct Reading {
  std::string words;  ///< With spaces between them.
  std::string said;
  bool isComplete;
};

Reading Read(const std::string& idl) {
  const SourceFile file = ParseSource("a.idl", idl);
  Recovery recovery(file.text, file.words, file.error);
  recovery.run(CheckAlone);
  const Recovered& recovered = recovery.result();
  Reading reading = {"", "", recovered.isComplete};
  for (std::size_t i = 0; i < recovered.file.size(); ++i) {
    reading.words += (i > 0 ? " " : "") + std::string(recovered.file.text(i));
  }
  for (const Diagnostic& diagnostic : recovered.diagnostics) {
    append(diagnostic.spot, diagnostic.sentence, reading.said);
    for (const Note& note : diagnostic.notes) append(note.spot, note.sentence, reading.said);
  }
  return reading;
}

struct RecoveryRow {
  const char* name;
  const char* idl;
  const char* words;
  std::string said;
};
using Recoveries = testing::TestWithParam<RecoveryRow>;

TEST_P(Recoveries, ReadWhatIsMeant) {
  const Reading reading = Read(GetParam().idl);
  EXPECT_EQ(reading.words, GetParam().words);
  EXPECT_EQ(reading.said, GetParam().said);
  EXPECT_TRUE(reading.isComplete);
}

const std::vector<RecoveryRow> lineRows = {
    {"ExtraWord", "message M {\n  x: int8 3\n  y: int8\n}", "message M { y int8 }",
     R"(2:11: "3" is a word too many: a member is a name and one word for the type)"},
    {"MissingType", "message M {\n  x:\n  y: int8\n}", "message M { y int8 }",
     R"(2:3: "x" has no type)"},
    {"MissingTypesOfAnEvenNumber", "message M {\n  a:\n  b: int8\n  c:\n  d: int8\n}",
     "message M { b int8 d int8 }", R"(2:3: "a" has no type
4:3: "c" has no type)"},
    {"MissingTypeAtTheEndOfTheFile", "message M {\n  x: int8 y", "message M { }",
     R"(2:11: "y" has no type
1:11: a "}" is missing at the end of the file
1:1: this message is not complete)"},
    {"MissingName", "message M {\n  x: int8\n  : int16\n}", "message M { x int8 }",
     R"(3:5: "int16" has no name)"},
    {"MissingValue", "enum E {\n  A\n  B: 1\n}", "enum E { B 1 }",
     R"(2:3: "A" has no value: each item needs one, as in "A: 0")"},
    {"TypeInTheNextLine", "message M {\n  x:\n  int8\n  y\n  : M z: int8\n}",
     "message M { x int8 y M z int8 }", ""},
    {"TypeInTheNextLineBeforeOthers", "message M {\n  x:\n  Foo y: int8\n  z = int8\n}",
     "message M { x Foo y int8 }", R"(4:5: "=" is not a type: write a colon, as in "x: int8")"},
    {"Qualifier", "message M {\n  optional x: int8\n}", "message M { }",
     R"(2:3: "optional" is a word too many: a member is a name and one word for the type)"},
    {"QualifierInALineOfPairs", "message M {\n  1: required int32 y\n}", "message M { }",
     R"(2:6: "required" is a word too many: a member is a name and one word for the type)"},
    {"QualifierAsAName", "message M {\n  in: int8 out: int8\n}", "message M { in int8 out int8 }",
     ""},
    {"TypeInFirstPlace", "message M {\n  int8 x 1\n  y: int8\n}", "message M { y int8 }",
     R"(2:3: "int8" is not a name: put the name first, as in "x: int8")"},
    {"EqualsSign", "enum E { A = 0 }", "enum E { }",
     R"(1:12: "=" is not a value: write a colon, as in "A: 1")"},
    {"BraceAfterAWrongLineStays", "message M {\n  x = int8 }\nmessage N { }",
     "message M { } message N { }", R"(2:5: "=" is not a type: write a colon, as in "x: int8")"},
    {"GluedBrace", "message M {\n  x: int8}\nmessage N { }", "message M { x int8 } message N { }",
     R"(2:6: "int8}" is not a type: put spaces around "}")"},
    {"GluedBraceAndSeparator", "enum E { A: 0}; enum F { }", "enum E { A 0 } enum F { }",
     R"(1:13: "0};" is not a value: put spaces around "}" and delete the ";")"},
    {"BraceAndSeparator", "message M {\n  x: int8\n};\nmessage N { }",
     "message M { x int8 } message N { }", R"(3:1: "};" is not a name: delete the ";")"},
    {"TabsBetweenWords", "message M {\n  x:\tint8\n\ty\tint8\n}", "message M { x \tint8 y int8 }",
     R"(3:1: "\ty\tint8" is not a name: use spaces instead of tabs)"},
    {"CommentOfSeveralLines", "message M {\n  /* one two\n  three */\n  x: int8\n}",
     "message M { x int8 }", R"(2:3: "/*" is not a name: comments start with "#")"},
    {"CommentInALine", "message M {\n  x: int8/* one\n  two */ y: int8\n}",
     "message M { x int8 y int8 }", R"(2:6: "int8/*" is not a type: comments start with "#")"},
    {"CommentUpToTheEndOfTheLine", "message M {\n  x: int8 --a b c\n}", "message M { x int8 }",
     R"(2:11: "--a" is not a name: comments start with "#")"},
    {"EndOfAComment", "message M {\n  x: int8 */\n}", "message M { x int8 }",
     R"(2:11: "*/" is not a type: comments start with "#")"},
    {"WordsAfterTheEndOfAComment", "message M {\n  x: int8 */ y: int8\n}",
     "message M { x int8 y int8 }", R"(2:11: "*/" is not a name: comments start with "#")"},
    {"CommentWithoutAnEnd", "message M {\n  x: int8 /* a b\n  y: int8\n}",
     "message M { x int8 y int8 }", R"(2:11: "/*" is not a name: comments start with "#")"},
    {"ColonsInAType", "message M {\n  x: [a::b::C]\n  y: int8\n}", "message M { y int8 }",
     R"(2:6: "[a::" is not a type: write dots: "[a.b.C]")"},
    {"ColonsInALineOfPairs", "message M {\n  p: a::B q: a::B\n  y: int8\n}", "message M { y int8 }",
     R"(2:6: "a::" is not a type: write dots: "a.B")"},
    {"ColonsInAValue", "enum E {\n  A: 0\n  B: E::A\n}", "enum E { A 0 }",
     R"(3:6: "E::" is not a value: write only the item: "A")"},
    {"GluedBraceOnTheSecondLineOfAPair", "message M {\n  x:\n  int8}", "message M { x int8 }",
     R"(3:3: "int8}" is not a type: put spaces around "}")"},
    {"PairThatEndsBeforeANestedDeclaration",
     "message M {\n  a:\n  Pose b: int8 message N { c: int8\n  }",
     "message M { a Pose b int8 } message N { c int8 }",
     R"(3:16: a "}" is missing before this "message": declarations cannot be nested)"},
    {"TwoNamesThatStandAlone", "message M {\n  x\n  Pose\n  y = int8\n}", "message M { x Pose }",
     R"(4:5: "=" is not a type: write a colon, as in "x: int8")"},
    {"TwoItemsThatStandAlone", "enum E {\n  A\n  B\n  C: 1\n  D\n}", "enum E { C 1 }",
     R"(2:3: "A" has no value: each item needs one, as in "A: 0"
3:3: "B" has no value: each item needs one, as in "A: 0"
5:3: "D" has no value: each item needs one, as in "A: 0")"},
    {"ColonsAfterABrace", "message M {\n  }a::b\n}", "message M { }",
     R"(2:3: "}a::" is not a type)"},
    {"LineThatBeginsWithAType", "message M {\n  int8 x y\n  int8\n  z = 3\n}", "message M { }",
     R"(2:3: "int8" is not a name: put the name first, as in "x: int8"
3:3: "int8" has no name
4:5: "=" is not a type: write a colon, as in "x: int8")"},
    {"NestedDeclarationInSeveralLines",
     "message M {\n  x: int8 service\n  S\n  {\n  request { }\n response { }\n  }",
     "message M { x int8 } service S { request { } response { } }",
     R"(2:11: a "}" is missing before this "service": declarations cannot be nested)"},
    {"LineThatOpensABlock", "message M {\n  oneof k {\n    a: int8\n  }\n  x: int8\n}",
     "message M { x int8 }",
     R"(2:3: "oneof" is not a member: a member is a name and one word for the type)"},
    {"BlockInAnEnum", "enum E {\n  A: 0\n  reserved { }\n}", "enum E { A 0 }",
     R"(3:3: "reserved" is not an item: an item is a name and one word for the value)"},
    {"BlockAsAType", "message M {\n  p: { x: int8 }\n  y: int8\n}", "message M { y int8 }",
     R"(2:6: "{" is not a type: declare a message for it)"},
    {"BlockAsAValue", "enum E {\n  A: { }\n}", "enum E { }", R"(2:6: "{" is not a value)"},
    {"NestedDeclaration", "message M {\n  message N { x: int8 }\n  y: int8\n}",
     "message M { y int8 }",
     R"(2:3: a "}" is missing before this "message": declarations cannot be nested)"},
};
INSTANTIATE_TEST_SUITE_P(OfLines, Recoveries, testing::ValuesIn(lineRows), RowName<RecoveryRow>);

const std::string anyStatement =
    " is not a statement: a statement begins with include, namespace, enum, message or service";

const std::vector<RecoveryRow> statementRows = {
    {"KeywordOfAnotherLanguage", "struct P { x: int8 }", "message P { x int8 }",
     R"(1:1: "struct" is not a statement: did you mean "message"?)"},
    {"KeywordOfAnotherLanguageForAPath", "import \"b.idl\"\nmessage P { }",
     R"(include "b.idl" message P { })",
     R"(1:1: "import" is not a statement: did you mean "include"?)"},
    {"KeywordAfterAnotherWord", "public message P {\n}", "message P { }",
     R"(1:1: "public")" + anyStatement},
    {"KeywordAfterTheName", "type P struct {\n}", "message P { }", R"(1:1: "type")" + anyStatement},
    {"UnknownBlock", "union U {\n  a: int8\n}\nmessage M { }", "message M { }",
     R"(1:1: "union")" + anyStatement},
    {"ListThatIsClosedTooEarly", "message M {\n}\n  x: int8\n  y: int8\n}\nmessage N { }",
     "message M { } message N { }", R"(3:3: "x" is not a statement: is a "}" too many above it?)"},
    {"StrayBrace", "}\nmessage M { }", "message M { }",
     R"(1:1: "}" is not a statement: there is no "{" for it)"},
    {"StraySeparator", "message M { }\n;\nmessage N { }", "message M { } message N { }",
     R"(2:1: ";" is not a statement: delete the ";")"},
    {"BracesOfANamespace", "namespace a {\nmessage M { }\n}", "namespace a message M { }",
     R"(1:13: "{" is not a statement: a namespace has no braces)"},
    {"ColonsInANamespace", "namespace a::b::c\nmessage M { }", "namespace a.b.c message M { }",
     R"(1:14: "b" is not a statement: write dots: "a.b.c")"},
    {"PathInTheNextLine", "namespace\nmy robot\nmessage M { }", "namespace my message M { }",
     R"(2:4: "robot" is not a statement: a namespace is one word)"},
    {"SecondNamespace", "namespace a\nnamespace b\nmessage M { }", "namespace a message M { }",
     "2:1: the namespace is set already: a file has only one\n1:11: the first one is here"},
    {"SpaceInAPath", "include \"my file.idl\"\nmessage M { }", R"(include "my message M { })",
     R"(1:13: "file.idl"" is not a statement: a path is one word, without spaces)"},
    {"TypeOfAnEnum", "enum E : uint8 {\n  A: 0\n}", "enum E { A 0 }",
     R"(1:10: "uint8" is not "{": the underlying type of an enum cannot be chosen)"},
    {"BaseOfAMessage", "message M extends B\n{\n  x: int8\n}", "message M { x int8 }",
     R"(1:11: "extends" is not "{": messages have no base)"},
    {"ColonsInAName", "message a::M {\n}", "message a { }",
     R"(1:12: "M" is not "{": a name is one word, without colons)"},
    {"KeywordBeforeAName", "enum class E { A: 0 }", "enum E { A 0 }",
     R"(1:6: "class" is a word too many before the name)"},
    {"BaseOfAService", "service S : B { request { } response { } }",
     "service S { request { } response { } }", R"(1:13: "B" is not "{": services have no base)"},
    {"KeywordOfAnotherLanguageWithBraces", "module a {\nmessage M { }\n}",
     "namespace a message M { }", R"(1:1: "module" is not a statement: did you mean "namespace"?)"},
    {"BracesAroundStatements", "{\nmessage M { }\n} enum E { }", "message M { } enum E { }",
     R"(1:1: "{")" + anyStatement},
    {"KeywordWithoutAName", "message\nmessage N { }", "message N { }",
     R"(2:1: a name is missing before the "message")"},
    {"MissingOpeningBrace", "message M\n  x: int8\n}\nmessage N { }",
     "message M { x int8 } message N { }", R"(1:9: a "{" is missing after "M")"},
    {"NameAndMembersWithoutBraces", "message M\n  x: int8", "",
     R"(1:9: a "{" is missing after "M"
2:3: "x")" +
         anyStatement},
    {"NameWithoutAList", "message M\nmessage N { }", "message N { }",
     R"(1:9: a "{" is missing after "M")"},
    {"NameWithAWordButNoList", "message M ( )\nmessage N { }", "message N { }",
     R"(1:11: "(" is not "{": only a name stands before it)"},
    {"MissingNameOfAMessage", "message { x: int8 }", "message _ { x int8 }",
     R"(1:9: a name is missing before the "{")"},
    {"BraceForAName", "message }\nmessage M { }", "message M { }", R"(1:9: "}" is not a name)"},
    {"GluedNameAndBrace", "message M{\n  x: int8\n}", "message M { x int8 }",
     R"(1:9: "M{" is not a name: put a space before "{")"},
    {"TabAfterAKeyword", "message\tM\t{ }", "message M { }",
     R"(1:1: "message\tM\t{" is not a statement: use spaces instead of tabs)"},
    {"ByteOrderMark", "\xef\xbb\xbfmessage M { }", "message M { }",
     R"(1:1: "\ufeffmessage" is not a statement: save the file without a byte order mark)"},
    {"CarriageReturnsInMostLines", "message M {\r\n  x: int8\r\n}", "message M { x int8 }",
     "1:12: lines end with CR LF: end them with LF"},
    {"CarriageReturnsInEmptyLinesOnly", "# note\r\n\r\n\r\n", "",
     "2:1: lines end with CR LF: end them with LF"},
    {"CarriageReturnsInEmptyLines", "\r\nmessage M {\r\n\r\n  x: int8\r\n}", "message M { x int8 }",
     "2:12: lines end with CR LF: end them with LF"},
    {"UnknownWordWithItsBlockBelow", "foo\n{\n  x: int8\n}\nmessage M { }", "message M { }",
     "1:1: \"foo\"" + anyStatement},
    {"NamespaceWithoutAName", "namespace\nmessage M { x: int8 }", "message M { x int8 }",
     R"(2:1: a name is missing before the "message")"},
    {"NamespaceAfterAWordOfAnotherLanguage", "package a\nnamespace b\nmessage M { }",
     "namespace a message M { }",
     R"(1:1: "package" is not a statement: did you mean "namespace"?)"},
    {"CarriageReturnsInHalfOfTheLines", "namespace a\r\nmessage M { }",
     "namespace a\r message M { }", ""},
};
INSTANTIATE_TEST_SUITE_P(OfStatements, Recoveries, testing::ValuesIn(statementRows),
                         RowName<RecoveryRow>);

constexpr const char* emptyService = "service S { request { } response { } }";

const std::vector<RecoveryRow> partRows = {
    {"NoParts", "service S { }", emptyService,
     R"(1:13: "}" is not "request": a service has a request and a response, in this order)"},
    {"NoResponse", "service S { request { } }", emptyService,
     R"(1:25: "}" is not "response": a service has a request and a response, in this order)"},
    {"NoRequest", "service S {\n  response { }\n}", emptyService,
     R"(2:3: "response" is not "request": a service begins with its request)"},
    {"MisspeltPart", "service S {\n  request { }\n  Reponse { }\n}", emptyService,
     R"(3:3: "Reponse" is not "response": did you mean "response"?)"},
    {"PartThatIsOneWord", "service S {\n  request: A\n  response { }\n}", emptyService,
     R"(2:12: "A" is not "{": a request or response is members in braces)"},
    {"BraceTooMany", "service S {\n}\n  request { }\n  response { }\n}", emptyService,
     R"(2:1: "}" is not "request": a service has a request and a response, in this order)"},
    {"ThirdPart", "service S {\n  request { }\n  response { }\n  error {\n    x: int8\n  }\n}",
     emptyService,
     R"(4:3: "error" is not "}": a service has one request and one response, in this order)"},
    {"EndWithASeparator", "service S {\n  request { }\n  response { }\n};", emptyService,
     R"(4:1: "};" is not "}": delete the ";")"},
    {"ResponseInTheRequest", "service S {\n  request { x: int8\n  response {\n    y: int8\n  }\n}",
     "service S { request { x int8 } response { y int8 } }",
     R"(3:3: a "}" is missing before this "response")"},
};
INSTANTIATE_TEST_SUITE_P(OfParts, Recoveries, testing::ValuesIn(partRows), RowName<RecoveryRow>);

const std::vector<RecoveryRow> endRows = {
    {"MessageBeforeAnother", "message M {\n  x: int8\nmessage N { }",
     "message M { x int8 } message N { }",
     R"(3:1: a "}" is missing before this "message": declarations cannot be nested)"},
    {"RequestBeforeAMessage", "service S {\n  request { x: int8\nmessage N { }",
     "service S { request { x int8 } response { } } message N { }",
     R"(3:1: a "}" is missing before this "message": declarations cannot be nested)"},
    {"ServiceBeforeItsRequest", "service S {\nmessage M { }",
     "service S { request { } response { } } message M { }",
     R"(2:1: a "}" is missing before this "message")"},
    {"ServiceBeforeItsResponse", "service S {\n  request { }\nenum E { }",
     "service S { request { } response { } } enum E { }",
     R"(3:1: a "}" is missing before this "enum")"},
    {"ServiceAfterItsResponse", "service S {\n  request { }\n  response { }\nnamespace a",
     "service S { request { } response { } } namespace a",
     R"(4:1: a "}" is missing before this "namespace")"},
    {"LastMessage", "message M {\n  x: int8", "message M { x int8 }",
     R"(2:6: a "}" is missing at the end of the file
1:1: this message is not complete)"},
    {"LastService", "service S {", emptyService,
     R"(1:11: a "}" is missing at the end of the file
1:1: this service is not complete)"},
    {"LastRequest", "service S { request {", emptyService,
     R"(1:21: a "}" is missing at the end of the file
1:1: this service is not complete)"},
    {"LastResponse", "service S {\nrequest { }\nresponse {\nx: int8",
     "service S { request { } response { x int8 } }",
     R"(4:4: a "}" is missing at the end of the file
1:1: this service is not complete)"},
    {"ServiceAfterTheLastResponse", "service S {\nrequest { }\nresponse { }", emptyService,
     R"(3:12: a "}" is missing at the end of the file
1:1: this service is not complete)"},
    {"LastName", "message A { }\nenum", "message A { }",
     "2:1: a name is missing at the end of the file\n2:1: this enum is not complete"},
    {"LastPath", "include", "",
     "1:1: a path is missing at the end of the file\n1:1: this include is not complete"},
    {"LastBrace", "message A { }\nservice S", "message A { }",
     R"(2:9: a "{" is missing at the end of the file
2:1: this service is not complete)"},
};
INSTANTIATE_TEST_SUITE_P(OfEnds, Recoveries, testing::ValuesIn(endRows), RowName<RecoveryRow>);

TEST(Recovery, EndsAfter20Faults) {
  const Reading all = Read("message M {\n" + Repeated(20, "a = b\n") + "x: int8 }");
  EXPECT_TRUE(all.isComplete);
  EXPECT_EQ(all.words, "message M { x int8 }");
  const Reading some = Read("message M {\n" + Repeated(22, "a = b\n") + "x: int8 }");
  EXPECT_FALSE(some.isComplete);
  EXPECT_EQ(some.words, "message M { a = b a = b x int8 }");
}

TEST(Recovery, SaysOneThingAboutALine) {
  const Reading reading = Read("message { } message { } struct S { } x");
  EXPECT_EQ(reading.words, "message _ { } message _ { } message S { }");
  EXPECT_EQ(reading.said, R"(1:9: a name is missing before the "{")");
}

TEST(Recovery, KeepsTheNamesThatMayBeDeclaredWhereItLeavesOut) {
  const std::string idl = "enum E {\n  größe = [a.B2]\n}\nmessage M {\n  x: [C; D]\n}\n";
  const SourceFile file = ParseSource("a.idl", idl);
  Recovery recovery(file.text, file.words, file.error);
  recovery.run(CheckAlone);
  const Recovered& recovered = recovery.result();
  for (const char* name : {"größe", "a", "B2"}) EXPECT_EQ(recovered.leftOut.names.count(name), 1U);
  for (const char* name : {"x", "C", "D"}) EXPECT_EQ(recovered.leftOut.names.count(name), 0U);
  EXPECT_FALSE(recovered.leftOut.mayDeclareAnything);
  EXPECT_EQ(recovered.linesAtFault, (std::vector<std::size_t>{2, 5}));
}

}  // namespace
}  // namespace zentho::idlgen
