#include "recovery/recovery.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "check/check.h"
#include "recovery/fixes.h"
#include "recovery/separators.h"
#include "schema/parser.h"

namespace zentho::idlgen {
namespace {

/// The number of fixes after which the rest of a file is not read any more.
constexpr std::size_t maxFixes = 20;

/// Returns whether these are the words of one pair with a colon between them.
bool IsPair(const LocatedWords& words, WordRange range) {
  return range.end == range.first + 2 && IsTypeOrValue(words.role(range.first + 1)) &&
         IsBeforeColon(words, range.first);
}

}  // namespace

Recovery::Recovery(SourceFile& sourceFile) : file(sourceFile) {
  file.locateWords();
  for (const auto drop : {dropCarriageReturns, dropTabs}) {
    std::optional<Diagnostic> error = drop(file);
    if (error.has_value()) result.diagnostics.push_back(*std::move(error));
  }
  fixes = result.diagnostics.size();
  if (fixes > 0) parse();
}

const RecoveryResult& Recovery::run(Declarations& declarations) {
  while (true) {
    std::optional<Fix> fix = FixWords(file);
    if (!fix.has_value()) {
      declare(declarations);
      result.findings = FindingsIn(declarations, declarations.fileOf(file));
      fix = FixFindings(file.words, result.findings);
    }
    if (!fix.has_value()) return result;
    if (fixes == maxFixes) break;
    ++fixes;
    report(*fix);
    applyFix(file, *fix);
    parse();
  }
  file.dropped.mayDeclareAnything = true;
  isChanged = true;
  declare(declarations);
  result.findings.clear();
  result.isComplete = false;
  return result;
}

/// Finds the roles of the words once more.
void Recovery::parse() {
  isChanged = true;
  file.error.reset();
  Schema schema;
  try {
    Parser().parseSilently(file.words, schema);
  } catch (const ParseError& error) {
    file.error = error;
  }
}

/// Shows the words to other files, if they have changed.
void Recovery::declare(Declarations& declarations) {
  if (std::exchange(isChanged, false)) declarations.update(file);
}

/// Reports what is wrong, unless something has been reported about that line, or about the cause. A
/// pair with a colon is right or wrong by itself.
void Recovery::report(const Fix& fix) {
  const std::size_t line = file.words.places[fix.finding.word].lineNumber;
  const bool isPair = IsPair(file.words, fix.replaced);
  const bool isKnown = (!isPair && isReported({line, line})) || isReported(fix.causes);
  if (!isKnown) result.diagnostics.push_back(DiagnosticOf(file, fix.finding));
  if (!isPair && fix.replaced.first < fix.replaced.end) result.linesAtFault.push_back(line);
}

/// Returns whether something has been reported about one of these lines.
bool Recovery::isReported(LineRange lines) const {
  return std::any_of(result.diagnostics.begin(), result.diagnostics.end(),
                     [&](const Diagnostic& diagnostic) {
                       const std::size_t line = diagnostic.message.place.lineNumber;
                       return lines.first <= line && line <= lines.last;
                     });
}

}  // namespace zentho::idlgen
