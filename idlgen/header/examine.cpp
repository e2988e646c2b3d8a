#include "header/examine.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "check/check.h"
#include "check/out_of_step.h"
#include "diagnostics/report.h"
#include "reader/idl.h"
#include "recovery/recovery.h"
#include "schema/parser.h"

namespace zentho {
namespace {

bool HasError(const std::vector<Finding>& findings) {
  return std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.rule->severity == Severity::Error;
  });
}

/// Returns whether the words have the roles that they are meant for, and nothing is to be said
/// about any of them.
bool IsFlawless(std::string_view text, const Words& words) {
  return WordsInStep(words, words.size()) == words.size() && !HasColonsInWord(text) &&
         Check(words).empty();
}

}  // namespace

Outcome examine(const std::string& path, const std::string& text, Schema& schema) {
  IDL idl;
  idl.tokenize(text);
  Words words;
  std::optional<ParseError> error;
  try {
    Parser().parseSilently(idl, schema, words);
  } catch (const ParseError& parseError) {
    error = parseError;
  }
  if (!error.has_value() && IsFlawless(text, words)) return {true, {}};

  const bool isRead = !error.has_value();
  Recovery recovery(text, std::move(words), std::move(error));
  recovery.run();
  const bool succeeded = isRead && recovery.diagnostics.empty() && !HasError(recovery.findings);
  return {succeeded, Report(path, text, recovery)};
}

}  // namespace zentho
