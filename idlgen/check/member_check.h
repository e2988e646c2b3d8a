#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/file_check.h"

namespace zentho::idlgen {

/// Checks members: their names and their types.
class MemberCheck {
 public:
  explicit MemberCheck(FileCheck& fileCheck) : check(fileCheck) {}

  /// Begins the members of a message, or a service.
  void startRecord(std::size_t i);

  /// Begins the members of a request or a response.
  void startPart(std::size_t i);

  /// Checks the name of a member by itself.
  void checkName(std::size_t i);

  /// Checks the type of a member, and the whole member.
  void checkType(std::size_t i);

 private:
  /// Where a name has last been used, as the indexes of words.
  struct Uses {
    std::size_t asMember = noWord;
    std::size_t asType = noWord;  ///< Without dots, or before the first one.
  };

  // These return what the word of a type is: a type, or `Elsewhere` if another file may declare it.
  // Nothing if something has been reported.
  using TypeMeaning = std::optional<Meaning>;
  TypeMeaning checkTypeWord(std::size_t i);
  TypeMeaning checkTemplate(std::size_t i, std::string_view type);
  TypeMeaning checkPath(std::size_t i, std::string_view type, bool isVector);
  TypeMeaning checkFound(std::size_t i, std::string_view type, bool isVector, const Found& found);

  bool checkParts(std::size_t i, const std::vector<std::string_view>& parts);
  bool checkIsVisible(std::size_t i, std::string_view type, const Uses& use);
  void checkMeaning(std::size_t i, const Uses& use);
  void checkLibrary(std::size_t i);
  [[nodiscard]] const Rule* ruleFor(const Found& found, std::string_view type, bool isVector) const;
  [[nodiscard]] bool isTypeElsewhere(std::string_view name) const;

  /// Returns whether a use is in the list so far.
  [[nodiscard]] bool isInList(std::size_t use) const { return use != noWord && use > listBegin; }

  FileCheck& check;
  const Words& words = check.words;
  Scope scope;
  std::size_t listBegin = 0;
  bool hasName = false;              ///< Whether the last name of a member may be one.
  std::size_t requestWord = noWord;  ///< Of the service.
  bool isLibraryChecked = false;
  /// The uses in earlier lists stay, which is faster than to remove them.
  std::unordered_map<std::string_view, Uses> uses;
};

}  // namespace zentho::idlgen
