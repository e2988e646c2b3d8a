#pragma once

#include <sys/stat.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zentho {

/// What a run says if memory runs out.
constexpr const char* noMemory = "idlgen-header: Cannot allocate memory\n";

/// Returns a message about a file: "idlgen-header: PATH: REASON" and a line feed.
std::string ErrorLine(const std::string& path, const std::string& reason);

/// A file that a run writes, and removes after an error.
struct OutputFile {
  const std::string& path;
  std::string beginning;  ///< How a file begins that may be replaced. An empty one always may be.
  std::function<bool(const struct stat&)> isInput;  ///< Whether it is one of the files to read.
  std::string_view inputReason;                     ///< What to say then.
};

/// Returns why nothing can be written to the path of the file, or why what is there must stay as it
/// is, or nothing.
std::optional<std::string> Refusal(const OutputFile& file);

/// Removes the file. If that fails, appends why to the messages.
void removeOutput(const std::string& path, std::string& messages);

}  // namespace zentho
