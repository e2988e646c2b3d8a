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
using Reported = std::tuple<std::string, int, std::string>;

struct CheckCase {
  std::string name;
  bool isCompiled;
  std::vector<std::pair<std::string, std::string>> files;  ///< Paths and texts; a.idl is the first.
  std::vector<Reported> expected;
};

/// Called by GoogleTest if a test of the case has failed.
inline void PrintTo(const CheckCase& test, std::ostream* output) {
  for (const auto& [path, text] : test.files) {
    *output << "\n=== " << path << "\n";
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) *output << Printable(line) << "\n";
  }
}

/// Returns the cases in tests/data/checks.
inline std::vector<CheckCase> CheckCases() {
  std::vector<CheckCase> cases;
  for (const DataCase& given : DataCases("checks")) {
    CheckCase test = {given.name, given.option != "uncompiled", {}, {}};
    test.files = CaseFiles("=== a.idl\n" + given.text);
    for (const auto& [path, text] : test.files) {
      std::istringstream lines(text);
      std::vector<std::string> pending;
      int lineNumber = 1;
      for (std::string line; std::getline(lines, line); ++lineNumber) {
        if (StartsWith(line, "# error: ") || StartsWith(line, "# warning: ") ||
            StartsWith(line, "# note: ")) {
          pending.push_back(line.substr(2));
          continue;
        }
        for (const std::string& message : pending)
          test.expected.emplace_back(path, lineNumber, message);
        pending.clear();
      }
      if (!pending.empty()) throw std::runtime_error("no line after " + pending.front());
    }
    cases.push_back(std::move(test));
  }
  return cases;
}

}  // namespace zentho::idlgen
