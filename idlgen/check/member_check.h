#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "check/context.h"
#include "names/type_lookup.h"

namespace zentho::idlgen {

/// Checks the members of a file, record after record.
class MemberCheck {
 public:
  explicit MemberCheck(Context& fileContext) : context(fileContext) {}

  /// Begins the members of a message, or a service.
  void startRecord(std::size_t name);

  /// Begins the members of a request or a response.
  void startPart(std::size_t keyword);

  /// Checks the member with this type, whose name is the word before it.
  void checkMember(std::size_t type);

 private:
  /// Where a name has last been used, as the indexes of words.
  struct Uses {
    std::size_t asMember = noWord;
    std::size_t asType = noWord;  ///< Without dots, or before the first one.
  };

  /// What the word of a type is.
  enum class TypeWord : std::uint8_t {
    Type,
    Elsewhere,  ///< Perhaps a type that another file declares.
    Wrong       ///< It has been reported.
  };

  TypeWord checkTypeWord(std::size_t i);
  TypeWord checkTemplate(std::size_t i, std::string_view type);
  TypeWord checkPath(std::size_t i, std::string_view type, bool isVector);
  TypeWord checkName(std::size_t i, std::string_view type, bool isVector);
  TypeWord checkFound(std::size_t i, std::string_view type, bool isVector, const Found& found);
  [[nodiscard]] const Rule* ruleForTemplateName(std::string_view name) const;
  [[nodiscard]] const Rule* ruleFor(const Found& found, std::string_view type, bool isVector) const;
  [[nodiscard]] bool isReportedItem(const Declaration& item) const;
  bool checkParts(std::size_t i, std::string_view type);
  void checkChange(std::size_t name, const Uses& use);
  void checkLibrary(std::size_t i);

  /// Returns whether a type of this name is, or may be, declared further out.
  [[nodiscard]] bool hasOuterType(std::string_view name) const;

  /// Returns whether a use is in the list of members so far.
  [[nodiscard]] bool isInThisList(std::size_t use) const {
    return use != noWord && use > listBegin;
  }

  [[nodiscard]] Found find(std::string_view type) const {
    return TypeLookup(context.lookup, scope).find(type);
  }

  Context& context;
  const Words& words = context.words;
  Scope scope;
  std::size_t listBegin = 0;
  std::size_t requestWord = noWord;  ///< Of the service.
  bool isLibraryChecked = false;
  /// The uses in earlier lists stay, which is faster than to remove them.
  std::unordered_map<std::string_view, Uses> uses;
};

}  // namespace zentho::idlgen
