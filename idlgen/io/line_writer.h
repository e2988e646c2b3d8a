#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace zentho {

/// Writes text to a file line by line. Owns the file.
///
/// Each line is one unbuffered write. This is slow but deliberate: anyone watching the output sees
/// the progress, and an interrupted run keeps all lines so far.
///
/// Errors are not reported. After a failed open or write, further lines are dropped, so the file
/// always holds a prefix of the text. A write that would block, because somebody has set O_NONBLOCK
/// on a shared terminal or pipe, is not a failure: the writer waits.
class LineWriter {
 public:
  /// Opens the file at `path` and truncates it, or creates it.
  explicit LineWriter(const std::string& path);

  /// Takes ownership of a file descriptor. A negative one drops all lines.
  explicit LineWriter(int descriptor) : file(descriptor) {}

  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;
  ~LineWriter();

  /// Writes the concatenated pieces and a line feed. Throws only if memory runs out.
  void writeLine(std::initializer_list<std::string_view> pieces);

 private:
  int file;
  bool failed = false;  ///< Set by the first failed write.
  std::string buffer;   ///< The current line; a member so that its allocation is reused.
};

/// Writes one line to standard output, like `LineWriter::writeLine`.
void printLine(std::initializer_list<std::string_view> pieces);

}  // namespace zentho
