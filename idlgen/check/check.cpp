#include "check/check.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "check/cpp_words.h"
#include "check/declarations.h"
#include "check/lookup.h"
#include "check/sight.h"
#include "check/value.h"
#include "check/word_forms.h"
#include "schema/builtin_types.h"

namespace zentho {
namespace {

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

/// Returns whether no character of the word can be part of a name, as in `=`, `<<` or `//`.
bool IsPunctuation(std::string_view word) {
  return std::none_of(word.begin(), word.end(),
                      [](char byte) { return IsNameCharacter(static_cast<unsigned char>(byte)); });
}

/// One pass over the words of a file.
class Checker {
 public:
  Checker(const Declarations& fileDeclarations, const Sight& sight, std::size_t fileIndex)
      : declarations(fileDeclarations),
        file(fileIndex),
        words(*fileDeclarations.file(fileIndex).words),
        lookup(fileDeclarations, sight, fileIndex, fileDeclarations.file(fileIndex).hasInclude) {}

  void checkWord(std::size_t i);

  std::vector<Finding> findings;

 private:
  void checkInclude(std::size_t i);
  void checkNamespace(std::size_t i);
  void checkRecordName(std::size_t i);
  void checkItemName(std::size_t i);
  void checkValue(std::size_t i);
  void checkMember(std::size_t i);
  void checkMeaning(std::size_t i, const Uses& use);
  TypeWord checkTypeWord(std::size_t i);
  TypeWord checkTemplate(std::size_t i, std::string_view type);
  bool checkParts(std::size_t i, const std::vector<std::string_view>& parts);
  TypeWord checkName(std::size_t i, std::string_view type, bool isVector);
  TypeWord checkFound(std::size_t i, std::string_view type, bool isVector, const Found& found);

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

  /// Begins the members of a message, request or response, behind this word.
  void startMembers(std::size_t word, std::size_t record, Scope::Part part);

  /// Returns whether a use is in the list so far.
  [[nodiscard]] bool isInList(std::size_t use) const { return use > listBegin; }

  void report(const Rule& rule, std::size_t i, std::size_t other = noWord) {
    findings.push_back({&rule, i, words[i].text, other});
  }
  void reportPart(const Rule& rule, std::size_t i, std::string_view text,
                  std::size_t other = noWord) {
    findings.push_back({&rule, i, text, other});
  }

