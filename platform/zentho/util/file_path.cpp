#include "zentho/util/file_path.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace zentho::util {

void FilePath::createFile(const char* path) {
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored)) return;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
  // Opened for appending, in case another process has created the file in the meantime.
  if (std::FILE* file = std::fopen(path, "a")) std::fclose(file);
}

}  // namespace zentho::util
