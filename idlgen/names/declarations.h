#pragma once

#include <cstddef>
#include <deque>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "schema/words.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

struct CheckedFile;
struct Namespace;

/// A name that a file declares: of an enum, a message, a service or an item.
struct Declaration {
  std::string_view name;  ///< As it is meant, if the word is no name.
  Role role;
  const CheckedFile* file;  ///< nullptr if the words of the file have changed since.
  std::size_t word;
  const Namespace* space;

  [[nodiscard]] bool isItem() const { return role == Role::ItemName; }
};

/// The declarations of one name in one namespace.
using Chain = std::vector<const Declaration*>;

/// A namespace into which files declare names.
struct Namespace {
  std::string_view name;  ///< Empty for the global one.
  std::size_t number;
  std::unordered_map<std::string_view, Chain> chains = {};
  std::unordered_map<std::string_view, Namespace*> nested = {};

  /// Returns the declarations of a name, which may be none.
  [[nodiscard]] const Chain& chain(std::string_view wanted) const;

  /// Returns the namespace of this name inside, or nullptr.
  [[nodiscard]] const Namespace* inner(std::string_view wanted) const;
};

/// An include statement that leads to a file which is checked, too.
struct Inclusion {
  std::size_t word;  ///< The index of the path.
  const CheckedFile* file;
};

/// A file that is checked, and what its words declare.
struct CheckedFile {
  SourceFile* source;
  std::size_t number;
  PossibleNames unread = {};  ///< What may be declared in what has not been read.
  std::vector<Inclusion> includes = {};
  std::vector<const Namespace*> namespaces = {};  ///< From the global one to that of the file.
  std::size_t namespaceWord = noWord;
  std::size_t begin = 0;  ///< Its declarations, as indexes in the list of all.
  std::size_t end = 0;

  [[nodiscard]] const LocatedWords& words() const { return source->words; }
};

/// A name that may be declared by two files which do not fit together: its declarations, and a
/// namespace of that name, or nullptr.
struct Clash {
  const Chain* chain;
  const Namespace* space;
};

/// What the words of some files declare. Of one file and one namespace, it has the first record and
/// the first item of each name. Refers to the files.
class Declarations {
 public:
  explicit Declarations(const std::vector<SourceFile*>& sources);
  Declarations(const Declarations&) = delete;
  Declarations& operator=(const Declarations&) = delete;

  /// Declares what the words of a file declare after they have changed.
  void update(const SourceFile& source);

  [[nodiscard]] const CheckedFile& fileOf(const SourceFile& source) const {
    return *fileOfSource.at(&source);
  }
  [[nodiscard]] const std::list<CheckedFile>& allFiles() const { return files; }
  [[nodiscard]] const std::deque<Declaration>& list() const { return declarations; }
  [[nodiscard]] std::size_t countNamespaces() const { return spaces.size(); }

  /// Returns what the word of a file declares, or nullptr.
  [[nodiscard]] const Declaration* declaredAt(const CheckedFile& file, std::size_t word) const;

  /// Returns whether two files include each other, also through others.
  [[nodiscard]] bool areInCycle(const CheckedFile& a, const CheckedFile& b) const;

  /// Returns the names that may clash in some of the files, in the order of their declarations.
  [[nodiscard]] const std::vector<Clash>& clashes() const;

 private:
  void declareAll(CheckedFile& file);
  Namespace& enterNamespace(CheckedFile& file);
  std::string_view declaredName(std::string_view word);
  void declare(Namespace& space, CheckedFile& file, std::size_t word);
  void findIncludes(CheckedFile& file);

  std::list<CheckedFile> files;
  std::list<Namespace> spaces;
  std::deque<Declaration> declarations;
  std::list<std::string> meantNames;  ///< Of words that are none, which the declarations refer to.
  std::unordered_map<const SourceFile*, CheckedFile*> fileOfSource;
  mutable std::optional<std::vector<Clash>> knownClashes;
  mutable std::vector<std::size_t> knownCycles;  ///< Empty if they are not known.
};

}  // namespace zentho::idlgen
