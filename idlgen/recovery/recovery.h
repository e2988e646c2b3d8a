#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "findings/diagnostic.h"
#include "findings/finding.h"
#include "findings/located_words.h"
#include "names/declarations.h"
#include "recovery/fix.h"
#include "schema/parser.h"

namespace zentho::idlgen {

/// What is read of a file, and what is wrong with it.
struct Recovered {
  LocatedWords file;                      ///< What is read in the end.
  std::vector<Finding> findings;          ///< About the words that are read, in their order.
  std::vector<Diagnostic> diagnostics;    ///< One for each line at fault.
  std::vector<std::size_t> linesAtFault;  ///< Whose words are not all read.
  LeftOut leftOut;                        ///< The words that are not read.
  bool isComplete = true;                 ///< Otherwise there are too many faults to read the rest.
};

/// Reads a file that the parser refuses, or that has words which are not what they mean: takes the
/// first fault, replaces its line by what was probably meant, and parses the words once more, until
/// no fault is left. Refers to the text.
class Recovery {
 public:
  /// `fileWords` are all words of the text, with the roles that the parser has given to them.
  Recovery(std::string_view fileText, Words fileWords, std::optional<ParseError> grammarError);
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  /// Returns the findings about the words that are read.
  using CheckWords = std::function<std::vector<Finding>(const Words&, const LeftOut&)>;

  /// Takes one fault after the other until none is left. May be called again with another check,
  /// which finds more.
  void run(const CheckWords& check);

  /// Returns whether there was a line at fault.
  [[nodiscard]] bool hasFault() const { return !recovered.diagnostics.empty(); }

  [[nodiscard]] const Recovered& result() const { return recovered; }

 private:
  void dropCarriageReturns();
  void parse();
  [[nodiscard]] std::optional<Fix> nextFix(const CheckWords& check);
  [[nodiscard]] Fix fixOfWord(std::size_t word) const;
  [[nodiscard]] Fix fixOfEnd() const;
  [[nodiscard]] std::optional<Fix> fixOfFindings() const;
  void tell(const Fix& fix);
  void readInstead(const Fix& fix);
  [[nodiscard]] bool isConsequence(const Fix& fix) const;
  [[nodiscard]] bool mayDeclare(const Fix& fix) const;
  void leaveOut(std::string_view word, bool isWholeLine);

  Recovered recovered;
  LocatedWords& file = recovered.file;
  std::string_view text;
  std::optional<ParseError> error;
  std::size_t faults = 0;
  std::deque<std::string> texts;  ///< What is read in place of words of the file.
  bool lacksBraces;               ///< Whether the file opens more braces than it closes.
};

}  // namespace zentho::idlgen
