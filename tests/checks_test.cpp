#include <algorithm>
#include <sstream>

#include "generator/generator.h"
#include "header/examine.h"
#include "schema/parser.h"
#include "support.h"

// What idlgen-header says about IDL files, and whether the compiler agrees.
//
// Each file in tests/data/checks has many cases. A case begins with "### NAME", or, if the compiler
// cannot be asked, with "### NAME uncompiled". The comments "# error: ...", "# warning: ..." and
// "# note: ..." stand before the line that they are about.

namespace zentho {
namespace {

/// A message: the number of its line, and the text behind "file:line:column: ".
using Told = std::pair<int, std::string>;

struct CheckCase {
  std::string name;
  bool isCompiled = true;
  std::string text;
  std::vector<Told> expected;
};

bool StartsWith(const std::string& text, const std::string& start) {
  return text.rfind(start, 0) == 0;
}

bool SaysError(const std::vector<Told>& told, const std::string& start = "error: ") {
  return std::any_of(told.begin(), told.end(),
                     [&](const Told& message) { return StartsWith(message.second, start); });
}

bool HasGrammarError(const CheckCase& test) {
  return SaysError(test.expected, "error: WRONG") ||
         SaysError(test.expected, "error: unexpected") ||
         SaysError(test.expected, "error: namespace can");
}

void appendCases(const std::string& file, std::vector<CheckCase>& cases) {
  std::istringstream lines(Data(file + ".idl"));
  int lineNumber = 0;
  std::vector<std::string> pending;
  for (std::string line; std::getline(lines, line);) {
    if (StartsWith(line, "### ")) {
      if (!pending.empty()) throw std::runtime_error("a message without a line in " + file);
      const std::size_t space = line.find(' ', 4);
      cases.push_back({line.substr(4, space - 4), space == std::string::npos, "", {}});
      lineNumber = 0;
      continue;
    }
    CheckCase& test = cases.back();
    ++lineNumber;
    test.text += line + "\n";
    const bool isMessage = StartsWith(line, "# error: ") || StartsWith(line, "# warning: ") ||
                           StartsWith(line, "# note: ");
    if (isMessage) {
      pending.push_back(line.substr(2));
      continue;
    }
    for (std::string& message : pending) test.expected.emplace_back(lineNumber, std::move(message));
    pending.clear();
  }
}

std::vector<CheckCase> CheckCases() {
  std::vector<CheckCase> cases;
  for (const std::string& file : DataCases("checks")) appendCases(file, cases);
  return cases;
}

/// Returns the messages without their columns and excerpts, in the order of the lines.
std::vector<Told> Messages(const std::string& text) {
  std::vector<Told> told;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!StartsWith(line, "a.idl:")) continue;
    const std::size_t column = line.find(':', 6);
    told.emplace_back(std::stoi(line.substr(6)), line.substr(line.find(": ", column) + 2));
  }
  std::stable_sort(told.begin(), told.end(),
                   [](const Told& a, const Told& b) { return a.first < b.first; });
  return told;
}

std::string Shown(const std::vector<Told>& told) {
  std::string text;
  for (const auto& [line, message] : told) text += std::to_string(line) + ": " + message + "\n";
  return text;
}

using Checks = testing::TestWithParam<CheckCase>;

TEST_P(Checks, TellEachMistake) {
  Schema schema;
  const Outcome result = examine("a.idl", GetParam().text, schema);
  EXPECT_EQ(Shown(Messages(result.messages)), Shown(GetParam().expected));
  EXPECT_EQ(result.succeeded, !SaysError(GetParam().expected));
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
    const bool isWrong = SaysError(test.expected);
    const bool hasOnlyWarnings = !isWrong && !test.expected.empty();
    if (!test.isCompiled || HasGrammarError(test) || hasOnlyWarnings) continue;
    SCOPED_TRACE(test.name);
    generate(scratch.write("a.idl", test.text));
    const int status = std::system((compile + "-fsyntax-only -x c++ a.h >out 2>&1").c_str());
    EXPECT_EQ(status != 0, isWrong) << ReadAll(scratch.path("out"));
  }
}

}  // namespace
}  // namespace zentho
