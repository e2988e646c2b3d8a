#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "findings/finding.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// What stands in a file but is not among the words that are checked.
struct LeftOut {
  std::unordered_set<std::string_view> names;  ///< May be declared there.
  bool mayDeclareAnything = false;             ///< Such as an include.
};

/// A name that a file declares: of an enum, a message, a service or an item.
struct Declaration {
  std::size_t file;  ///< `nothing` if the file has been replaced.
  std::size_t word;
  Role role;
  std::size_t next;  ///< The next one of the same name in the same namespace, or `nothing`.

  [[nodiscard]] bool isItem() const { return role == Role::ItemName; }
};

/// A name that may be declared by two files which do not fit together: the first of its
/// declarations, and a namespace of that name, or `nothing`.
struct Clash {
  std::size_t declaration;
  std::size_t space;
};

/// Two declarations of one name, in different files.
struct ClashingWords {
  std::string_view name;
  WordInFile first;
  WordInFile second;
  bool inAnyOrder = true;  ///< Otherwise they only clash if the first one comes first.
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
    std::vector<std::size_t> namespaces = {};
    std::vector<std::string_view> namespaceNames = {};  ///< Of all but the global one.
    std::size_t namespaceWord = noWord;
    std::unordered_set<std::string_view> namesInOthers = {};  ///< In what is no name, as in `P(x`.
    bool hasInclude = false;
  };

  /// Adds a file, whose words must have been parsed.
  void add(const Words& words, const LeftOut& leftOut);

  /// Replaces the words of a file.
  void replace(std::size_t file, const Words& words, const LeftOut& leftOut);

  [[nodiscard]] const File& file(std::size_t i) const { return files[i]; }
  [[nodiscard]] const Declaration& operator[](std::size_t i) const { return declarations[i]; }

  [[nodiscard]] std::size_t countNamespaces() const { return spaces.size(); }

  /// Returns the first declaration of a name in a namespace, or `nothing`.
  [[nodiscard]] std::size_t firstIn(std::size_t space, std::string_view name) const;

  /// Returns whether one of the files declares an item of this name, in any namespace.
  [[nodiscard]] bool hasItem(std::string_view name) const;

  [[nodiscard]] std::size_t count() const { return declarations.size(); }

  /// Returns the names that clash in some of the files.
  [[nodiscard]] std::vector<Clash> clashes() const;

  /// Returns the first two of the files that are seen which clash, if there are any.
  template <typename IsSeen>
  [[nodiscard]] std::optional<ClashingWords> firstTwo(const Clash& clash,
                                                      const IsSeen& isSeen) const;

  /// Returns the namespace of this name in another one, or `nothing`.
  [[nodiscard]] std::size_t nested(std::size_t space, std::string_view name) const;

  /// Returns the index of the word that first declares a record, or an item, of this name in the
  /// file, or `noWord`.
  [[nodiscard]] std::size_t record(std::size_t file, std::string_view name) const;
  [[nodiscard]] std::size_t item(std::size_t file, std::string_view name) const;

 private:
  /// Returns the first file that is seen and declares something in the namespace, or `nothing`.
  template <typename IsSeen>
  [[nodiscard]] std::size_t fileOf(std::size_t space, const IsSeen& isSeen) const;

  void declareAll(std::size_t file);
  void declare(std::size_t file, std::size_t word, Role role);
  [[nodiscard]] std::size_t find(std::size_t file, std::string_view name, bool isItem) const;

  std::vector<File> files;
  std::vector<Namespace> spaces = std::vector<Namespace>(1);
  std::vector<Declaration> declarations;
};

template <typename IsSeen>
std::size_t Declarations::fileOf(std::size_t space, const IsSeen& isSeen) const {
  for (std::size_t file = 0; file < files.size(); ++file) {
    const std::vector<std::size_t>& own = files[file].namespaces;
    if (isSeen(file) && std::find(own.begin(), own.end(), space) != own.end()) return file;
  }
  return nothing;
}

template <typename IsSeen>
std::optional<ClashingWords> Declarations::firstTwo(const Clash& clash,
                                                    const IsSeen& isSeen) const {
  std::size_t record = nothing;
  std::size_t item = nothing;
  for (std::size_t i = clash.declaration; i != nothing; i = declarations[i].next) {
    const Declaration& declaration = declarations[i];
    if (declaration.file == nothing || !isSeen(declaration.file)) continue;
    std::size_t& first = declaration.isItem() ? item : record;
    if (first == nothing) {
      first = i;
    } else if (declarations[first].file != declaration.file) {
      return ClashingWords{files[declaration.file].words->texts[declaration.word],
                           {declarations[first].word, declarations[first].file},
                           {declaration.word, declaration.file}};
    }
  }
  if (record != nothing && item != nothing && declarations[record].role == Role::MessageName &&
      declarations[record].file != declarations[item].file) {
    const Declaration& type = declarations[record];
    return ClashingWords{files[type.file].words->texts[type.word],
                         {declarations[item].word, declarations[item].file},
                         {type.word, type.file},
                         false};
  }
  const std::size_t name = record != nothing ? record : item;
  if (name == nothing || clash.space == nothing) return std::nullopt;
  const std::size_t file = fileOf(clash.space, isSeen);
  if (file == nothing) return std::nullopt;
  const Declaration& declaration = declarations[name];
  return ClashingWords{files[declaration.file].words->texts[declaration.word],
                       {declaration.word, declaration.file},
                       {files[file].namespaceWord, file}};
}

}  // namespace zentho::idlgen
