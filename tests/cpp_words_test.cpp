#include "words/cpp_words.h"

#include <algorithm>

#include "compiler.h"
#include "words/cpp_word_tables.h"

// Whether the tables of words agree with the compiler.

namespace zentho::idlgen {
namespace {

/// Returns, for each line, the words with which the compiler accepts it. In the lines, `@` stands
/// for the word.
template <typename Words>
std::vector<std::set<std::string>> Accepted(const Words& words,
                                            const std::vector<std::string>& lines,
                                            const std::string& standard) {
  std::string text;
  std::size_t lineNumber = 0;
  const std::regex place("@");
  for (const std::string& line : lines) {
    for (const std::string_view word : words) {
      text += "namespace n" + std::to_string(++lineNumber) + " { " +
              std::regex_replace(line, place, std::string(word)) + " }\n";
    }
  }
  const std::set<std::size_t> rejected = RejectedLines(text, standard);
  std::vector<std::set<std::string>> accepted(lines.size());
  lineNumber = 0;
  for (std::set<std::string>& ofLine : accepted) {
    for (const std::string_view word : words) {
      if (rejected.count(++lineNumber) == 0) ofLine.emplace(word);
    }
  }
  return accepted;
}

template <typename Words>
std::set<std::string> All(const Words& words) {
  return {words.begin(), words.end()};
}

using CppWords = testing::TestWithParam<const char*>;

TEST_P(CppWords, KeywordsAreWhatTheTableSays) {
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  const std::string standard = GetParam();
  std::set<std::string_view> words;
  for (const KeywordRow& row : keywords) words.insert(row.word);
  // The first line that is accepted shows what the word is.
  const std::string object = "struct S { virtual ~S() = 0; }; extern const S s; ";
  const std::vector<std::pair<Keyword, std::string>> kinds = {
      {Keyword::None, "int @;"},
      {Keyword::Type, "struct T { @ x[1]; };"},
      {Keyword::Other, "enum { X = 1 @ 1 };"},
      {Keyword::Cast, object + "enum { X = sizeof(@<const S&>(s)) };"},
      {Keyword::Call, object + "enum { X = sizeof(@(s)) };"}};
  std::vector<std::string> lines;
  for (const auto& row : kinds) lines.push_back(row.second);
  const std::vector<std::set<std::string>> accepted = Accepted(words, lines, standard);
  for (const std::string_view word : words) {
    const Keyword kind = FindKeyword(word);
    const auto isAccepted = [text = std::string(word)](const std::set<std::string>& ofLine) {
      return ofLine.count(text) > 0;
    };
    const auto first =
        std::find_if(accepted.begin(), accepted.end(), isAccepted) - accepted.begin();
    const auto line = static_cast<std::size_t>(first);
    const Keyword seen = line < kinds.size() ? kinds[line].first : Keyword::Other;
    if (kind == Keyword::Cpp20) {
      EXPECT_EQ(seen == Keyword::None, standard == "c++17") << word;
    } else {
      EXPECT_EQ(static_cast<int>(seen), static_cast<int>(kind)) << word;
    }
  }
}

TEST_P(CppWords, TypesAreDeclared) {
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  std::set<std::string> types = All(libraryTypes);
  types.insert(cLibraryTypes.begin(), cLibraryTypes.end());
  EXPECT_EQ(Accepted(types, {"struct S { @ x; };"}, GetParam()).front(), types);
}

TEST_P(CppWords, MacrosAreThoseOfCstdint) {
  if (!HasCompiler()) GTEST_SKIP() << noCompiler;
  std::istringstream lines(Compile("#include <cstdint>", std::string("-E -dM -std=") + GetParam()));
  std::set<std::string> numbers;
  const std::regex definition(R"(#define ((U?INT\w*|SIZE|PTRDIFF)_(MIN|MAX)) .*)");
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, match, definition)) numbers.insert(match[1]);
  }
  EXPECT_EQ(numbers, All(integerMacros));
}

INSTANTIATE_TEST_SUITE_P(, CppWords, testing::Values("c++17", "c++20"), [](const auto& test) {
  return std::string(test.param) == "c++17" ? "Cpp17" : "Cpp20";
});

}  // namespace
}  // namespace zentho::idlgen
