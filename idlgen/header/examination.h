#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check/files_check.h"
#include "check/located_words.h"
#include "diagnostics/report.h"
#include "header/examine.h"
#include "header/warnings.h"
#include "recovery/recovery.h"
#include "sources/source_file.h"
#include "sources/sources.h"

namespace zentho {

/// Examines IDL files together: all that have been read in a run, which may include each other.
class Examination final : private OtherFiles {
 public:
  /// Examines all files that have been read. Refers to them.
  explicit Examination(Sources& readSources);

  /// Examines one file alone. Refers to it.
  explicit Examination(const SourceFile& file);

  /// Returns the messages about one of the files.
  [[nodiscard]] Outcome examine(std::size_t file, Warnings warnings);

 private:
  void addFiles();
  Recovery& recoveryOf(std::size_t file);
  [[nodiscard]] const Words& wordsRead(std::size_t file) const;
  [[nodiscard]] std::vector<Inclusion> inclusionsOf(std::size_t file) const;
  [[nodiscard]] std::vector<std::size_t> pathsRead(std::size_t file) const;
  [[nodiscard]] std::vector<Finding> findings(std::size_t file);

  [[nodiscard]] const std::string& path(std::size_t file) const override;
  [[nodiscard]] const LocatedWords& words(std::size_t file) override;
  [[nodiscard]] std::string typeAdvice(std::string_view type) override;

  std::vector<const SourceFile*> files;
  Sources* sources = nullptr;  ///< Unless the file is alone.
  FilesCheck check;
  std::vector<std::unique_ptr<Recovery>> recoveries;  ///< Of files that have been recovered.
  std::size_t current = 0;                            ///< The file that is examined.
};

}  // namespace zentho
