#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "findings/finding.h"
#include "names/declarations.h"
#include "names/lookup.h"
#include "names/view.h"

namespace zentho::idlgen {

/// The check of one file: what it sees, and what is wrong with it.
class FileCheck {
 public:
  FileCheck(const Declarations& allDeclarations, const View& viewOfFile);

  /// Reports the word, or a part of it.
  void report(const Rule& rule, std::size_t i) { report(rule, i, words.text(i)); }
  void report(const Rule& rule, std::size_t i, std::string_view text) {
    findings.push_back({&rule, i, text});
  }
  /// Reports it with a note about another word.
  void report(const Rule& rule, std::size_t i, std::string_view text, std::size_t other) {
    findings.push_back({&rule, i, text, {}, {{file.source, other}}});
  }
  void report(const Rule& rule, std::size_t i, std::string_view text, const Declaration& other) {
    findings.push_back({&rule, i, text, {}, {{other.file->source, other.word}}});
  }
  /// Reports it with a note about the first statement that another file has for the namespace.
  void report(const Rule& rule, std::size_t i, std::string_view text, const Namespace& space);

  /// Reports that another file has a type or a namespace of this name in a namespace, if one does.
  bool reportHiding(const Rule& rule, std::size_t i, std::string_view text, const Namespace& space,
                    std::string_view name);

  /// Reports a name that C++ compilers do not accept. Returns whether it can be one.
  bool checkNewName(std::size_t i, std::string_view text);

  const View& view;
  const File& file;
  const Words& words;
  Lookup lookup;
  std::vector<Finding> findings;
  const Declarations& declarations;
};

}  // namespace zentho::idlgen
