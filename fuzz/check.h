#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "schema/schema.h"

namespace zentho::idlgen {

/// Ends the process, which the fuzzer reports, if the invariant does not hold.
inline void check(bool holds, const char* invariant) {
  if (holds) return;
  std::fprintf(stderr, "Check failed: %s\n", invariant);
  std::abort();
}

/// Returns how many bytes the action prints. From the first call on, they go to a file in memory.
template <typename Action>
std::size_t Printed(const Action& action) {
  static const bool isRedirected = dup2(memfd_create("stdout", 0), STDOUT_FILENO) >= 0;
  check(isRedirected && lseek(STDOUT_FILENO, 0, SEEK_SET) == 0, "standard output is a file");
  action();
  return static_cast<std::size_t>(lseek(STDOUT_FILENO, 0, SEEK_CUR));
}

inline std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    lines.push_back(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(lines.back().size() + 1, text.size()));
  }
  return lines;
}

/// Checks that each word of an accepted file can only be in the header what its place means.
void checkWords(const Schema& schema);

}  // namespace zentho::idlgen
