#pragma once

#include <cstdlib>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "support.h"

namespace zentho::idlgen {

/// Returns whether there is a compiler to ask.
inline bool HasCompiler() {
  return !std::string(IDLGEN_TEST_COMPILER).empty();
}

constexpr const char* noCompiler = "checked in builds with g++ and without sanitizers";

/// Runs the compiler on a text. Returns the output, which has the text as "text.cpp".
inline std::string Compile(const std::string& text, const std::string& options) {
  const Scratch scratch;
  scratch.write("text.cpp", text);
  const std::string command = "cd '" + scratch.path(".") + "' && " + IDLGEN_TEST_COMPILER + " " +
                              options + " text.cpp >out 2>&1";
  (void)std::system(command.c_str());
  return ReadAll(scratch.path("out"));
}

/// Compiles a text after the framework's header. Returns the numbers of the lines that the compiler
/// rejects.
inline std::set<std::size_t> RejectedLines(const std::string& text, const std::string& standard) {
  const std::string options = "-include zentho/serialization/serialization.h -fsyntax-only " +
                              ("-fmax-errors=0 -Werror=pointer-arith -std=" + standard);
  std::istringstream output(Compile(text, options));
  std::set<std::size_t> lines;
  const std::regex error(R"(text\.cpp:(\d+):\d+: (fatal )?error: .*)");
  std::smatch match;
  for (std::string line; std::getline(output, line);) {
    if (std::regex_match(line, match, error)) lines.insert(std::stoul(match[1]));
  }
  return lines;
}

}  // namespace zentho::idlgen