  const Declarations& declarations;
  std::size_t file;
  const Words& words;
  Lookup lookup;
  Scope scope;
  std::size_t listBegin = 0;
  std::size_t requestWord = 0;  ///< Of the service.
  /// The uses in earlier lists stay, which is faster than to remove them.
  std::unordered_map<std::string_view, Uses> uses;
};

void Checker::checkWord(std::size_t i) {
  switch (words[i].role) {
    case Role::IncludePath:
      return checkInclude(i);
    case Role::NamespacePath:
      return checkNamespace(i);
    case Role::EnumName:
      return checkRecordName(i);
    case Role::MessageName:
    case Role::ServiceName:
      startMembers(i, i, Scope::Part::None);
      return checkRecordName(i);
    case Role::Part:
      return startMembers(
          i, scope.record,
          words[i].text == "request" ? Scope::Part::Request : Scope::Part::Response);
    case Role::ItemName:
      return checkItemName(i);
    case Role::ItemValue:
      return checkValue(i);
    case Role::MemberName:
      checkNewName(i, words[i].text);
      return;
    case Role::MemberType:
      return checkMember(i);
    case Role::Statement:
    case Role::Brace:
    case Role::Unread:
      return;
  }
}

void Checker::startMembers(std::size_t word, std::size_t record, Scope::Part part) {
  scope = {record, part};
  listBegin = word;
  if (part == Scope::Part::Request) requestWord = word;
}

void Checker::checkInclude(std::size_t i) {
  switch (FormOfInclude(words[i].text)) {
    case IncludeForm::Path:
      return;
    case IncludeForm::Unquoted:
      return report(rules::unquotedPath, i);
    case IncludeForm::Unterminated:
      return report(rules::unterminatedPath, i);
    case IncludeForm::NoExtension:
      return report(rules::noExtension, i);
    case IncludeForm::Invalid:
      return report(rules::notAPath, i);
  }
}

void Checker::checkNamespace(std::size_t i) {
  const std::vector<std::string_view> parts = Components(words[i].text);
  std::vector<std::string_view> names;
  for (const std::string_view part : parts) {
    if (part.empty()) continue;
    names.push_back(part);
    if (checkNewName(i, part) && part == "std") reportPart(rules::hidesStd, i, part);
  }
  // The first part is empty before a leading dot.
  if (names.empty() || std::count(parts.begin() + 1, parts.end(), "") > 0) {
    report(rules::emptyNamespace, i);
  }
  // The functions of the header stand in the namespace of the framework.
  const std::size_t top = !names.empty() && names.front() == "zentho" ? 1 : 0;
  const bool hidesBuffer = top < names.size() && names[top] == "BytesBuffer";
  if (hidesBuffer && hasFunctions()) reportPart(rules::frameworkName, i, names[top]);
}

bool Checker::checkNewName(std::size_t i, std::string_view text) {
  if (!IsIdentifier(text)) {
    reportPart(rules::notAName, i, text);
    return false;
  }
  const Keyword keyword = FindKeyword(text);
  if (keyword == Keyword::Cpp20) {
    reportPart(rules::laterKeyword, i, text);
  } else if (keyword != Keyword::None) {
    reportPart(rules::keywordAsName, i, text);
    return false;
  } else if (IsReserved(text)) {
    reportPart(rules::reservedName, i, text);
  }
  return true;
}

void Checker::checkRecordName(std::size_t i) {
  const std::string_view name = words[i].text;
  if (!checkNewName(i, name)) return;
  const bool isService = words[i].role == Role::ServiceName;
  if (isGlobalNamespace(name)) {
    report(rules::globalNamespace, i);
  } else if (name == "std") {
    report(rules::hidesStd, i);
  }
  if (isService && (name == "Request" || name == "Response")) report(rules::nestedTypeAsService, i);

  const std::size_t record = declarations.record(file, name);
  const std::size_t item = declarations.item(file, name);
  if (record < i) {
    report(rules::declaredTwice, i, record);
  } else if (item < i && words[i].role == Role::MessageName) {
    report(rules::itemTwice, i, item);
  }
}

void Checker::checkItemName(std::size_t i) {
  const std::string_view name = words[i].text;
  if (!checkNewName(i, name)) return;
  if (isGlobalNamespace(name)) report(rules::globalNamespace, i);
  const std::size_t item = declarations.item(file, name);
  const std::size_t record = declarations.record(file, name);
  if (item < i) {
    report(rules::itemTwice, i, item);
  } else if (record < i && words[record].role == Role::MessageName) {
    report(rules::declaredTwice, i, record);
  }
}

void Checker::checkValue(std::size_t i) {
  if (IsPunctuation(words[i - 1].text)) return;  // The name has been reported.
  const Value value = ReadValue(words[i].text);
  if (!value.isValid) return report(rules::notAValue, i);
  if (!value.tooLarge.empty()) reportPart(rules::tooLarge, i, value.tooLarge);
  if (!value.wideCharacter.empty()) reportPart(rules::wideCharacter, i, value.wideCharacter);
  const auto checkIsAbove = [&](std::string_view name) {
    const Found found = lookup.findInValue(name, i);
    const bool isKnown = found.result != Result::Unknown && found.result != Result::Below;
    if (!isKnown && !IsCppType(name)) reportPart(rules::notAnItem, i, name);
  };
  for (const std::string_view name : value.names) checkIsAbove(name);
  for (const std::string_view name : value.types) checkIsAbove(name);
}

/// Checks the member with this type, whose name is the word before it. The type comes first in C++:
/// the name is declared after it.
void Checker::checkMember(std::size_t i) {
  const std::string_view name = words[i - 1].text;
  if (IsPunctuation(name) || FindKeyword(name) == Keyword::Type) return;  // It has been reported.
  if (!IsIdentifier(name)) {
    checkTypeWord(i);
    return;
  }
  Uses& own = uses[name];
  if (isInList(own.asMember)) report(rules::memberTwice, i - 1, own.asMember);
  const std::size_t before = findings.size();
  const TypeWord type = checkTypeWord(i);
  // In `int8 x` and `Pose pose`, the type has been put first, and is no member.
  if (type == TypeWord::Unknown && FindBuiltinType(name) != nullptr) {
    report(rules::builtinTypeAsName, i - 1);
  }
  const bool isReported = findings.size() > before;
  if (type == TypeWord::Wrong && isReported && lookup.hasRecord(name)) return;
  checkMeaning(i, own);
  own.asMember = i - 1;
}

/// Checks a member whose name may have been used as a type above, which some compilers reject.
void Checker::checkMeaning(std::size_t i, const Uses& use) {
  if (!isInList(use.asType)) return;
  const std::size_t record = declarations.record(file, words[i - 1].text);
  if (record == noWord) return report(rules::changesMeaningOfUse, i - 1, use.asType);
  report(record < i ? rules::changesMeaning : rules::changesMeaningBelow, i - 1, record);
}

TypeWord Checker::checkTypeWord(std::size_t i) {
  const std::optional<std::string_view> element = ElementType(words[i].text);
  if (!element.has_value()) {
    report(rules::notAType, i);
    return TypeWord::Wrong;
  }
  if (FindBuiltinType(*element) != nullptr) return TypeWord::Type;
  if (element->find('<') != std::string_view::npos) return checkTemplate(i, *element);
  return checkName(i, *element, element->size() < words[i].text.size());
}

/// Checks a type of C++ with template arguments, which is copied. Its names are looked up.
TypeWord Checker::checkTemplate(std::size_t i, std::string_view type) {
  const std::size_t before = findings.size();
  if (!IsTemplate(type)) report(rules::notAType, i);
  for (const std::string_view name : TemplateNames(type)) {
    if (findings.size() > before) break;
    if (FindBuiltinType(name) != nullptr) {
      reportPart(rules::builtinInTemplate, i, name);
    } else if (!IsCppType(name) && FindKeyword(name) == Keyword::None &&
               declarations.item(file, name) == noWord &&
               lookup.findType(name, scope).result == Result::Unknown) {
      reportPart(rules::notDeclared, i, name);
    }
  }
  if (findings.size() > before) return TypeWord::Wrong;
  report(rules::uncheckedTemplate, i);
  return TypeWord::Type;
}

/// Returns whether the parts of a path are names that may be those of a type.
bool Checker::checkParts(std::size_t i, const std::vector<std::string_view>& parts) {
  for (const std::string_view& part : parts) {
    if (parts.size() > 1 && part.empty() && &part == &parts.front()) continue;
    const Keyword keyword = FindKeyword(part);
    if (!IsIdentifier(part)) {
      report(rules::notAType, i);
      return false;
    }
    if (keyword != Keyword::None && keyword != Keyword::Cpp20) {
      reportPart(rules::keywordAsType, i, part);
      return false;
    }
  }
  return true;
}

/// Checks a type that is a name, or names with dots.
TypeWord Checker::checkName(std::size_t i, std::string_view type, bool isVector) {
  if (FindKeyword(type) == Keyword::Type) return TypeWord::Type;
  if (type == "char8_t") {
    report(rules::laterType, i);
    return TypeWord::Type;
  }
  const std::vector<std::string_view> parts = Components(type);
  if (!checkParts(i, parts)) return TypeWord::Wrong;
  const Found found = lookup.findType(type, scope);
  const bool isUnknown = found.result == Result::Unknown && !IsCppType(type);
  const bool isPath = parts.size() > 1;
  if (!isPath && !isUnknown && scope.part == Scope::Part::Response && type == "request") {
    reportPart(rules::hiddenByMember, i, type, requestWord);
    return TypeWord::Wrong;
  }
  Uses& use = uses[parts.front()];
  if (!isPath && isInList(use.asMember)) {
    const bool isType = lookup.hasRecord(type) || lookup.mayBeElsewhere(type);
    reportPart(isType ? rules::hiddenByMember : rules::memberAsType, i, type, use.asMember);
    return TypeWord::Wrong;
  }
  // A record may have a member of its own name. Of a path, only a service is used as a type.
  const bool isUse =
      isPath ? lookup.isNamed(found, parts.front()) : found.result != Result::Itself && !isUnknown;
  if (isUse) use.asType = i;
  return checkFound(i, type, isVector, found);
}

TypeWord Checker::checkFound(std::size_t i, std::string_view type, bool isVector,
                             const Found& found) {
  const std::size_t before = findings.size();
  const std::size_t word =
      found.declaration == nothing ? noWord : declarations[found.declaration].word;
  switch (found.result) {
    case Result::Elsewhere:
      return TypeWord::Unknown;
    case Result::Type:
      break;
    case Result::Service: {
      const bool isItself = word == scope.record && !isVector;
      reportPart(isItself ? rules::containsItself : rules::serviceAsType, i, type);
      break;
    }
    case Result::Itself:
      if (!isVector) reportPart(rules::containsItself, i, type);
      break;
    case Result::Item: {
      const std::string_view name = words[word].text;
      const bool isType = lookup.hasRecord(name) || lookup.mayBeElsewhere(name);
      reportPart(isType ? rules::hiddenByItem : rules::itemAsType, i, type, word);
      break;
    }
    case Result::Namespace:
      reportPart(rules::namespaceAsType, i, type);
      break;
    case Result::NotBelow:
      reportPart(rules::perhapsDeclaredBelow, i, type, word);
      break;
    case Result::Below: {
      const bool isService =
          words[word].role == Role::ServiceName && words[scope.record].role == Role::MessageName;
      const Rule& rule = isService ? rules::serviceInMessage : rules::declaredBelow;
      const bool mayBeElsewhere = lookup.mayBeElsewhere(type);
      reportPart(mayBeElsewhere ? rules::perhapsDeclaredBelow : rule, i, type, word);
      break;
    }
    case Result::LaterPart:
      reportPart(rules::responseInRequest, i, type);
      break;
    case Result::Unknown:
      if (!IsCppType(type)) reportPart(rules::notDeclared, i, type);
  }
  return findings.size() > before ? TypeWord::Wrong : TypeWord::Type;
}

}  // namespace

std::vector<Finding> Check(const Words& words, const LeftOut& leftOut) {
  Declarations declarations;
  declarations.add(words, leftOut);
  const Sight sight(declarations);
  Checker checker(declarations, sight, 0);
  for (std::size_t i = 0; i < words.size(); ++i) checker.checkWord(i);
  std::vector<Finding> findings = std::move(checker.findings);
  const auto isBefore = [](const Finding& a, const Finding& b) { return a.word < b.word; };
  if (!std::is_sorted(findings.begin(), findings.end(), isBefore)) {
    std::stable_sort(findings.begin(), findings.end(), isBefore);
  }
  return findings;
}

}  // namespace zentho
