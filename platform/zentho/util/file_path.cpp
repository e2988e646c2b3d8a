#include "zentho/util/file_path.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace zentho::util {

void FilePath::createFile(const char* path) try {
  std::error_code refused;
  if (std::filesystem::exists(path, refused)) return;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), refused);
  // Appending nothing leaves the file alone if another process has made it in the meantime.
  if (std::FILE* file = std::fopen(path, "a")) std::fclose(file);
} catch (...) {
  // Out of memory; the caller sees it by the file that is still not there.
}

}  // namespace zentho::util
