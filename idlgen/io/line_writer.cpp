#include "io/line_writer.h"

#include <fcntl.h>
#include <unistd.h>

namespace zentho::idlgen {
namespace {

void appendLine(std::string& text, std::initializer_list<std::string_view> pieces) {
  for (const std::string_view piece : pieces) text += piece;
  text += '\n';
}

}  // namespace

FileLineWriter::FileLineWriter(const std::string& path)
    : FileLineWriter(openFile(path, O_WRONLY | O_CREAT | O_TRUNC)) {}

void FileLineWriter::writeLine(std::initializer_list<std::string_view> pieces) {
  if (failed) return;
  line.clear();
  appendLine(line, pieces);
  failed = static_cast<bool>(writeAll(file.get(), line));
}

void StringLineWriter::writeLine(std::initializer_list<std::string_view> pieces) {
  appendLine(text, pieces);
}

void printLine(std::initializer_list<std::string_view> pieces) {
  // Never destroyed: that would close standard output, and a library may still print at exit.
  static LineWriter& standardOutput = *new FileLineWriter(STDOUT_FILENO);
  standardOutput.writeLine(pieces);
}

}  // namespace zentho::idlgen
