#include "header/generate_header.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <new>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "check/check.h"
#include "diagnostics/diagnostics.h"
#include "diagnostics/printable.h"
#include "generator/generator.h"
#include "io/file.h"
#include "io/line_writer.h"
#include "io/replace_file.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho {
namespace {

constexpr std::string_view firstLine = "#pragma once";

std::string ErrorLine(const std::string& path, const std::string& reason) {
  return "idlgen-header: " + Printable(path) + ": " + reason + "\n";
}

/// Returns why there cannot be a file at a path where there is none, or nothing.
std::optional<std::string> ReasonAgainstPath(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  if (path.empty()) return std::generic_category().message(ENOENT);
  if (name.empty() || name == "." || name == "..") return std::generic_category().message(EISDIR);
  // Once a missing directory has been made, ".." behind it leads to files that were not examined.
  const std::size_t parent = path.rfind("/../");
  struct stat status {};
  if (parent != std::string::npos && ::stat(path.substr(0, parent + 3).c_str(), &status) != 0) {
    return LastError().message();
  }
  return std::nullopt;
}

/// Returns whether the path or, if it is a link, its target is the file.
bool IsPathOf(const std::string& path, const struct stat& file) {
  struct stat own {};
  struct stat target {};
  const auto isFile = [&](const struct stat& status) {
    return status.st_dev == file.st_dev && status.st_ino == file.st_ino;
  };
  return (::lstat(path.c_str(), &own) == 0 && isFile(own)) ||
         (::stat(path.c_str(), &target) == 0 && isFile(target));
}

/// Returns why an existing file must stay as it is, or nothing.
std::optional<std::string> ReasonToKeep(const HeaderRequest& request, const struct stat& header) {
  if (IsPathOf(request.idl, header)) return "is the IDL file";
  if (S_ISLNK(header.st_mode)) return "is a symbolic link";
  if (!S_ISREG(header.st_mode)) return "is not a regular file";
  std::string start;
  const std::error_code error = readFile(request.header, start, firstLine.size());
  if (error == std::errc::no_such_file_or_directory) return std::nullopt;  // Just removed.
  if (error) return error.message();
  if (start.empty() || start == firstLine) return std::nullopt;
  return "does not begin with \"" + std::string(firstLine) + "\"";
}

/// Returns why nothing can be written to the path of the header, or nothing.
std::optional<std::string> Refusal(const HeaderRequest& request) {
  struct stat status {};
  if (::lstat(request.header.c_str(), &status) != 0) {
    const std::error_code error = LastError();
    const bool isMissing =
        error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    return isMissing ? ReasonAgainstPath(request.header) : error.message();
  }
  std::optional<std::string> reason = ReasonToKeep(request, status);
  if (reason.has_value()) *reason += "; it is left as it is";
  return reason;
}

/// Returns whether `path` is a regular file with this text. Errors count as no.
bool HasText(const std::string& path, const std::string& text) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  std::string old;
  return !readFile(path, old, text.size() + 1) && old == text;
}

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

HeaderResult Generate(const HeaderRequest& request) {
  std::string source;
  if (const std::error_code error = readFile(request.idl, source)) {
    return {false, ErrorLine(request.idl, error.message())};
  }
  Schema schema;
  HeaderResult result = examine(request.idl, source, schema);
  if (!result.succeeded) return result;

  StringLineWriter header;
  Generator(schema).write(header);
  if (request.ifChanged && HasText(request.header, header.text)) return result;
  if (const std::error_code error = replaceFile(request.header, header.text)) {
    return {false, result.messages + ErrorLine(request.header, error.message())};
  }
  return result;
}

}  // namespace

HeaderResult examine(const std::string& path, const std::string& text, Schema& schema) {
  IDL idl;
  idl.tokenize(text);
  Words words;
  std::optional<ParseError> grammarError;
  try {
    Parser().parseSilently(idl, schema, words);
  } catch (const ParseError& error) {
    grammarError = error;
  }
  const std::vector<Finding> findings = Check(words, WordsToCheck(words, grammarError));
  const ParseError* const error = grammarError.has_value() ? &*grammarError : nullptr;
  HeaderResult result = {error == nullptr && !HasError(findings), {}};
  if (error != nullptr || !findings.empty()) {
    result.messages = Diagnostics(path, text, words, findings, error);
  }
  return result;
}

HeaderResult generateHeader(const HeaderRequest& request) {
  if (const std::optional<std::string> reason = Refusal(request)) {
    return {false, ErrorLine(request.header, *reason)};
  }
  HeaderResult result{};
  try {
    result = Generate(request);
  } catch (const std::bad_alloc&) {
    result = {false, "idlgen-header: Cannot allocate memory\n"};
  }
  if (result.succeeded) return result;
  if (const std::error_code error = removeFile(request.header)) {
    result.messages += ErrorLine(request.header, "cannot be removed: " + error.message());
  }
  return result;
}

}  // namespace zentho
