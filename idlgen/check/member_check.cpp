#include "check/member_check.h"

#include <algorithm>
#include <optional>

#include "schema/builtin_types.h"
#include "words/cpp_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

void MemberCheck::startRecord(std::size_t name) {
  scope = {name, Scope::Part::None};
  listBegin = name;
}

void MemberCheck::startPart(std::size_t keyword) {
  const bool isRequest = words.text(keyword) == "request";
  scope.part = isRequest ? Scope::Part::Request : Scope::Part::Response;
  if (isRequest) requestWord = keyword;
  listBegin = keyword;
}

void MemberCheck::checkMember(std::size_t type) {
  const std::size_t name = type - 1;
  const std::string_view text = words.text(name);
  const bool isName = check.checkNewName(name, text);
  // If it is none, perhaps the type stands in its place.
  if (!isName && (IsPunctuation(text) || LooksLikeType(text))) return;
  const TypeWord word = checkTypeWord(type);
  if (!isName && !IsIdentifier(text)) return;
  // In `int8 x` and `Pose pose`, the type has been put first, and is no member.
  const bool isType = FindBuiltinType(text) != nullptr;
  if (word == TypeWord::Wrong && (isType || check.lookup.hasRecord(text))) return;
  if (word == TypeWord::Elsewhere && isType) check.report(rules::builtinTypeAsName, name);
  // The type comes first in C++: the name is declared after it.
  Uses& own = uses[text];
  if (isInThisList(own.asMember)) {
    check.report(rules::memberTwice, name, text, {check.own(own.asMember)});
  }
  checkChange(name, own);
  own.asMember = name;
}

/// Checks a member whose name may have been used as a type above, which some compilers reject.
void MemberCheck::checkChange(std::size_t name, const Uses& use) {
  if (!isInThisList(use.asType)) return;
  const std::string_view text = words.text(name);
  const std::size_t record = check.lookup.ownWord(text, false);
  if (record == noWord) {
    check.report(rules::changesMeaningOfUse, name, text, {check.own(use.asType)});
  } else {
    const Rule& rule = record < name ? rules::changesMeaning : rules::changesMeaningBelow;
    check.report(rule, name, text, {check.own(record)});
  }
}

MemberCheck::TypeWord MemberCheck::checkTypeWord(std::size_t i) {
  const std::optional<std::string_view> element = ElementType(words.text(i));
  if (!element.has_value()) {
    check.report(rules::notAType, i);
    return TypeWord::Wrong;
  }
  const bool isVector = element->size() < words.text(i).size();
  const BuiltinType* const builtin = FindBuiltinType(*element);
  const bool isOfLibrary = builtin != nullptr && builtin->cppType.substr(0, 5) == "std::";
  if (isVector || isOfLibrary) checkLibrary(i);
  if (builtin != nullptr || FindKeyword(*element) == Keyword::Type) return TypeWord::Type;
  if (*element == "char8_t") {
    check.report(rules::laterType, i);
    return TypeWord::Type;
  }
  if (element->find('<') != std::string_view::npos) return checkTemplate(i, *element);
  if (!checkParts(i, *element)) return TypeWord::Wrong;
  const bool isPath = element->find('.') != std::string_view::npos;
  return isPath ? checkPath(i, *element, isVector) : checkName(i, *element, isVector);
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
MemberCheck::TypeWord MemberCheck::checkTemplate(std::size_t i, std::string_view type) {
  if (!IsTemplate(type)) {
    check.report(rules::notAType, i);
    return TypeWord::Wrong;
  }
  for (const std::string_view name : TemplateNames(type)) {
    const Rule* const rule = ruleForArgument(name, name.data() == type.data());
    if (rule == nullptr) continue;
    check.report(*rule, i, rule == &rules::notAType ? words.text(i) : name);
    return TypeWord::Wrong;
  }
  check.report(rules::uncheckedTemplate, i);
  return TypeWord::Type;
}

/// Returns the rule that a name in a template breaks, or nullptr. The first one has arguments.
const Rule* MemberCheck::ruleForArgument(std::string_view name, bool isFirst) const {
  const Keyword keyword = FindKeyword(name);
  if (keyword == Keyword::Type || keyword == Keyword::Cpp20) return nullptr;
  if (keyword != Keyword::None) return &rules::keywordAsType;
  if (FindBuiltinType(name) != nullptr && isFirst) return &rules::notAType;
  if (FindBuiltinType(name) != nullptr && !check.lookup.mayBeElsewhere(name)) {
    return &rules::builtinInTemplate;
  }
  const bool isKnown = IsLibraryType(name) || check.lookup.ownWord(name, true) != noWord ||
                       check.lookup.findType(name, scope).meaning != Meaning::Unknown;
  return isKnown ? nullptr : &rules::notDeclared;
}

/// Checks that the parts of a path are names that may be those of a type.
bool MemberCheck::checkParts(std::size_t i, std::string_view type) {
  const std::vector<std::string_view> parts = Components(type);
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

/// Checks a type that is a path of names. In `S.Request`, it is the service S that is used, so that
/// a member S would change its meaning.
MemberCheck::TypeWord MemberCheck::checkPath(std::size_t i, std::string_view type, bool isVector) {
  const std::vector<std::string_view> parts = Components(type);
  const Found found = check.lookup.findType(type, scope);
  const bool isService = std::all_of(parts.begin(), parts.end() - 1, [&](std::string_view part) {
    return found.declaration != nullptr && found.declaration->name == part;
  });
  if (isService) uses[parts.front()].asType = i;
  return checkFound(i, type, isVector, found);
}

/// Checks a type that is one name, which members may hide.
MemberCheck::TypeWord MemberCheck::checkName(std::size_t i, std::string_view type, bool isVector) {
  const Found found = check.lookup.findType(type, scope);
  const bool isUnknown = found.meaning == Meaning::Unknown && !IsLibraryType(type);
  const bool isRequest = scope.part == Scope::Part::Response && type == "request";
  if (isRequest && !isUnknown) {
    check.report(rules::hiddenByMember, i, type, {check.own(requestWord)});
    return TypeWord::Wrong;
  }
  Uses& use = uses[type];
  if (isInThisList(use.asMember)) {
    const Rule& rule = hasOuterType(type) ? rules::hiddenByMember : rules::memberAsType;
    check.report(rule, i, type, {check.own(use.asMember)});
    return TypeWord::Wrong;
  }
  // A record may have a member of its own name.
  const bool isType = found.meaning != Meaning::Itself && found.meaning != Meaning::Namespace;
  if (isType && !isUnknown) use.asType = i;
  return checkFound(i, type, isVector, found);
}

MemberCheck::TypeWord MemberCheck::checkFound(std::size_t i, std::string_view type, bool isVector,
                                              const Found& found) {
  const Rule* const rule = ruleFor(found, type, isVector);
  if (rule == nullptr) {
    return found.meaning == Meaning::Elsewhere ? TypeWord::Elsewhere : TypeWord::Type;
  }
  if (rule->note.empty()) {
    check.report(*rule, i, type);
  } else {
    check.report(*rule, i, type, *found.declaration);
  }
  return TypeWord::Wrong;
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
      return hasOuterType(Components(type).back()) ? &rules::hiddenByItem : &rules::itemAsType;
    case Meaning::Namespace:
      return &rules::namespaceAsType;
    case Meaning::OuterOne:
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

bool MemberCheck::hasOuterType(std::string_view name) const {
  return check.lookup.hasRecord(name) || check.lookup.mayBeElsewhere(name);
}

}  // namespace zentho::idlgen
