#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "names/declarations.h"
#include "recovery/recovery.h"
#include "sources/source_file.h"
#include "sources/sources.h"

namespace zentho::idlgen {

/// Examines IDL files together: all that have been read in a run, which may include each other.
/// Changes the words of those that cannot be read.
class Examination {
 public:
  explicit Examination(Sources& readSources);

  /// Examines one file that is alone.
  explicit Examination(SourceFile& file);

  /// Checks one of the files together with the others. Returns what is wrong with it.
  [[nodiscard]] Examined examine(SourceFile& file);

  /// Returns what to do about a type that the file uses and that is not declared, or nothing.
  [[nodiscard]] std::string typeAdvice(const SourceFile& file, std::string_view type);

 private:
  void repairAll(const std::vector<SourceFile*>& files);

  Sources* sources = nullptr;                                  ///< Unless the file is alone.
  std::unordered_map<const SourceFile*, Recovery> recoveries;  ///< Of files with mistakes.
  std::optional<Declarations> declarations;                    ///< Of all files, once repaired.
};

}  // namespace zentho::idlgen
