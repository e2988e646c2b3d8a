#pragma once

#include <ostream>
#include <sstream>
#include <tuple>

#include "support.h"
#include "words/printable.h"

// Reads the cases in tests/data/checks.
//
// A case begins with "### NAME", or, if the compiler cannot be asked, with "### NAME uncompiled".
// The text of a.idl follows, which is checked. "=== PATH" begins another file of the same case. The
// comments "# error: ...", "# warning: ..." and "# note: ..." stand before the line that they are
// about, those about the same line in any order.

namespace zentho::idlgen {

/// A message: the path of its file, the number of its line, and the text after
/// "path:line:column: ".
using Told = std::tuple<std::string, int, std::string>;

struct CheckCase {
  std::string name;
  bool isCompiled;
  std::vector<std::pair<std::string, std::string>> files;  ///< Paths and texts; a.idl is the first.
  std::vector<Told> expected;
};

inline bool StartsWith(const std::string& text, const std::string& start) {
  return text.rfind(start, 0) == 0;
}

/// Called by GoogleTest if a test of the case has failed.
inline void PrintTo(const CheckCase& test, std::ostream* output) {
  for (const auto& [path, text] : test.files) {
    *output << "\n=== " << path << "\n";
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) *output << Printable(line) << "\n";
  }
}

inline void appendCheckCases(const std::string& name, std::vector<CheckCase>& cases) {
  std::istringstream lines(Data(name + ".idl"));
  int lineNumber = 0;
  std::vector<std::string> pending;
  const auto beginFile = [&] {
    if (!pending.empty()) throw std::runtime_error(name + ": no line after " + pending.front());
    lineNumber = 0;
  };
  for (std::string line; std::getline(lines, line);) {
    if (StartsWith(line, "### ")) {
      beginFile();
      const std::size_t space = line.find(' ', 4);
      cases.push_back({line.substr(4, space - 4), space == std::string::npos, {{"a.idl", ""}}, {}});
      continue;
    }
    CheckCase& test = cases.back();
    if (StartsWith(line, "=== ")) {
      beginFile();
      test.files.emplace_back(line.substr(4), "");
      continue;
    }
    ++lineNumber;
    auto& [path, text] = test.files.back();
    text += line + "\n";
    if (StartsWith(line, "# error: ") || StartsWith(line, "# warning: ") ||
        StartsWith(line, "# note: ")) {
      pending.push_back(line.substr(2));
      continue;
    }
    for (const std::string& message : pending)
      test.expected.emplace_back(path, lineNumber, message);
    pending.clear();
  }
  beginFile();
}

inline std::vector<CheckCase> CheckCases() {
  std::vector<CheckCase> cases;
  for (const std::string& name : DataCases("checks")) appendCheckCases(name, cases);
  return cases;
}

}  // namespace zentho::idlgen
