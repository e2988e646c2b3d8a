#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "sources/source_tree.h"

namespace zentho::idlgen {

/// A file that a run writes, and removes after an error.
struct OutputFile {
  std::string path;
  /// Whether a file that begins like this may be replaced. An empty one always may be.
  std::function<bool(std::string_view)> isOlder;
  std::string_view otherReason;         ///< What to say of another file.
  std::function<bool(FileId)> isInput;  ///< Whether it is one of the files to read.
  std::string_view inputReason;         ///< What to say then.
};

/// Returns why nothing can be written to the path of the file, or why what is there must stay as it
/// is, or nothing.
std::optional<std::string> Refusal(const OutputFile& file);

/// Removes the file. If that fails, appends why to the messages.
void removeOutput(const std::string& path, std::string& messages);

}  // namespace zentho::idlgen
