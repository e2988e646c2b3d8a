#include "check/files_check.h"

#include <algorithm>
#include <deque>

#include "findings/diagnostic.h"
#include "sources/source_file.h"
#include "support.h"

// What the check of several files finds, without the search for included files.

namespace zentho::idlgen {
namespace {

using Openness = FilesCheck::Openness;

const LeftOut nothingLeftOut;

/// Returns the include statements, whose paths are indexes such as "2.idl".
std::vector<Inclusion> Inclusions(const Words& words) {
  std::vector<Inclusion> inclusions;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.roles[i] != Role::IncludePath) continue;
    inclusions.push_back({i, std::stoul(std::string(IncludedPath(words.texts[i])))});
  }
  return inclusions;
}

/// Files that are named after their indexes: "2.idl" is the one with the index 2.
class CheckedFiles {
 public:
  explicit CheckedFiles(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) add(text, Openness::Closed);
  }

  void add(const std::string& text, Openness openness) {
    current.push_back(&parsed(text));
    check.add(*current.back(), nothingLeftOut, openness, Inclusions(*current.back()));
  }

  void replace(std::size_t file, const std::string& text) {
    current[file] = &parsed(text);
    check.replace(file, *current[file], nothingLeftOut, Openness::Closed,
                  Inclusions(*current[file]));
  }

  /// Returns a line for each finding about a file, such as `"P" is already declared (P in 1)`.
  std::string findings(std::size_t file) {
    std::string lines;
    for (const Finding& finding : check.findings(file)) {
      lines += Sentence(finding.rule->sentence, finding.text, finding.advice);
      for (const WordInFile& other : {finding.other, finding.another}) {
        if (other.word == noWord) continue;
        const std::size_t where = other.file == WordInFile().file ? file : other.file;
        lines += " (" + std::string(current[where]->texts[other.word]) + " in " +
                 std::to_string(where) + ")";
      }
      lines += "\n";
    }
    return lines;
  }

  /// Returns what a message of a file finds for a type, such as "Type in 2".
  std::string find(std::size_t file, const std::string& type, const std::string& message) {
    const std::size_t user = check.allDeclarations().record(file, message);
    const Found found = check.lookupFrom(file).findType(type, {user, Scope::Part::None});
    const char* const names[] = {"Type",  "Service",   "Itself",   "Item",    "Namespace",
                                 "Below", "LaterPart", "NotBelow", "Unknown", "Elsewhere"};
    const std::string result = names[static_cast<std::size_t>(found.result)];
    return found.declaration == nothing
               ? result
               : result + " in " + std::to_string(check.allDeclarations()[found.declaration].file);
  }

  FilesCheck check;

 private:
  const Words& parsed(const std::string& text) {
    return sources.emplace_back(ParseSource("", text)).words;
  }

  std::deque<SourceFile> sources;
  std::vector<const Words*> current;  ///< Of each file.
};

struct NameRow {
  const char* name;
  const char* type;
  const char* message;
  const char* found;
  const char* foundIfOpen;  ///< If there are files that have not been read.
};
using NamesInFiles = testing::TestWithParam<NameRow>;

TEST_P(NamesInFiles, AreLookedUpAsInTheHeader) {
  const std::vector<std::string> texts = {
      R"(include "1.idl" include "2.idl" namespace a.b
         message First { } message Here { } message user { } message Later { } message far { }
         message Last { } service Late { request { } response { } } enum Kind { })",
      R"(include "3.idl" namespace a message First { } message Outer { } enum Kind { OUTER: 0 ITEM: 1 }
         service Use { request { } response { } } message Later { } message b2 { })",
      R"(namespace a.c message Side { } message First { } message OUTER { } message ITEM { })",
      R"(namespace far message Deep { } message user { })",
      R"(message Unseen { } message Outer { })",
      R"(namespace a.b.c message Side { })"};
  CheckedFiles closed(texts);
  EXPECT_EQ(closed.find(0, GetParam().type, GetParam().message), GetParam().found);
  CheckedFiles open({});
  for (const std::string& text : texts) open.add(text, Openness::Open);
  EXPECT_EQ(open.find(0, GetParam().type, GetParam().message), GetParam().foundIfOpen);
}

