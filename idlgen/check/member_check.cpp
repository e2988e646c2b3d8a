#include "check/member_check.h"

#include <algorithm>

#include "schema/builtin_types.h"
#include "words/cpp_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

void MemberCheck::startRecord(std::size_t i) {
  scope = {i, Scope::Part::None};
  listBegin = i;
}

void MemberCheck::startPart(std::size_t i) {
  const bool isRequest = words.text(i) == "request";
  scope.part = isRequest ? Scope::Part::Request : Scope::Part::Response;
  if (isRequest) requestWord = i;
  listBegin = i;
}

void MemberCheck::checkName(std::size_t i) {
  hasName = check.checkNewName(i, words.text(i));
}

/// The type comes first in C++: the name is declared after it.
void MemberCheck::checkType(std::size_t i) {
  const std::string_view name = words.text(i - 1);
  if (!hasName) {  // It has been reported. Perhaps the type stands in its place.
    if (IsPunctuation(name) || LooksLikeType(name)) return;
    if (!IsIdentifier(name)) {
      checkTypeWord(i);
      return;
    }
  }
  const TypeMeaning type = checkTypeWord(i);
  // In `int8 x` and `Pose pose`, the type has been put first, and is no member.
  const bool isType = FindBuiltinType(name) != nullptr;
  if (!type.has_value() && (isType || check.lookup.hasRecord(name))) return;
  if (type == Meaning::Elsewhere && isType) check.report(rules::builtinTypeAsName, i - 1);
  Uses& own = uses[name];
  if (isInList(own.asMember)) check.report(rules::memberTwice, i - 1, name, own.asMember);
  checkMeaning(i, own);
  own.asMember = i - 1;
}

/// Checks a member whose name may have been used as a type above, which some compilers reject.
void MemberCheck::checkMeaning(std::size_t i, const Uses& use) {
  if (!isInList(use.asType)) return;
  const std::string_view name = words.text(i - 1);
  const std::size_t record = check.lookup.ownWord(name, false);
  if (record == noWord) return check.report(rules::changesMeaningOfUse, i - 1, name, use.asType);
  const Rule& rule = record < i ? rules::changesMeaning : rules::changesMeaningBelow;
  check.report(rule, i - 1, name, record);
}

MemberCheck::TypeMeaning MemberCheck::checkTypeWord(std::size_t i) {
  const std::optional<std::string_view> element = ElementType(words.text(i));
  if (!element.has_value()) {
    check.report(rules::notAType, i);
    return std::nullopt;
  }
  const bool isVector = element->size() < words.text(i).size();
  const BuiltinType* const builtin = FindBuiltinType(*element);
  const bool isOfLibrary = builtin != nullptr && builtin->cppType.substr(0, 5) == "std::";
  if (isVector || isOfLibrary) checkLibrary(i);
  if (builtin != nullptr) return Meaning::Type;
  if (element->find('<') != std::string_view::npos) return checkTemplate(i, *element);
  return checkPath(i, *element, isVector);
}

/// Checks once that no included file hides the namespace of the C++ library, which a type needs.
void MemberCheck::checkLibrary(std::size_t i) {
  if (isLibraryChecked || check.view.others().empty()) return;
  isLibraryChecked = true;
  const std::vector<const Namespace*>& spaces = check.file.namespaces;
  for (std::size_t level = 1; level < spaces.size(); ++level) {
    if (check.reportHiding(rules::hiddenLibrary, i, words.text(i), *spaces[level], "std")) return;
  }
}

/// Checks a type of C++ with template arguments, which is copied. Its names are looked up.
MemberCheck::TypeMeaning MemberCheck::checkTemplate(std::size_t i, std::string_view type) {
  const std::size_t before = check.findings.size();
  if (!IsTemplate(type)) check.report(rules::notAType, i);
  for (const std::string_view name : TemplateNames(type)) {
    if (check.findings.size() > before) break;
    const Keyword keyword = FindKeyword(name);
    if (keyword != Keyword::None && keyword != Keyword::Type && keyword != Keyword::Cpp20) {
      check.report(rules::keywordAsType, i, name);
    } else if (FindBuiltinType(name) != nullptr && name.data() == type.data()) {
      check.report(rules::notAType, i);  // It has no arguments.
    } else if (FindBuiltinType(name) != nullptr && !check.lookup.mayBeElsewhere(name)) {
      check.report(rules::builtinInTemplate, i, name);
    } else if (!IsLibraryType(name) && keyword == Keyword::None &&
               check.lookup.ownWord(name, true) == noWord &&
               check.lookup.findType(name, scope).meaning == Meaning::Unknown) {
      check.report(rules::notDeclared, i, name);
    }
  }
  if (check.findings.size() > before) return std::nullopt;
  check.report(rules::uncheckedTemplate, i);
  return Meaning::Type;
}

