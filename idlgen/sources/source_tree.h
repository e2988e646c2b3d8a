#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
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
  std::error_code error = {};  ///< Why it is unreadable or, if that is known, missing.
};

/// The names in a directory, in alphabetical order. After an error, some may be missing.
struct Listing {
  std::vector<std::string> names;
  std::error_code error;
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

  virtual Listing list(const std::string& directory) = 0;
};

/// The files on disk.
class DiskTree final : public SourceTree {
 public:
  Entry look(const std::string& path) override;
  Entry read(const std::string& path, std::string& text) override;
  Listing list(const std::string& directory) override;
};

/// Joins a directory and a path as text: ".." takes a name off. An absolute path stays alone.
std::string Joined(std::string directory, std::string_view path);

/// Returns a directory and each one above it that its path names.
std::vector<std::string> Ancestors(std::string directory);

/// Looks at each path and lists each directory once, since many includes may lead there. The path
/// of a directory is empty, for the current one, or has a '/' at its end.
class PathCache {
 public:
  explicit PathCache(SourceTree& sourceTree) : tree(sourceTree) {}

  const Entry& look(const std::string& path);
  const Listing& list(const std::string& directory);

 private:
  SourceTree& tree;
  std::unordered_map<std::string, Entry> entries;
  std::unordered_map<std::string, Listing> listings;
};

}  // namespace zentho::idlgen
