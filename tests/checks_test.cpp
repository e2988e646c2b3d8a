#include <algorithm>
#include <regex>

#include "check_cases.h"
#include "compiler.h"
#include "generator/generator.h"
#include "memory_tree.h"
#include "messages/examination.h"
#include "messages/report.h"
#include "schema/parser.h"
#include "sources/sources.h"

// What idlgen-header says about IDL files, and whether the compiler agrees.

namespace zentho::idlgen {
namespace {

/// Returns whether a message that begins like this is expected in the file.
bool Expects(const CheckCase& test, const std::string& file, const std::string& begin) {
  return std::any_of(test.expected.begin(), test.expected.end(), [&](const Reported& message) {
    const auto& [path, line, text] = message;
    return path == file && StartsWith(text, begin);
  });
}

bool SaysError(const CheckCase& test, const std::string& file) {
  return Expects(test, file, "error: ");
}

bool HasGrammarError(const std::string& text) {
  return SourceFile("", text).error.has_value();
}

/// Checks that what a message quotes at its beginning stands in the line at its column, unless that
/// is the one of an include.
void checkColumn(const std::string& message, const std::string& source, std::size_t lineNumber,
                 std::size_t column) {
  std::smatch match;
  static const std::regex quoting(R"re(\w+: "(\S*?)" (?!is declared in an included).*)re");
  if (!std::regex_match(message, match, quoting)) return;
  std::istringstream lines(source);
  std::string line;
  for (std::size_t i = 0; i < lineNumber; ++i) std::getline(lines, line);
  ASSERT_LE(column, line.size()) << message;
  const std::string rest = Printable(line.substr(column - 1));
  const std::string word = rest.substr(0, rest.find(' '));
  EXPECT_NE(word.find(match.str(1)), std::string::npos) << message << " at " << rest;
}

/// Returns the messages in a text, without their columns and excerpts.
std::vector<Reported> Messages(const std::string& text, const CheckCase& test) {
  std::vector<Reported> reported;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    for (const auto& [path, source] : test.files) {
      if (!StartsWith(line, path + ":")) continue;
      const std::size_t number = path.size() + 1;
      const std::size_t column = line.find(':', number) + 1;
      const std::string message = line.substr(line.find(' ', column) + 1);
      reported.emplace_back(path, std::stoi(line.substr(number)), message);
      checkColumn(message, source, std::stoul(line.substr(number)),
                  std::stoul(line.substr(column)));
    }
  }
  return reported;
}

/// Returns one line for each message, in the order of the lines that they are about.
std::string Shown(std::vector<Reported> reported) {
  std::sort(reported.begin(), reported.end());
  std::string shown;
  for (const auto& [path, line, text] : reported) {
    shown += path + ":" + std::to_string(line) + ": " + text + "\n";
  }
  return shown;
}

/// Checks the files of the case together, or a file alone by itself.
Outcome Examine(const CheckCase& test) {
  Schema schema;
  const auto& [path, text] = test.files.front();
  if (test.files.size() == 1) return reportAlone(path, text, schema);
  MemoryTree tree({test.files.begin(), test.files.end()});
  Sources sources(tree, {});
  std::vector<std::string> paths;
  for (const auto& file : test.files) paths.push_back(file.first);
  sources.load(paths);
  Examination examination(sources);
  Outcome result{true, {}};
  for (const Sources::Input& named : sources.named()) {
    const Outcome reported = reportOn(examination, *named.file, Warnings::Report);
    EXPECT_EQ(reported.succeeded, !SaysError(test, named.path)) << named.path;
    result.succeeded = result.succeeded && reported.succeeded;
    result.messages += reported.messages;
  }
  return result;
}

using Checks = testing::TestWithParam<CheckCase>;

TEST_P(Checks, TellEachMistake) {
  const Outcome result = Examine(GetParam());
  EXPECT_EQ(Shown(Messages(result.messages, GetParam())), Shown(GetParam().expected));
  const auto isWrong = [&](const auto& file) { return SaysError(GetParam(), file.first); };
  EXPECT_EQ(result.succeeded,
            std::none_of(GetParam().files.begin(), GetParam().files.end(), isWrong));
}

INSTANTIATE_TEST_SUITE_P(IdlgenHeader, Checks, testing::ValuesIn(CheckCases()), RowName<CheckCase>);

// A value that was not read could declare anything in the header, here another item.
TEST(Checks, ReadTheValueOfEachItem) {
  const std::string value = ": 1,B=2 }";
  for (unsigned code = 1; code < 0x800; ++code) {
    std::string name(1, static_cast<char>(code));
    if (code >= 0x80)
      name = {static_cast<char>(0xc0 | code >> 6), static_cast<char>(0x80 | (code & 0x3f))};
    for (const std::string& before : {name, "A: 0 " + name, "A" + name}) {
      Schema schema;
      EXPECT_FALSE(reportAlone("", "enum E { " + before + value, schema).succeeded) << before;
    }
  }
}

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
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  const Scratch scratch;
  scratch.write("zentho/serialization/serialization.h",
                "#include_next <zentho/serialization/serialization.h>\n");
  const std::string compile =
      "cd '" + scratch.path(".") + "' && " IDLGEN_TEST_COMPILER " -std=c++17 -w ";
  const std::string header = "zentho/serialization/serialization.h";
  ASSERT_EQ(std::system((compile + "-x c++-header -o " + header + ".gch " + header).c_str()), 0);
  generate(scratch.write("base.idl", "message Base { } enum B { BASE_ITEM: 0 }"));
  for (const CheckCase& test : CheckCases()) {
    if (!test.isCompiled) continue;
    std::filesystem::remove_all(scratch.path("case"));
    for (const auto& [path, text] : test.files) {
      if (!HasGrammarError(text)) generate(scratch.write("case/" + path, text));
    }
    for (const auto& [path, text] : test.files) {
      const bool isWrong = SaysError(test, path);
      // Compilers need not agree about warnings, nor about a file that includes a wrong one.
      const bool mayBeWrong = Expects(test, path, "warning: ") ||
                              (!test.expected.empty() && text.find("include") < text.size());
      if (HasGrammarError(text) || (!isWrong && mayBeWrong)) continue;
      SCOPED_TRACE(test.name + ": " + path);
      const std::string file = std::filesystem::path("case/" + path).replace_extension(".h");
      const std::string command = compile + "-fsyntax-only -x c++ " + file + " >out 2>&1";
      EXPECT_EQ(std::system(command.c_str()) != 0, isWrong) << ReadAll(scratch.path("out"));
    }
  }
}

}  // namespace
}  // namespace zentho::idlgen
