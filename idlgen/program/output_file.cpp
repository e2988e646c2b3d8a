#include "program/output_file.h"

#include <sys/stat.h>

#include <system_error>

#include "io/file.h"
#include "io/replace_file.h"
#include "messages/outcome.h"

namespace zentho::idlgen {
namespace {

/// Returns why no file can be created at a path where there is none.
std::error_code PathError(const std::string& path) {
  const std::string name = FileName(path);
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

/// Returns why an existing file must stay as it is, or nothing.
std::optional<std::string> ReasonToKeep(const OutputFile& file, const struct stat& status) {
  if (S_ISLNK(status.st_mode)) return "is a symbolic link";
  if (file.isInput({status.st_dev, status.st_ino})) return std::string(file.inputReason);
  if (!S_ISREG(status.st_mode)) return "is not a regular file";
  std::string start;
  constexpr std::size_t limit = 16384;  // More than the longest path, with all its escapes.
  const std::error_code error = readFile(file.path, start, limit);
  if (IsMissing(error)) return std::nullopt;  // Another run has just removed it.
  if (error) return error.message();
  if (start.empty() || file.isOlder(start)) return std::nullopt;
  return std::string(file.otherReason);
}

}  // namespace

std::optional<std::string> Refusal(const OutputFile& file) {
  struct stat status {};
  if (::lstat(file.path.c_str(), &status) == 0) {
    std::optional<std::string> reason = ReasonToKeep(file, status);
    if (reason.has_value()) *reason += "; it is left as it is";
    return reason;
  }
  std::error_code error = LastError();
  if (IsMissing(error)) error = PathError(file.path);
  return error ? std::optional(error.message()) : std::nullopt;
}

void removeOutput(const std::string& path, std::string& messages) {
  const std::error_code error = removeFile(path);
  if (error) messages += ErrorLine(path, "cannot be removed: " + error.message());
}

}  // namespace zentho::idlgen
