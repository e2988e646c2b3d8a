#pragma once

#include <cstddef>
#include <optional>
#include <string>
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
  [[nodiscard]] RecoveryResult examine(SourceFile& file);

  /// Returns what the words of the files declare.
  [[nodiscard]] const Declarations& declared() const { return *declarations; }

  /// Returns the path by which a file can include another one of them, or nothing.
  [[nodiscard]] std::string includePath(const SourceFile& from, const SourceFile& to) {
    return sources->includePath(from, to);
  }

  /// Returns whether a misspelt name is compared with so many others. A run does so with two
  /// million at most, which takes some seconds.
  [[nodiscard]] bool spendComparisons(std::size_t count) {
    compared += count;
    return compared <= 2'000'000;
  }

 private:
  void repairAll(const std::vector<SourceFile*>& files);

  Sources* sources = nullptr;                                  ///< Unless the file is alone.
  std::unordered_map<const SourceFile*, Recovery> recoveries;  ///< Of files with mistakes.
  std::optional<Declarations> declarations;                    ///< Of all files, once repaired.
  std::size_t compared = 0;                                    ///< The number of names.
};

}  // namespace zentho::idlgen
