#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "findings/diagnostic.h"
#include "findings/finding.h"
#include "names/declarations.h"
#include "recovery/fix.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// What is wrong with a file. Nothing if all lists are empty.
struct Examined {
  std::vector<Finding> findings;          ///< About the words that are read in the end.
  std::vector<Diagnostic> diagnostics;    ///< About the others, or missing ones: one a line.
  std::vector<std::size_t> linesAtFault;  ///< Of which words are not read.
  bool isComplete = true;                 ///< Otherwise too much is wrong to read the rest.
};

/// Reads a file that has words which the parser refuses, or whose role cannot be right: takes the
/// first of them, says what is wrong, reads other words in its place, and begins again.
/// Ends when there is no such word any more, or after 20 of them. Changes the words of the file.
class Recovery {
 public:
  /// Finds the places of the words.
  explicit Recovery(SourceFile& sourceFile);

  /// Repairs the file, which is one of those that have the declarations. Returns what is wrong with
  /// it. May be called again with those of more files, which show more that is wrong.
  const Examined& run(Declarations& declarations);

 private:
  void dropCarriageReturns();
  void dropTabs();
  void splitWords(char separator);
  [[nodiscard]] std::optional<Fix> check(Declarations& declarations);
  void declare(Declarations& declarations);
  void say(Diagnostic diagnostic);
  void tell(const Fix& fix);
  [[nodiscard]] bool isConsequence(const Fix& fix) const;
  [[nodiscard]] bool hasTold(std::size_t firstLine, std::size_t lastLine) const;
  void apply(const Fix& fix);
  void parse();
  void noteDropped(const Fix& fix, const std::vector<std::string_view>& read);
  void noteDropped(std::string_view word, bool isWholeLine);

  SourceFile& file;
  LocatedWords& words;  ///< With a place for each word, also for those that a fix has put there.
  Examined examined;
  std::size_t fixes = 0;
  bool lacksBraces;        ///< Whether the file opens more braces than it closes.
  bool isDeclared = true;  ///< Whether the last declarations are those of the words.
};

}  // namespace zentho::idlgen
