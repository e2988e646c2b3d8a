#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "io/file.h"

namespace zentho {

/// Writes text line by line.
class LineWriter {
 public:
  virtual ~LineWriter() = default;

  /// Writes the concatenated pieces and a line feed. Throws only if memory runs out.
  virtual void writeLine(std::initializer_list<std::string_view> pieces) = 0;
};

namespace idlgen {

/// Writes each line to a file with one unbuffered write. This is slow but deliberate: anyone
/// watching the output sees the progress, and an interrupted run keeps all lines so far.
///
/// Errors are not reported. After a failed open or write, further lines are dropped, so the file
/// always holds a prefix of the text.
class FileLineWriter final : public LineWriter {
 public:
  /// Opens the file at `path` and truncates it, or creates it.
  explicit FileLineWriter(const std::string& path);

  /// Takes ownership of a file descriptor. A negative one drops all lines.
  explicit FileLineWriter(int descriptor) : file(descriptor) {}

  void writeLine(std::initializer_list<std::string_view> pieces) override;

 private:
  Descriptor file;
  bool failed = false;  ///< Set by the first failed write.
  std::string line;     ///< A member so that its allocation is reused.
};

/// Appends the lines to a string.
class StringLineWriter final : public LineWriter {
 public:
  void writeLine(std::initializer_list<std::string_view> pieces) override;

  std::string text;
};

/// Writes one line to standard output, like `FileLineWriter`.
void printLine(std::initializer_list<std::string_view> pieces);

}  // namespace idlgen
}  // namespace zentho
