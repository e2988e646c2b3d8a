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

bool HasError(const std::vector<Finding>& findings) {
  return std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.rule->severity == Severity::Error;
  });
}

}  // namespace

Outcome examine(const std::string& path, const std::string& text, Schema& schema) {
  IDL idl;
  idl.tokenize(text);
  Words words;
  std::optional<ParseError> grammarError;
  try {
    Parser().parseSilently(idl, schema, words);
  } catch (const ParseError& error) {
    grammarError = error;
  }
  const std::vector<Finding> findings = Check(text, words, WordsToCheck(words, grammarError));
  const ParseError* const error = grammarError.has_value() ? &*grammarError : nullptr;
  Outcome result = {error == nullptr && !HasError(findings), {}};
  if (error != nullptr || !findings.empty()) {
    result.messages = Diagnostics(path, text, words, findings, error);
  }
  return result;
}

}  // namespace zentho
