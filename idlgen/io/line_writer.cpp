#include "io/line_writer.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace zentho {
namespace {

/// Returns whether a failed write can be repeated. Waits until the file accepts data again.
bool WaitToRetry(int file) {
  if (errno == EAGAIN) {
    pollfd output = {file, POLLOUT, 0};
    return ::poll(&output, 1, -1) > 0 || errno == EINTR;
  }
  return errno == EINTR;
}

}  // namespace

LineWriter::LineWriter(const std::string& path)
    : LineWriter(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) {}

LineWriter::~LineWriter() {
  if (file >= 0) ::close(file);
}

void LineWriter::writeLine(std::initializer_list<std::string_view> pieces) {
  if (failed) return;
  buffer.clear();
  for (const std::string_view piece : pieces) buffer += piece;
  buffer += '\n';

  // Usually one iteration; more if the write is partial, interrupted or would block.
  for (std::string_view rest = buffer; !rest.empty();) {
    const ssize_t written = ::write(file, rest.data(), rest.size());
    if (written > 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0 || !WaitToRetry(file)) {
      failed = true;
      return;
    }
  }
}

void printLine(std::initializer_list<std::string_view> pieces) {
  // Never destroyed: that would close standard output, and a library may still print at exit.
  static LineWriter& standardOutput = *new LineWriter(STDOUT_FILENO);
  standardOutput.writeLine(pieces);
}

}  // namespace zentho