constexpr NameRow nameRows[] = {
    {"OwnBeforeOuter", "First", "user", "Type in 0", "Type in 0"},
    {"OuterOne", "Outer", "user", "Type in 1", "Type in 1"},
    {"OuterWhileTheOwnIsBelow", "Later", "user", "NotBelow in 0", "NotBelow in 0"},
    {"OwnEnum", "Kind", "user", "Type in 0", "Type in 0"},
    {"OuterByItsPath", "a.Kind", "user", "Type in 1", "Type in 1"},
    {"ItselfByItsPath", "a.b.user", "user", "Itself in 0", "Itself in 0"},
    {"BelowByItsPath", "b.Later", "user", "Below in 0", "Below in 0"},
    {"SiblingNamespace", "c.Side", "user", "Type in 2", "Type in 2"},
    {"SiblingNamespaceWithoutItsName", "Side", "user", "Unknown", "Elsewhere"},
    {"IncludedByAnIncludedFile", "far.Deep", "user", "Type in 3", "Type in 3"},
    {"HiddenByAMessageAbove", "far.Deep", "Last", "Unknown", "Unknown"},
    {"GlobalNamespace", ".far.Deep", "Last", "Type in 3", "Type in 3"},
    {"LibraryInTheGlobalNamespace", ".std.Deep", "user", "Elsewhere", "Elsewhere"},
    {"NameInTheGlobalNamespace", ".Deep", "user", "Elsewhere", "Elsewhere"},
    {"NameOfTheUser", "user.Deep", "user", "Unknown", "Unknown"},
    {"FileThatIsNotIncluded", "Unseen", "user", "Unknown", "Elsewhere"},
    {"ItemOfTheOuterNamespace", "ITEM", "user", "Item in 1", "Elsewhere"},
    {"MessageBesideAnItemOfAnotherNamespace", "c.ITEM", "user", "Type in 2", "Type in 2"},
    {"ServiceOfAnotherFile", "Use", "user", "Service in 1", "Elsewhere"},
    {"PartOfAServiceOfAnotherFile", "a.Use.Request", "user", "Type in 1", "Type in 1"},
    {"OwnServiceIsBelow", "Late.Response", "user", "Below in 0", "Elsewhere"},
    {"Namespace", "c", "user", "Namespace", "Elsewhere"},
    {"NothingInANamespace", "c.None", "user", "Unknown", "Elsewhere"},
};
INSTANTIATE_TEST_SUITE_P(FilesCheck, NamesInFiles, testing::ValuesIn(nameRows), RowName<NameRow>);

std::vector<std::size_t> Sorted(std::vector<std::size_t> files) {
  std::sort(files.begin(), files.end());
  return files;
}

TEST(Sight, ReachesAllIncludedFiles) {
  CheckedFiles files({R"(include "2.idl" include "1.idl" namespace x)",
                      R"(include "3.idl" namespace y)", R"(namespace z)",
                      R"(include "1.idl" namespace y.w)", R"(include "0.idl")"});
  const Declarations& all = files.check.allDeclarations();
  const Sight& sight = files.check.lastSight();
  const auto spaceOf = [&](std::size_t file) { return all.file(file).namespaces.back(); };
  (void)files.check.lookupFrom(0);
  EXPECT_EQ(Sorted(sight.others()), (std::vector<std::size_t>{1, 2, 3}));
  for (const std::size_t file : {0U, 1U, 2U, 3U}) {
    EXPECT_TRUE(sight.hasFile(file)) << file;
    EXPECT_TRUE(sight.hasNamespace(spaceOf(file))) << file;
  }
  EXPECT_FALSE(sight.hasFile(4));
  EXPECT_FALSE(sight.hasFile(nothing));

  (void)files.check.lookupFrom(3);  // Forgets what the first file saw.
  EXPECT_EQ(Sorted(sight.others()), (std::vector<std::size_t>{1}));
  EXPECT_FALSE(sight.hasFile(0));
  EXPECT_FALSE(sight.hasNamespace(spaceOf(0)));
  EXPECT_FALSE(sight.hasNamespace(spaceOf(2)));
  EXPECT_TRUE(sight.hasNamespace(spaceOf(3)));
}

struct OpennessRow {
  const char* name;
  Openness included;
  Openness own;
  const char* findings;  ///< About the file that includes the other one.
  const char* includedFindings;
};
using FilesThatAreOpen = testing::TestWithParam<OpennessRow>;

TEST_P(FilesThatAreOpen, MayDeclareWhatIsMissing) {
  CheckedFiles files({});
  files.add("message M { a: None }", GetParam().included);
  files.add(R"(include "0.idl" message N { m: M b: None c: [n.None] } message M { })",
            GetParam().own);
  EXPECT_EQ(files.findings(1),
            std::string(GetParam().findings) + "\"M\" is already declared (M in 0)\n");
  EXPECT_EQ(files.findings(0), GetParam().includedFindings);
}

