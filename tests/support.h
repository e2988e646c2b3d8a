#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "reader/idl.h"

namespace zentho::idlgen {

/// A temporary directory with a space in its path, deleted at the end of the test.
class Scratch {
 public:
  Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "idlgen test XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
      throw std::runtime_error("cannot create a scratch directory");
    root = pattern;
  }
  ~Scratch() { std::filesystem::remove_all(root); }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::string path(const std::string& name) const { return root / name; }

  std::string write(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }

 private:
  std::filesystem::path root;
};

inline std::string ReadAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns the names and contents of the regular files below a directory.
inline std::map<std::string, std::string> Files(const std::filesystem::path& directory) {
  std::map<std::string, std::string> files;
  if (!std::filesystem::exists(directory)) return files;
  for (const auto& file : std::filesystem::recursive_directory_iterator(directory)) {
    std::error_code error;  // A link may lead nowhere.
    if (!file.is_regular_file(error)) continue;
    files[file.path().lexically_relative(directory)] = ReadAll(file.path());
  }
  return files;
}

/// Returns the contents of a file in tests/data.
inline std::string Data(const std::string& name) {
  return ReadAll(IDLGEN_TEST_DATA "/" + name);
}

inline bool StartsWith(const std::string& text, const std::string& start) {
  return text.rfind(start, 0) == 0;
}

inline bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// A case of a file in tests/data: a line "### NAME", or "### NAME OPTION", and the lines below it,
/// without the empty one before the next case.
struct DataCase {
  std::string name;
  std::string option;
  std::string text;
};

/// Returns the paths and texts of the files in a case: "=== PATH" stands before each text.
inline std::vector<std::pair<std::string, std::string>> CaseFiles(const std::string& text) {
  std::vector<std::pair<std::string, std::string>> files;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (StartsWith(line, "=== ")) {
      files.emplace_back(line.substr(4), "");
    } else {
      files.back().second += line + "\n";
    }
  }
  return files;
}

/// Returns the cases of all files in a directory of tests/data.
inline std::vector<DataCase> DataCases(const std::string& directory) {
  std::vector<DataCase> cases;
  for (const auto& [file, content] : Files(IDLGEN_TEST_DATA "/" + directory)) {
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
      if (!StartsWith(line, "### ")) {
        cases.back().text += line + "\n";
        continue;
      }
      if (!cases.empty() && EndsWith(cases.back().text, "\n\n")) cases.back().text.pop_back();
      std::istringstream words(line.substr(4));
      words >> cases.emplace_back().name >> cases.back().option;
    }
  }
  return cases;
}

template <typename Row>
std::string RowName(const testing::TestParamInfo<Row>& test) {
  return test.param.name;
}

/// Returns the text with a number in place of its first "%".
inline std::string Numbered(std::string text, int number) {
  const std::size_t place = text.find('%');
  return place < text.size() ? text.replace(place, 1, std::to_string(number)) : text;
}

/// Returns a text several times, numbered from 0.
inline std::string Repeated(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i) result += Numbered(text, i);
  return result;
}

/// Returns what the action writes to standard output.
template <typename Action>
std::string Printed(const Action& action) {
  testing::internal::CaptureStdout();
  action();
  return testing::internal::GetCapturedStdout();
}

/// Loads a file with the text.
inline IDL Load(const std::string& text) {
  const Scratch scratch;
  IDL idl;
  const std::string path = scratch.write("input.idl", text);
  EXPECT_EQ(Printed([&] { idl.load(path); }), "idl path:" + path + "\n");
  return idl;
}

}  // namespace zentho::idlgen
