#include "header/generate_header.h"

#include <sys/stat.h>

#include <new>
#include <optional>
#include <string_view>
#include <system_error>

#include "diagnostics/printable.h"
#include "generator/generator.h"
#include "header/examine.h"
#include "io/file.h"
#include "io/line_writer.h"
#include "io/replace_file.h"
#include "schema/schema.h"

namespace zentho {
namespace {

constexpr std::string_view firstLine = "#pragma once";

std::string ErrorLine(const std::string& path, const std::string& reason) {
  return "idlgen-header: " + Printable(path) + ": " + reason + "\n";
}

/// Returns why no file can be created at a path where there is none.
std::error_code PathError(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  if (path.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
  if (name.empty() || name == "." || name == "..") {
    return std::make_error_code(std::errc::is_a_directory);
  }
  // "new/../a.h" leads to no file while "new" is missing, and later to one that was not examined.
  const std::size_t parent = path.rfind("/../");
  struct stat status {};
  if (parent == std::string::npos) return {};
  return ::stat(path.substr(0, parent + 3).c_str(), &status) == 0 ? std::error_code() : LastError();
}

/// Returns whether the path leads to the file. Errors count as no.
bool IsPathOf(const std::string& path, const struct stat& file) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && status.st_dev == file.st_dev &&
         status.st_ino == file.st_ino;
}

/// Returns why an existing file must stay as it is, or nothing.
std::optional<std::string> ReasonToKeep(const HeaderRequest& request, const struct stat& header) {
  if (S_ISLNK(header.st_mode)) return "is a symbolic link";
  if (IsPathOf(request.idl, header)) return "is the IDL file";
  if (!S_ISREG(header.st_mode)) return "is not a regular file";
  std::string start;
  const std::error_code error = readFile(request.header, start, firstLine.size());
  if (IsMissing(error)) return std::nullopt;  // Another run has just removed it.
  if (error) return error.message();
  if (start.empty() || start == firstLine) return std::nullopt;
  return "does not begin with \"" + std::string(firstLine) + "\"";
}

/// Returns why nothing can be written to the path of the header, or nothing.
std::optional<std::string> Refusal(const HeaderRequest& request) {
  struct stat status {};
  if (::lstat(request.header.c_str(), &status) == 0) {
    std::optional<std::string> reason = ReasonToKeep(request, status);
    if (reason.has_value()) *reason += "; it is left as it is";
    return reason;
  }
  std::error_code error = LastError();
  if (IsMissing(error)) error = PathError(request.header);
  return error ? std::optional(error.message()) : std::nullopt;
}

/// Returns whether `path` is a regular file with this text. Errors count as no.
bool HasText(const std::string& path, const std::string& text) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  std::string old;
  return !readFile(path, old, text.size() + 1) && old == text;
}

Outcome generate(const HeaderRequest& request) {
  std::string source;
  if (const std::error_code error = readFile(request.idl, source)) {
    return {false, ErrorLine(request.idl, error.message())};
  }
  Schema schema;
  Outcome result = examine(request.idl, source, schema);
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

Outcome generateHeader(const HeaderRequest& request) {
  if (const std::optional<std::string> reason = Refusal(request)) {
    return {false, ErrorLine(request.header, *reason)};
  }
  Outcome result{};
  try {
    result = generate(request);
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