constexpr const char* noneDeclared = "\"None\" is not declared\n";
constexpr const char* bothNotDeclared = "\"None\" is not declared\n\"n.None\" is not declared\n";
constexpr OpennessRow opennessRows[] = {
    {"NoFile", Openness::Closed, Openness::Closed, bothNotDeclared, noneDeclared},
    {"TheFileItself", Openness::Closed, Openness::Open, "", noneDeclared},
    {"LinesOfTheFileItself", Openness::Closed, Openness::Faulty, bothNotDeclared, noneDeclared},
    {"AnIncludedFile", Openness::Open, Openness::Closed, "", ""},
    {"LinesOfAnIncludedFile", Openness::Faulty, Openness::Closed, "", noneDeclared}};
INSTANTIATE_TEST_SUITE_P(FilesCheck, FilesThatAreOpen, testing::ValuesIn(opennessRows),
                         RowName<OpennessRow>);

TEST(FilesCheck, ForgetsTheWordsThatAreReplaced) {
  CheckedFiles files({R"(namespace a message P { } enum E { A: 0 })",
                      R"(include "0.idl" namespace a message M { p: P b: b.Q } enum F { B: 0 })"});
  EXPECT_EQ(files.findings(1), "\"b.Q\" is not declared\n");
  files.replace(0, "namespace a.b message Q { }");
  EXPECT_EQ(files.findings(1), "\"P\" is not declared\n");
  files.replace(0, "namespace a message P { } message M { } enum F { B: 0 }");
  EXPECT_EQ(files.findings(1),
            "\"M\" is already declared (M in 0)\n\"b.Q\" is not declared\n"
            "\"F\" is already declared (F in 0)\n\"B\" is already an item of  (B in 0)\n");
}

struct TreeRow {
  const char* name;
  std::vector<std::string> texts;
  std::vector<std::string> findings;  ///< About each file.
};
using FileTrees = testing::TestWithParam<TreeRow>;

TEST_P(FileTrees, HaveTheseFindings) {
  CheckedFiles files(GetParam().texts);
  for (std::size_t i = 0; i < GetParam().texts.size(); ++i) {
    EXPECT_EQ(files.findings(i), GetParam().findings[i]) << i;
  }
}

constexpr const char* misfit = "\"P\" is declared in an included file already (P in 1) (P in 2)\n";

