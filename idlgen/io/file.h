#pragma once

#include <cstdio>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace zentho {

/// Closes the file that a `File` holds.
struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// An open file, closed with its owner; null when it could not be opened.
using File = std::unique_ptr<std::FILE, FileCloser>;

/// Opens the file at `path` for writing, without its earlier content and without a buffer, so that
/// a line of any length goes out in a single write. Null if the system refuses.
File createUnbuffered(const std::string& path);

/// Writes one line to `stream`: the pieces with nothing between them, then a line feed. The line is
/// flushed before the call returns.
///
/// Nothing is reported. A null stream takes nothing, and neither does one that has refused a line:
/// what it got stays a beginning of the whole text, without holes. Throws only for want of memory.
void writeLine(std::FILE* stream, std::initializer_list<std::string_view> pieces);

}  // namespace zentho
