#pragma once

#include <cstdint>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace zentho::idlgen {

/// Two paths with one identity lead to one file. On disk, the numbers of its device and inode.
using FileId = std::pair<std::uint64_t, std::uint64_t>;

/// What a path leads to.
struct Entry {
  enum class Kind : std::uint8_t {
    Missing,  ///< Nothing.
    Directory,
    Other,       ///< A FIFO, a device or a socket.
    Unreadable,  ///< Something that cannot be examined or read.
    File
  };

  Kind kind;
  FileId id = {};              ///< If there is something that could be examined.
  std::error_code error = {};  ///< Why it is missing or unreadable.
};

/// Where the files of a check come from. Links are followed.
class SourceTree {
 public:
  virtual ~SourceTree() = default;

  /// Returns what the path leads to, and opens nothing.
  virtual Entry look(const std::string& path) = 0;

  /// Reads a file that `look` has found, and returns what it really was. Of anything but a file,
  /// nothing is read.
  virtual Entry read(const std::string& path, std::string& text) = 0;

  /// Gives the names in a directory, in alphabetical order. After an error, some may be missing.
  virtual std::error_code list(const std::string& directory, std::vector<std::string>& names) = 0;
};

/// The files on disk.
class DiskTree final : public SourceTree {
 public:
  Entry look(const std::string& path) override;
  Entry read(const std::string& path, std::string& text) override;
  std::error_code list(const std::string& directory, std::vector<std::string>& names) override;
};

}  // namespace zentho::idlgen
