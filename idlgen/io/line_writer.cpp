#include "io/line_writer.h"

#include <fcntl.h>
#include <unistd.h>

namespace zentho {
namespace {

void appendLine(std::string& text, std::initializer_list<std::string_view> pieces) {
  for (const std::string_view piece : pieces) text += piece;
  text += '\n';
}

}  // namespace

LineWriter::LineWriter(const std::string& path)
    : LineWriter(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) {}

void LineWriter::writeLine(std::initializer_list<std::string_view> pieces) {
  if (text != nullptr) {
    appendLine(*text, pieces);
  } else if (!failed) {
    line.clear();
    appendLine(line, pieces);
    failed = writeAll(file.get(), line) != 0;
  }
}

void printLine(std::initializer_list<std::string_view> pieces) {
  // Never destroyed: that would close standard output, and a library may still print at exit.
  static LineWriter& standardOutput = *new LineWriter(STDOUT_FILENO);
  standardOutput.writeLine(pieces);
}

}  // namespace zentho
