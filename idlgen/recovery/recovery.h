#pragma once

#include <cstddef>
#include <vector>

#include "findings/diagnostic.h"
#include "findings/finding.h"
#include "names/declarations.h"
#include "recovery/fixes.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// What is wrong with a file. Nothing if all lists are empty.
struct RecoveryResult {
  std::vector<Finding> findings;          ///< About the words that are read in the end.
  std::vector<Diagnostic> diagnostics;    ///< About the others, or missing ones: one a line.
  std::vector<std::size_t> linesAtFault;  ///< Of which words are not read.
  bool isComplete = true;                 ///< Otherwise too much is wrong to read the rest.
};

/// Reads a file that has words which the parser refuses, or whose role cannot be right. Goes round
/// a loop: finds the first of them, or if there is none, the first line that the check shows to be
/// read wrongly; reports what is wrong, reads other words in its place, and parses all of them
/// again. It ends when nothing is found any more, or after 20 fixes.
class Recovery {
 public:
  /// Finds the places of the words, and reads those beside tabs or CRs without them.
  explicit Recovery(SourceFile& sourceFile);

  /// Repairs the file, which is one of those that have the declarations. Returns what is wrong with
  /// it. May be called again with those of more files, which show more that is wrong.
  const RecoveryResult& run(Declarations& declarations);

 private:
  void parse();
  void declare(Declarations& declarations);
  void report(const Fix& fix);
  [[nodiscard]] bool isReported(LineRange lines) const;

  SourceFile& file;
  RecoveryResult result;
  std::size_t fixes = 0;
  bool isChanged = false;  ///< Whether the declarations may be those of other words.
};

}  // namespace zentho::idlgen
