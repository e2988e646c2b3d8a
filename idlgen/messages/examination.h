#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check/files_check.h"
#include "findings/located_words.h"
#include "recovery/recovery.h"
#include "sources/source_file.h"
#include "sources/sources.h"

namespace zentho::idlgen {

/// Examines IDL files together: all that have been read in a run, which may include each other.
class Examination {
 public:
  /// Reads the words of all files. Refers to the files.
  explicit Examination(Sources& readSources);

  /// Reads the words of one file that is alone. Refers to it.
  explicit Examination(const SourceFile& file);

  /// Checks one of the files. Returns what is found in it, or nullptr if that is nothing.
  [[nodiscard]] const Recovered* examine(std::size_t file);

  [[nodiscard]] const SourceFile& file(std::size_t file) const { return *files[file]; }

  /// Returns the words of a file that are read in the end, and where they stand.
  [[nodiscard]] const LocatedWords& locatedWords(std::size_t file);

  /// Returns what to do about a type that the file uses and that is not declared, or nothing.
  [[nodiscard]] std::string typeAdvice(std::size_t file, std::string_view type);

 private:
  void addFiles();
  Recovery& recoveryOf(std::size_t file);
  [[nodiscard]] FilesCheck::Openness opennessOf(std::size_t file) const;
  [[nodiscard]] const Words& wordsRead(std::size_t file) const;
  [[nodiscard]] std::vector<Inclusion> inclusionsOf(std::size_t file) const;
  [[nodiscard]] std::vector<std::size_t> pathsRead(std::size_t file) const;
  [[nodiscard]] std::vector<Finding> findings(std::size_t file);

  std::vector<const SourceFile*> files;
  Sources* sources = nullptr;  ///< Unless the file is alone.
  FilesCheck check;
  std::vector<std::unique_ptr<Recovery>> recoveries;  ///< Of files that have been recovered.
};

}  // namespace zentho::idlgen
