#pragma once

#include <cstdint>
#include <string>

#include "words/printable.h"

namespace zentho::idlgen {

/// What a run does about warnings.
enum class Warnings : std::uint8_t {
  Report,
  Ignore,  ///< Does not report them, nor count them among the messages that are shown.
  Fail     ///< Reports them, and fails as after an error.
};

/// Whether a run succeeds, and what it has to say.
struct Outcome {
  bool succeeded;
  std::string messages;  ///< Lines for standard error. There may be warnings after success.
};

/// What a run says if memory runs out.
inline constexpr const char* noMemory = "idlgen-header: Cannot allocate memory\n";

/// Returns a message about a file: "idlgen-header: PATH: REASON" and a line feed.
inline std::string ErrorLine(const std::string& path, const std::string& reason) {
  return "idlgen-header: " + Printable(path) + ": " + reason + "\n";
}

}  // namespace zentho::idlgen
