#include <algorithm>

#include "check_cases.h"
#include "generator/generator.h"
#include "header/examine.h"
#include "schema/parser.h"

// What idlgen-header says about IDL files, and whether the compiler agrees.

namespace zentho {
namespace {

bool SaysError(const CheckCase& test) {
  return std::any_of(test.expected.begin(), test.expected.end(), [](const Told& message) {
    return StartsWith(std::get<2>(message), "error: ");
  });
}

bool HasGrammarError(const std::string& text) {
  IDL idl;
  idl.tokenize(text);
  Schema schema;
  try {
    Parser().parseSilently(idl, schema);
    return false;
  } catch (const ParseError&) {
    return true;
  }
}

/// Returns the messages in a text, without their columns and excerpts.
std::vector<Told> Messages(const std::string& text, const CheckCase& test) {
  std::vector<Told> told;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    for (const auto& [path, source] : test.files) {
      if (!StartsWith(line, path + ":")) continue;
      const std::size_t number = path.size() + 1;
      const std::size_t column = line.find(':', number) + 1;
      told.emplace_back(path, std::stoi(line.substr(number)),
                        line.substr(line.find(' ', column) + 1));
    }
  }
  return told;
}

/// Returns one line for each message, in the order of the lines that they are about.
std::string Shown(std::vector<Told> told) {
  std::sort(told.begin(), told.end());
  std::string shown;
  for (const auto& [path, line, text] : told) {
    shown += path + ":" + std::to_string(line) + ": " + text + "\n";
  }
  return shown;
}

using Checks = testing::TestWithParam<CheckCase>;

TEST_P(Checks, TellEachMistake) {
  const auto& [path, text] = GetParam().files.front();
  Schema schema;
  const Outcome result = examine(path, text, schema);
  EXPECT_EQ(Shown(Messages(result.messages, GetParam())), Shown(GetParam().expected));
  EXPECT_EQ(result.succeeded, !SaysError(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(IdlgenHeader, Checks, testing::ValuesIn(CheckCases()), RowName<CheckCase>);

/// Generates the header of an IDL file as idlgen does.
void generate(const std::string& path) {
  Printed([&] {
    IDL idl;
    idl.load(path);
    Schema schema;
    Parser().parse(idl, schema);
    Generator(schema).generate(path);
  });
}

TEST(Checks, AgreeWithTheCompiler) {
  const std::string compiler = IDLGEN_TEST_COMPILER;
  if (compiler.empty()) GTEST_SKIP() << "checked in builds with g++ and without sanitizers";
  const Scratch scratch;
  scratch.write("zentho/serialization/serialization.h",
                "#include_next <zentho/serialization/serialization.h>\n");
  const std::string compile = "cd '" + scratch.path(".") + "' && " + compiler + " -std=c++17 -w ";
  const std::string header = "zentho/serialization/serialization.h";
  ASSERT_EQ(std::system((compile + "-x c++-header -o " + header + ".gch " + header).c_str()), 0);
  generate(scratch.write("base.idl", "message Base { } enum B { BASE_ITEM: 0 }"));
  for (const CheckCase& test : CheckCases()) {
    const bool isWrong = SaysError(test);
    const bool hasOnlyWarnings = !isWrong && !test.expected.empty();
    if (!test.isCompiled || HasGrammarError(test.files.front().second) || hasOnlyWarnings) continue;
    SCOPED_TRACE(test.name);
    std::filesystem::remove_all(scratch.path("case"));
    for (const auto& [path, text] : test.files) generate(scratch.write("case/" + path, text));
    const int status = std::system((compile + "-fsyntax-only -x c++ case/a.h >out 2>&1").c_str());
    EXPECT_EQ(status != 0, isWrong) << ReadAll(scratch.path("out"));
  }
}

}  // namespace
}  // namespace zentho
