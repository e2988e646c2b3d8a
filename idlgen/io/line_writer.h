#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "io/file.h"

namespace zentho {

/// Writes text line by line, to a file that it owns or to a string.
///
/// In a file, each line is one unbuffered write. This is slow but deliberate: anyone watching the
/// output sees the progress, and an interrupted run keeps all lines so far.
///
/// Errors are not reported. After a failed open or write, further lines are dropped, so the file
/// always holds a prefix of the text.
class LineWriter {
 public:
  /// Opens the file at `path` and truncates it, or creates it.
  explicit LineWriter(const std::string& path);

  /// Takes ownership of a file descriptor. A negative one drops all lines.
  explicit LineWriter(int descriptor) : file(descriptor) {}

  /// Appends the lines to a string, which must outlive the writer.
  explicit LineWriter(std::string* target) : file(-1), text(target) {}

  /// Writes the concatenated pieces and a line feed. Throws only if memory runs out.
  void writeLine(std::initializer_list<std::string_view> pieces);

 private:
  Descriptor file;
  bool failed = false;          ///< Set by the first failed write.
  std::string line;             ///< A member so that its allocation is reused.
  std::string* text = nullptr;  ///< If set, the lines are appended to it and not written.
};

/// Writes one line to standard output, like `LineWriter::writeLine`.
void printLine(std::initializer_list<std::string_view> pieces);

}  // namespace zentho
