#include "io/file.h"

namespace zentho {

File createUnbuffered(const std::string& path) {
  File file(std::fopen(path.c_str(), "w"));
  if (file != nullptr) std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

void writeLine(std::FILE* stream, std::initializer_list<std::string_view> pieces) {
  if (stream == nullptr || std::ferror(stream) != 0) return;
  thread_local std::string line;  // Kept for its memory, which then serves all lines.
  line.clear();
  for (const std::string_view piece : pieces) line += piece;
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stream);
  std::fflush(stream);
}

}  // namespace zentho
