#include <ctime>

#include "memory_tree.h"
#include "messages/examination.h"
#include "messages/report.h"
#include "sources/sources.h"
#include "support.h"

// How the time of a check grows with the size of a file, and with the number of files.

namespace zentho::idlgen {
namespace {

using Texts = std::map<std::string, std::string>;

/// Returns the messages about all files.
std::string Messages(const Texts& texts) {
  MemoryTree tree(texts);
  Sources sources(tree, {});
  std::vector<std::string> paths;
  for (const auto& file : texts) paths.push_back(file.first);
  sources.load(paths);
  Examination examination(sources);
  std::string messages;
  for (const Sources::Input& named : sources.named()) {
    messages += reportOn(examination, *named.file, Warnings::Report).messages;
  }
  return messages;
}

/// Expects that 16 times the input takes less than 64 times as long. Quadratic time grows by 256.
template <typename Input>
void expectAlmostLinear(int smallCount, const Input& input) {
  const auto ticksFor = [&](int count) {
    const Texts texts = input(count);
    const std::clock_t start = std::clock();  // Of the processor, whatever else it does.
    EXPECT_NE(Messages(texts), "");
    return std::clock() - start;
  };
  EXPECT_LT(ticksFor(16 * smallCount), 64 * ticksFor(smallCount));
}

struct Shape {
  const char* name;
  std::string begin;
  std::string repeated;
  std::string end;
};
using TimesOfShapes = testing::TestWithParam<Shape>;

TEST_P(TimesOfShapes, GrowWithTheFile) {
  expectAlmostLinear(800, [&shape = GetParam()](int count) {
    return Texts{{"a.idl", shape.begin + Repeated(count, shape.repeated) + shape.end}};
  });
}

const std::vector<Shape> shapes = {
    {"OneList", "message M {\n", "x%: int8\n", "y = int8\n}"},
    {"FaultBeforeAList", "message M {\ny = int8\n", "x%: int8\n", "}"},
    {"OneLine", "message M { ", "x%: int8 ", "y }"},
    {"WrongLines", "message M {\n", "x = int8\n", "}"},
    {"Messages", "", "message M% { x: int8 }\n", "}"},
    {"OpenMessages", "", "message M% {\n", ""},
    {"Braces", "", "{", ""},
    {"Comment", "message M {\n/* x y\n", "z%: int8\n", "}"},
    {"Colons", "message M { x: int8 y }\n", ":::::", ""},
    {"TypesOfTheLibrary", "message M {\n", "x%: time_t\n", "y: Y }"},
    {"Items", "enum E { A: 0\n", "x%: A\n", "y: y }"},
    {"UnknownTypes", "message M { ", "M x% ", "}"}};
INSTANTIATE_TEST_SUITE_P(, TimesOfShapes, testing::ValuesIn(shapes), RowName<Shape>);

TEST(Times, GrowWithTheNumberOfFiles) {
  expectAlmostLinear(200, [](int count) {
    Texts texts = {{"base.idl", "namespace a message Base { x: int8; }"}};
    for (int i = 0; i < count; ++i) {
      texts[Numbered("%.idl", i)] =
          Numbered("include \"base.idl\" namespace a message M% { x: Base y: Bas }", i);
    }
    return texts;
  });
}

}  // namespace
}  // namespace zentho::idlgen
