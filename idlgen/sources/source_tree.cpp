#include "sources/source_tree.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "io/file.h"

namespace zentho::idlgen {
namespace {

Entry Failure(const std::error_code& error) {
  return {IsMissing(error) ? Entry::Kind::Missing : Entry::Kind::Unreadable, {}, error};
}

Entry EntryOf(const struct stat& status) {
  const FileId id = {status.st_dev, status.st_ino};
  if (S_ISREG(status.st_mode)) return {Entry::Kind::File, id};
  return {S_ISDIR(status.st_mode) ? Entry::Kind::Directory : Entry::Kind::Other, id};
}

}  // namespace

Entry DiskTree::look(const std::string& path) {
  // An IDL file may name a path that the system would cut.
  if (path.find('\0') != std::string::npos) {
    return Failure(std::make_error_code(std::errc::no_such_file_or_directory));
  }
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? EntryOf(status) : Failure(LastError());
}

Entry DiskTree::read(const std::string& path, std::string& text) {
  // Does not wait for the writer of a FIFO that has just replaced the file.
  const Descriptor file(openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) return Failure(LastError());
  Entry entry = EntryOf(status);
  if (entry.kind != Entry::Kind::File) return entry;
  entry.error = readAll(file.get(), text);
  if (entry.error) entry.kind = Entry::Kind::Unreadable;
  return entry;
}

std::error_code DiskTree::list(const std::string& directory, std::vector<std::string>& names) {
  names.clear();
  std::error_code error;
  std::filesystem::directory_iterator entry(directory, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return error;
}

}  // namespace zentho::idlgen
