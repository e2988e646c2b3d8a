#include "diagnostics/examine.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "check/check.h"
#include "diagnostics/diagnostics.h"
#include "reader/idl.h"
#include "schema/parser.h"

namespace zentho {
namespace {

/// Returns how many words have been read without an error.
std::size_t WordsToCheck(const Words& words, const std::optional<ParseError>& error) {
  if (!error.has_value()) return words.size();
  return error->kind == ParseError::Kind::EndOfFile ? words.size() : error->tokensRead - 1;
}

bool IsWarning(const Finding& finding) {
  return finding.rule->severity == Severity::Warning;
}

/// Returns whether none of the findings makes the run fail.
bool MayPass(const std::vector<Finding>& findings, Warnings warnings) {
  if (warnings == Warnings::Fail) return findings.empty();
  return std::all_of(findings.begin(), findings.end(), IsWarning);
}

}  // namespace

Outcome examine(const std::string& path, const std::string& text, Schema& schema,
                Warnings warnings) {
  IDL idl;
  idl.tokenize(text);
  Words words;
  std::optional<ParseError> grammarError;
  try {
    Parser().parseSilently(idl, schema, words);
  } catch (const ParseError& error) {
    grammarError = error;
  }
  std::vector<Finding> findings = Check(text, words, WordsToCheck(words, grammarError));
  if (warnings == Warnings::Ignore) {
    findings.erase(std::remove_if(findings.begin(), findings.end(), IsWarning), findings.end());
  }
  const ParseError* const error = grammarError.has_value() ? &*grammarError : nullptr;
  Outcome result = {error == nullptr && MayPass(findings, warnings), {}};
  if (error != nullptr || !findings.empty()) {
    result.messages = Diagnostics(path, text, words, findings, error);
  }
  return result;
}

}  // namespace zentho
