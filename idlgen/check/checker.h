#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/value.h"
#include "findings/finding.h"
#include "names/declarations.h"
#include "names/lookup.h"
#include "names/sight.h"
#include "schema/builtin_types.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// Where a name has last been used, as the indexes of words. 0 if never.
struct Uses {
  std::size_t asMember = 0;
  std::size_t asType = 0;  ///< Without dots, or before the first one.
};

/// What the word of a member's type is.
enum class TypeWord : std::uint8_t {
  Type,
  Unknown,  ///< Perhaps a type that another file declares.
  Wrong     ///< It has been reported.
};

/// The headers of the library that built-in types need.
struct LibraryHeaders {
  bool cstdint = false;
  bool string = false;
};

/// One pass over the words of a file, which looks at each of them.
class Checker {
 public:
  /// `isOpen` says whether names may come from what has not been read.
  Checker(const Declarations& fileDeclarations, const Sight& fileSight, std::size_t fileIndex,
          bool isOpen)
      : declarations(fileDeclarations),
        sight(fileSight),
        file(fileIndex),
        words(*fileDeclarations.file(fileIndex).words),
        lookup(fileDeclarations, fileSight, fileIndex, isOpen) {}

  void checkWord(std::size_t i);

  std::vector<Finding> findings;

 private:
  void checkInclude(std::size_t i);
  void checkNamespace(std::size_t i);
  void checkRecordName(std::size_t i);
  void checkItemName(std::size_t i);
  void checkIsNew(std::size_t i);
  void checkValue(std::size_t i);
  [[nodiscard]] NameKind kindInValue(std::string_view name, std::size_t value) const;
  void checkMember(std::size_t i);
  void checkMeaning(std::size_t i, const Uses& use);
  TypeWord checkTypeWord(std::size_t i);
  void checkLibrary(std::size_t i);
  TypeWord checkTemplate(std::size_t i, std::string_view type);
  bool checkParts(std::size_t i, const std::vector<std::string_view>& parts);
  TypeWord checkName(std::size_t i, std::string_view type, bool isVector);
  TypeWord checkFound(std::size_t i, std::string_view type, bool isVector, const Found& found);

  [[nodiscard]] const Rule* ruleFor(const Found& found, std::string_view type, bool isVector) const;

  /// Returns whether the text is a name that C++ compilers accept.
  bool checkNewName(std::size_t i, std::string_view text);

  /// Returns whether the declaration of the name would be one of an existing namespace.
  [[nodiscard]] bool isGlobalNamespace(std::string_view name) const {
    return declarations.file(file).namespaces.size() == 1 && (name == "std" || name == "zentho");
  }

  /// Returns whether the header has functions, which those of enums do not need.
  [[nodiscard]] bool hasFunctions() const {
    const auto isRecord = [](Role role) {
      return role == Role::MessageName || role == Role::ServiceName;
    };
    return std::any_of(words.roles.begin(), words.roles.end(), isRecord);
  }

  /// Returns what the header includes.
  [[nodiscard]] const LibraryHeaders& libraryHeaders() const;

  /// Returns whether C++ knows the type, as far as the includes of the header show.
  [[nodiscard]] bool isLibraryType(std::string_view type) const;

  /// Begins the members of a message, request or response, after this word.
  void startMembers(std::size_t word, std::size_t record, Scope::Part part);

  /// Returns whether a use is in the list so far.
  [[nodiscard]] bool isInList(std::size_t use) const { return use > listBegin; }

  void report(const Rule& rule, std::size_t i, std::size_t other = noWord) {
    findings.push_back({&rule, i, words[i].text, {other}});
  }
  void reportPart(const Rule& rule, std::size_t i, std::string_view text,
                  std::size_t other = noWord) {
    findings.push_back({&rule, i, text, {other}});
  }

  void reportOther(const Rule& rule, std::size_t i, std::string_view text,
                   const Declaration& other) {
    findings.push_back({&rule, i, text, {other.word, other.file == file ? nothing : other.file}});
  }
  /// Returns the first declaration of a name in a namespace that another file brings and for which
  /// this holds, or `nothing`.
  template <typename Predicate>
  [[nodiscard]] std::size_t broughtInto(std::size_t space, std::string_view name,
                                        const Predicate& holds) const {
    std::size_t d = declarations.firstIn(space, name);
    const auto isBrought = [&] {
      const std::size_t other = declarations[d].file;
      return other != file && sight.hasFile(other) && holds(declarations[d]);
    };
    while (d != nothing && !isBrought()) d = declarations[d].next;
    return d;
  }
  bool reportHiding(const Rule& rule, std::size_t i, std::string_view text, std::size_t space,
                    std::string_view name);
  void reportNamespace(const Rule& rule, std::size_t i, std::string_view name, std::size_t space);

  const Declarations& declarations;
  const Sight& sight;
  std::size_t file;
  const Words& words;
  Lookup lookup;
  Scope scope;
  std::size_t enumName = 0;  ///< The word of the last one.
  std::size_t listBegin = 0;
  bool hasMemberName = false;  ///< Whether the last name of a member may be one.
  bool isLibraryChecked = false;
  mutable std::optional<LibraryHeaders> headers;  ///< Made when needed: it takes a whole pass.
  std::size_t requestWord = 0;                    ///< Of the service.
  /// The uses in earlier lists stay, which is faster than to remove them.
  std::unordered_map<std::string_view, Uses> uses;
};

}  // namespace zentho::idlgen
