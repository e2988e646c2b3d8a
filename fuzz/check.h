#pragma once

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace zentho::idlgen {

/// Ends the process, which the fuzzer reports, if the invariant does not hold.
inline void check(bool holds, const char* invariant) {
  if (holds) return;
  std::fprintf(stderr, "Check failed: %s\n", invariant);
  std::abort();
}

inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace zentho::idlgen
