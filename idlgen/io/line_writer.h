#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace zentho {

/// Writes text line by line. Each line goes out in a single write before the next one is made, slow
/// as this is: whoever follows the output sees how far the program has come, and a run that is cut
/// off leaves all lines up to then. Owns the file that it writes to.
///
/// Nothing is reported. A file that could not be opened takes no line, and neither does one that
/// has refused a line: what it got stays a beginning of the whole text, without holes.
class LineWriter {
 public:
  /// Opens the file at `path`, without its earlier content; makes it if there is none.
  explicit LineWriter(const std::string& path);

  /// Takes over an open file by its descriptor. A negative one stands for none.
  explicit LineWriter(int openFile) : file(openFile) {}

  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;
  ~LineWriter();

  /// Writes the pieces with nothing between them, then a line feed. Throws only for want of memory.
  void writeLine(std::initializer_list<std::string_view> pieces);

 private:
  int file;
  bool refused = false;  ///< Whether it takes no more.
  std::string line;      ///< The last one, kept for its memory.
};

/// Writes one line to standard output, like `LineWriter::writeLine`.
void printLine(std::initializer_list<std::string_view> pieces);

}  // namespace zentho
