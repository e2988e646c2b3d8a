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

/// Throws StepError if there is a file in the header's place that must not be replaced. Returns 0
/// or the errno of a failure that leaves this open.
int checkReplaceable(const std::string& idl, const std::string& header) {
  struct stat there {};
  if (!Status(header, AT_SYMLINK_NOFOLLOW, there)) {
    const int error = errno;
    if (error != ENOENT && error != ENOTDIR) return error;
    if (header.empty()) return ENOENT;
    const std::string name = header.substr(header.rfind('/') + 1);
    return name.empty() || name == "." || name == ".." ? EISDIR : 0;
  }
  if (IsFile(idl, there)) throw Refusal(header, "is the IDL file");
  if (S_ISLNK(there.st_mode)) return 0;
  if (!S_ISREG(there.st_mode)) throw Refusal(header, "is not a regular file");
  std::string start;
  int error = 0;
  const bool known = Succeeds([&] {
    start.clear();
    return error = readFile(header, start, firstLine.size());
  });
  if (!known) return error;
  if (!start.empty() && start != firstLine) {
    throw Refusal(header, "does not begin with \"" + std::string(firstLine) + "\"");
  }
  return 0;
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
  int error = checkReplaceable(idl, header);
  if (error != 0) throw SystemError(header, error);
  try {
    const std::string text = HeaderText(idl);
    if (ifChanged && HasText(header, text)) return;
    error = replaceFile(header, text);
    if (error != 0) throw SystemError(header, error);
  } catch (StepError& failure) {
    error = removeFile(header);
    if (error != 0) {
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
