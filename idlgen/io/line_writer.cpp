#include "io/line_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstddef>

namespace zentho {

LineWriter::LineWriter(const std::string& path)
    : LineWriter(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) {}

LineWriter::~LineWriter() {
  if (file >= 0) ::close(file);
}

void LineWriter::writeLine(std::initializer_list<std::string_view> pieces) {
  if (refused) return;
  line.clear();
  for (const std::string_view piece : pieces) line += piece;
  line += '\n';

  // One round, unless the process was stopped while a pipe had taken only a part of a long line.
  for (std::string_view rest = line; !rest.empty();) {
    const ssize_t written = ::write(file, rest.data(), rest.size());
    refused = written <= 0;
    if (refused) return;
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
}

void printLine(std::initializer_list<std::string_view> pieces) {
  // Never destroyed: at the exit a library may have something left to print.
  static LineWriter& standardOutput = *new LineWriter(STDOUT_FILENO);
  standardOutput.writeLine(pieces);
}

}  // namespace zentho
