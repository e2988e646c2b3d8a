#include "step/header_step.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "generator/generator.h"
#include "io/file.h"
#include "io/line_writer.h"
#include "io/replace_file.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"
#include "step/diagnostic.h"

namespace zentho {
namespace {

constexpr std::string_view firstLine = "#pragma once";

std::string ErrorLine(const std::string& path, const std::string& reason) {
  return "idlgen-header: " + Printable(path) + ": " + reason + "\n";
}

StepError SystemError(const std::string& path, int error) {
  return StepError(ErrorLine(path, std::strerror(error)));
}

StepError Refusal(const std::string& header, const std::string& reason) {
  return StepError(ErrorLine(header, reason + "; it is left as it is"));
}

bool Status(const std::string& path, int flags, struct stat& status) {
  return Succeeds([&] { return fstatat(AT_FDCWD, path.c_str(), &status, flags); });
}

/// Returns whether the path or, if it is a link, its target is the file.
bool IsFile(const std::string& path, const struct stat& file) {
  for (const int flags : {0, AT_SYMLINK_NOFOLLOW}) {
    struct stat found {};
    if (Status(path, flags, found) && found.st_dev == file.st_dev && found.st_ino == file.st_ino) {
      return true;
    }
  }
  return false;
}

/// Throws StepError if the path is not that of a file, or if there is a file that must not be
/// replaced or cannot be examined.
void checkReplaceable(const std::string& idl, const std::string& header) {
  struct stat there {};
  if (!Status(header, AT_SYMLINK_NOFOLLOW, there)) {
    if (errno != ENOENT && errno != ENOTDIR) throw SystemError(header, errno);
    const std::string name = header.substr(header.rfind('/') + 1);
    if (header.empty()) throw SystemError(header, ENOENT);
    if (name.empty() || name == "." || name == "..") throw SystemError(header, EISDIR);
    // Once a missing directory has been made, ".." behind it leads to files not examined here.
    const std::size_t up = header.rfind("/../");
    struct stat directory {};
    if (up != std::string::npos && !Status(header.substr(0, up + 3), 0, directory)) {
      throw SystemError(header, errno);
    }
    return;
  }
  if (IsFile(idl, there)) throw Refusal(header, "is the IDL file");
  if (S_ISLNK(there.st_mode)) return;
  if (!S_ISREG(there.st_mode)) throw Refusal(header, "is not a regular file");
  std::string start;
  int error = 0;
  if (!Succeeds([&] { return error = readFile(header, start, firstLine.size()); })) {
    if (error == ENOENT) return;  // Another run has just removed it.
    throw Refusal(header, std::strerror(error));
  }
  if (!start.empty() && start != firstLine) {
    throw Refusal(header, "does not begin with \"" + std::string(firstLine) + "\"");
  }
}

/// Returns the text of the IDL file's header, or throws StepError.
std::string HeaderText(const std::string& idlPath) {
  std::string source;
  if (const int error = readFile(idlPath, source)) throw SystemError(idlPath, error);
  Schema schema;
  try {
    IDL idl;
    idl.tokenize(source);
    Parser().parseSilently(idl, schema);
  } catch (const ParseError& error) {
    throw StepError(Diagnostic(idlPath, source, error));
  }
  std::string text;
  LineWriter writer(&text);
  Generator(schema).write(writer);
  return text;
}

/// Returns whether `path` is a regular file with this text. If that cannot be found out, it is not.
bool HasText(const std::string& path, const std::string& text) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  std::string old;
  return readFile(path, old, text.size() + 1) == 0 && old == text;
}

}  // namespace

void generateHeader(const std::string& idl, const std::string& header, bool ifChanged) {
  checkReplaceable(idl, header);
  try {
    const std::string text = HeaderText(idl);
    if (ifChanged && HasText(header, text)) return;
    if (const int error = replaceFile(header, text)) throw SystemError(header, error);
  } catch (StepError& failure) {
    if (const int error = removeFile(header)) {
      failure.message +=
          ErrorLine(header, std::string("cannot be removed: ") + std::strerror(error));
    }
    throw;
  } catch (...) {
    removeFile(header);
    throw;
  }
}

}  // namespace zentho
