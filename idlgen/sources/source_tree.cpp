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

/// Returns the directory above one, if its path names it.
std::string Above(const std::string& directory) {
  const std::string path = directory.substr(0, directory.rfind('/'));
  const std::string name = FileName(path);
  if (name.empty() || name == "." || name == "..") return directory + "../";
  return DirectoryOf(path);
}

std::string Opened(const std::string& path) {
  return path.empty() ? "." : path;
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

Listing DiskTree::list(const std::string& directory) {
  Listing result;
  std::filesystem::directory_iterator entry(directory, result.error);
  for (; !result.error && entry != std::filesystem::directory_iterator();
       entry.increment(result.error)) {
    result.names.push_back(entry->path().filename().string());
  }
  std::sort(result.names.begin(), result.names.end());
  return result;
}

std::string Joined(std::string directory, std::string_view path) {
  if (!path.empty() && path.front() == '/') directory = "/";
  while (true) {
    const std::size_t slash = path.find('/');
    const std::string_view name = path.substr(0, slash);
    if (name == "..") {
      directory = Above(directory);
    } else if (!name.empty() && name != ".") {
      directory.append(name).append(slash == std::string_view::npos ? "" : "/");
    }
    if (slash == std::string_view::npos) return directory;
    path.remove_prefix(slash + 1);
  }
}

std::vector<std::string> Ancestors(std::string directory) {
  std::vector<std::string> result = {directory};
  while (true) {
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
    const std::string name = FileName(directory);
    if (name.empty() || name == "..") return result;
    directory = DirectoryOf(directory);
    result.push_back(directory);
  }
}

const Entry& PathCache::look(const std::string& path) {
  static const Entry missing = {Entry::Kind::Missing};
  const std::string directory = DirectoryOf(path);
  // Most files that are looked for in vain would be in a directory that does not exist either.
  if (path != directory && look(directory).kind == Entry::Kind::Missing) return missing;
  const auto [known, isNew] = entries.try_emplace(path);
  if (isNew) known->second = tree.look(Opened(path));
  return known->second;
}

const Listing& PathCache::list(const std::string& directory) {
  const auto [known, isNew] = listings.try_emplace(directory);
  if (isNew) known->second = tree.list(Opened(directory));
  return known->second;
}

}  // namespace zentho::idlgen
