#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/check.h"
#include "schema/parser.h"

namespace zentho {

/// No index of a declaration, file or namespace.
constexpr std::size_t nothing = static_cast<std::size_t>(-1);

/// A name that a file declares: of an enum, a message, a service or an item.
struct Declaration {
  std::size_t file;
  std::size_t word;
  Role role;
  std::size_t next;  ///< The next one of the same name in the same namespace, or `nothing`.

  [[nodiscard]] bool isItem() const { return role == Role::ItemName; }
};

/// A namespace into which files declare names. The first one is the global namespace.
struct Namespace {
  std::unordered_map<std::string_view, std::size_t> names;   ///< The first declarations.
  std::unordered_map<std::string_view, std::size_t> nested;  ///< The namespaces inside.
};

/// What the words of some files declare. Of one file and one namespace, it has the first record and
/// the first item of each name. Refers to the words.
class Declarations {
 public:
  /// A file, and the namespaces from the global one to that of the file.
  struct File {
    const Words* words;
    const LeftOut* leftOut;
    std::vector<std::size_t> namespaces;
    bool hasInclude;
  };

  /// Adds a file, whose words must have been parsed.
  void add(const Words& words, const LeftOut& leftOut);

  [[nodiscard]] const File& file(std::size_t i) const { return files[i]; }
  [[nodiscard]] const Declaration& operator[](std::size_t i) const { return declarations[i]; }

  [[nodiscard]] std::size_t countNamespaces() const { return spaces.size(); }

  /// Returns the first declaration of a name in a namespace, or `nothing`.
  [[nodiscard]] std::size_t firstIn(std::size_t space, std::string_view name) const;

  /// Returns the namespace of this name in another one, or `nothing`.
  [[nodiscard]] std::size_t nested(std::size_t space, std::string_view name) const;

  /// Returns the index of the word that first declares a record, or an item, of this name in the
  /// file, or `noWord`.
  [[nodiscard]] std::size_t record(std::size_t file, std::string_view name) const;
  [[nodiscard]] std::size_t item(std::size_t file, std::string_view name) const;

 private:
  void declare(std::size_t file, std::size_t word, Role role);
  [[nodiscard]] std::size_t find(std::size_t file, std::string_view name, bool isItem) const;

  std::vector<File> files;
  std::vector<Namespace> spaces = std::vector<Namespace>(1);
  std::vector<Declaration> declarations;
};

}  // namespace zentho