/// Returns whether the parts of a path are names that may be those of a type.
bool MemberCheck::checkParts(std::size_t i, const std::vector<std::string_view>& parts) {
  for (const std::string_view& part : parts) {
    if (parts.size() > 1 && part.empty() && &part == &parts.front()) continue;
    const Keyword keyword = FindKeyword(part);
    if (!IsIdentifier(part)) {
      check.report(rules::notAType, i);
      return false;
    }
    if (keyword != Keyword::None && keyword != Keyword::Cpp20) {
      check.report(rules::keywordAsType, i, part);
      return false;
    }
  }
  return true;
}

/// Checks a type that is a name, or names with dots.
MemberCheck::TypeMeaning MemberCheck::checkPath(std::size_t i, std::string_view type,
                                                bool isVector) {
  if (FindKeyword(type) == Keyword::Type) return Meaning::Type;
  if (type == "char8_t") {
    check.report(rules::laterType, i);
    return Meaning::Type;
  }
  const std::vector<std::string_view> parts = Components(type);
  if (!checkParts(i, parts)) return std::nullopt;
  const Found found = check.lookup.findType(type, scope);
  const bool isUnknown = found.meaning == Meaning::Unknown && !IsLibraryType(type);
  Uses& use = uses[parts.front()];
  if (parts.size() > 1) {
    // Only a service is used as a type, if all parts before the last are its name.
    const bool isService = std::all_of(parts.begin(), parts.end() - 1, [&](std::string_view part) {
      return found.declaration != nullptr && found.declaration->name == part;
    });
    if (isService) use.asType = i;
    return checkFound(i, type, isVector, found);
  }
  const bool isRequest = scope.part == Scope::Part::Response && type == "request";
  if (isRequest && !isUnknown) {
    check.report(rules::hiddenByMember, i, type, requestWord);
    return std::nullopt;
  }
  if (isInList(use.asMember)) {
    check.report(isTypeElsewhere(type) ? rules::hiddenByMember : rules::memberAsType, i, type,
                 use.asMember);
    return std::nullopt;
  }
  // A record may have a member of its own name.
  if (found.meaning != Meaning::Itself && !isUnknown) use.asType = i;
  return checkFound(i, type, isVector, found);
}

MemberCheck::TypeMeaning MemberCheck::checkFound(std::size_t i, std::string_view type,
                                                 bool isVector, const Found& found) {
  const Rule* const rule = ruleFor(found, type, isVector);
  if (rule == nullptr) {
    return found.meaning == Meaning::Elsewhere ? Meaning::Elsewhere : Meaning::Type;
  }
  if (rule->note.empty()) {
    check.report(*rule, i, type);
  } else {
    check.report(*rule, i, type, *found.declaration);
  }
  return std::nullopt;
}

/// Returns the rule that a member breaks by its type, or nullptr.
const Rule* MemberCheck::ruleFor(const Found& found, std::string_view type, bool isVector) const {
  switch (found.meaning) {
    case Meaning::Elsewhere:
    case Meaning::Type:
      return nullptr;
    case Meaning::Service: {
      const Declaration& service = *found.declaration;
      const bool isItself = service.file == &check.file && service.word == scope.record;
      return isItself && !isVector ? &rules::containsItself : &rules::serviceAsType;
    }
    case Meaning::Itself:
      return isVector ? nullptr : &rules::containsItself;
    case Meaning::Item:
      return isTypeElsewhere(Components(type).back()) ? &rules::hiddenByItem : &rules::itemAsType;
    case Meaning::Namespace:
      return &rules::namespaceAsType;
    case Meaning::NotBelow:
      return &rules::perhapsDeclaredBelow;
    case Meaning::Below: {
      const bool isInMessage = words.role(scope.record) == Role::MessageName;
      const bool isService = found.declaration->role == Role::ServiceName;
      if (check.lookup.mayBeElsewhere(type)) return &rules::perhapsDeclaredBelow;
      return isInMessage && isService ? &rules::serviceInMessage : &rules::declaredBelow;
    }
    case Meaning::LaterPart:
      return &rules::responseInRequest;
    case Meaning::Unknown:
      return IsLibraryType(type) ? nullptr : &rules::notDeclared;
  }
  return nullptr;
}

/// Returns whether a type of this name is, or may be, declared further out.
bool MemberCheck::isTypeElsewhere(std::string_view name) const {
  return check.lookup.hasRecord(name) || check.lookup.mayBeElsewhere(name);
}

}  // namespace zentho::idlgen
