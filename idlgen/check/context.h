#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "findings/finding.h"
#include "names/declarations.h"
#include "names/lookup.h"
#include "names/view.h"

namespace zentho::idlgen {

/// What the checks of one file share: what it sees, and what is wrong with it.
class Context {
 public:
  explicit Context(const View& viewOfFile);

  /// Reports the word.
  void report(const Rule& rule, std::size_t i) { report(rule, i, words.text(i)); }

  /// Reports a part of the word, with a note about each of the others.
  void report(const Rule& rule, std::size_t i, std::string_view text,
              std::vector<WordOf> others = {}) {
    findings.push_back({&rule, i, text, {}, std::move(others)});
  }
  void report(const Rule& rule, std::size_t i, std::string_view text, const Declaration& other) {
    report(rule, i, text, {{other.file->source, other.word}});
  }
  /// Returns a word of the file, for a note.
  [[nodiscard]] WordOf own(std::size_t word) const { return {file.source, word}; }

  /// Reports that another file has a record or a namespace of this name in a namespace. Returns
  /// whether one does.
  bool reportHiding(const Rule& rule, std::size_t i, std::string_view text, const Namespace& space,
                    std::string_view name);

  /// Reports a namespace, with a note about the first statement that another file has for it.
  /// Returns whether there is one.
  bool reportNamespace(const Rule& rule, std::size_t i, std::string_view text,
                       const Namespace* space);

  /// Reports what C++ compilers do not accept as a name, or only some. Returns whether it is one.
  bool checkNewName(std::size_t i, std::string_view text);

  const View& view;
  const CheckedFile& file;
  const Words& words;
  Lookup lookup;
  std::vector<Finding> findings;
  bool isEnumRepeated = false;  ///< Whether another enum has the name of the last one.
  std::unordered_set<std::string_view> reportedPaths;  ///< Of includes that cannot be read, too.
};

}  // namespace zentho::idlgen