const std::vector<TreeRow> trees = {
    {"ClashIsToldWhereBothMeet",
     {R"(include "3.idl")", "message P { }", "enum P { }", R"(include "2.idl" include "1.idl")"},
     {"", "", "", misfit}},
    {"ClashOfIncludesOfIncludes",
     {R"(include "3.idl" include "4.idl")", "message P { }",
      "service P { request { } response { } }", R"(include "1.idl")", R"(include "2.idl")"},
     {misfit, "", "", "", ""}},
    {"ClashOfItems",
     {R"(include "1.idl" include "2.idl")", "enum A { P: 0 }", "enum B { P: 0 }"},
     {misfit, "", ""}},
    {"ClashOfATypeAndANamespace",
     {R"(include "2.idl" include "1.idl")", "message P { }", "namespace P"},
     {misfit, "", ""}},
    {"ClashOfAnItemAndANamespace",
     {R"(include "2.idl" include "1.idl")", "enum A { P: 0 }", "namespace P"},
     {misfit, "", ""}},
    {"ItemBeforeAMessageOfItsName",
     {R"(include "1.idl" include "2.idl")", "enum A { P: 0 }", "message P { }"},
     {misfit, "", ""}},
    {"ItemAfterAMessageOfItsName",
     {R"(include "2.idl" include "1.idl")", "enum A { P: 0 }", "message P { }"},
     {"", "", ""}},
    {"ItemAndAnEnumOfItsName",
     {R"(include "1.idl" include "2.idl")", "enum A { P: 0 }", "enum P { }"},
     {"", "", ""}},
    {"NamespacesAgree",
     {R"(include "1.idl" include "2.idl")", "namespace P message A { }",
      "namespace P message B { }"},
     {"", "", ""}},
    {"NamesOfDifferentNamespacesAgree",
     {R"(include "1.idl" include "2.idl")", "namespace a message P { }",
      "namespace b message P { }"},
     {"", "", ""}},
    {"OneFileByTwoWaysAgreesWithItself",
     {R"(include "1.idl" include "2.idl")", R"(include "3.idl")", R"(include "3.idl")",
      "message P { }"},
     {"", "", "", ""}},
    {"TwoCycles",
     {R"(include "1.idl" include "2.idl")", R"(include "0.idl")", R"(include "3.idl" namespace a)",
      R"(include "2.idl" namespace b)", R"(include "0.idl" include "2.idl")"},
     {"\"1.idl\" includes this file, too: one of them may not compile\n",
      "\"0.idl\" includes this file, too: one of them may not compile\n",
      "\"3.idl\" includes this file, too: one of them may not compile\n",
      "\"2.idl\" includes this file, too: one of them may not compile\n", ""}},
    {"CycleWithinACycle",
     {R"(include "1.idl")", R"(include "2.idl" include "0.idl")",
      R"(include "0.idl" include "3.idl")", "namespace a"},
     {"\"1.idl\" includes this file, too: one of them may not compile\n",
      "\"2.idl\" includes this file, too: one of them may not compile\n"
      "\"0.idl\" includes this file, too: one of them may not compile\n",
      "\"0.idl\" includes this file, too: one of them may not compile\n", ""}},
    {"FileThatIncludesItself",
     {R"(include "0.idl" message M { })"},
     {"\"0.idl\" is this file itself\n"}},
    {"NoOrderInACycle",
     {R"(include "1.idl" message A { b: B })", R"(include "0.idl" message B { a: A })"},
     {"\"1.idl\" includes this file, too: one of them may not compile\n",
      "\"0.idl\" includes this file, too: one of them may not compile\n"}},
    {"NoClashesInACycle",
     {R"(include "1.idl" include "2.idl")", R"(include "0.idl" message P { })", "enum P { }"},
     {"\"1.idl\" includes this file, too: one of them may not compile\n",
      "\"0.idl\" includes this file, too: one of them may not compile\n"
      "\"P\" is already declared (P in 2)\n",
      ""}},
    {"NamespaceWithTheNameOfATypeOfTheSecondFile",
     {R"(include "2.idl" namespace P)", "message P { }", "message P { }"},
     {"\"P\" is already declared (P in 2)\n", "", ""}},
    {"MessageBelowItsUseAndOneFurtherOut",
     {R"(include "1.idl" namespace a message M { x: P } message P { })", "message P { }"},
     {"\"P\" is declared below: it is not the type that is meant here (P in 0)\n", ""}},
    {"TypeOfTheFrameworkThatHidesANamespace",
     {R"(include "1.idl" namespace nav.x message M { })", "namespace zentho message nav { }",
      R"(include "1.idl" namespace nav.x)"},
     {"\"nav\" is also declared in zentho, where the functions of the header stand (nav in 1)\n",
      "", ""}},
    {"NamespaceThatHidesTheLibrary",
     {R"(include "1.idl" namespace robot message M { a: float32 b: string c: int8 })",
      "namespace robot.std", R"(include "0.idl" namespace robot message N { a: float32 })"},
     {"\"string\" needs the namespace of the C++ library, which is hidden here (robot.std in 1)\n",
      "\"std\" hides the namespace of the C++ library\n", ""}},
    {"NamespaceThatHidesVectors",
     {R"(include "1.idl" namespace robot message M { a: float32 b: [E] } enum E { })",
      "namespace robot.std"},
     {"\"[E]\" needs the namespace of the C++ library, which is hidden here (robot.std in 1)\n",
      "\"std\" hides the namespace of the C++ library\n"}},
    {"NamespaceWithTheNameOfAMemberAndAType",
     {R"(include "1.idl" message M { b: b.util.b c: S.Request S: int8 })",
      "namespace b.util enum b { }", "namespace c"},
     {"\"S.Request\" is not declared\n", "", ""}},
    {"FindingsInTheOrderOfTheWords",
     {R"(message M { x: None } include "1.idl" message P { })", "message P { }"},
     {"\"None\" is not declared\n\"P\" is already declared (P in 1)\n", ""}},
    {"IncludeBetweenFindings",
     {R"(message M { x: None } include "0.idl" message M { })"},
     {"\"None\" is not declared\n\"0.idl\" is this file itself\n\"M\" is already declared (M in "
      "0)\n"}},
};
INSTANTIATE_TEST_SUITE_P(FilesCheck, FileTrees, testing::ValuesIn(trees), RowName<TreeRow>);

TEST(FilesCheck, FollowsALongChain) {
  std::vector<std::string> texts;
  constexpr int count = 20000;
  for (int i = 0; i < count; ++i) {
    texts.push_back("include \"" + std::to_string((i + 1) % count) + ".idl\"");
  }
  texts.push_back(R"(include "0.idl")");
  CheckedFiles files(texts);
  EXPECT_EQ(files.findings(7), "\"8.idl\" includes this file, too: one of them may not compile\n");
  EXPECT_EQ(files.findings(count), "");
}

}  // namespace
}  // namespace zentho::idlgen
