#include "check/member_check.h"

#include <algorithm>

#include "check/word_checks.h"
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
  const bool isName = context.checkNewName(name, text);
  // Two words in the wrong order are reported once: as in `int x`, the first one.
  if (!isName && (IsPunctuation(text) || LooksLikeType(text))) return;
  const TypeWord typeWord = checkTypeWord(type);
  if (!isName && !IsIdentifier(text)) return;  // Nothing is declared.
  // As in `int8 x` and `Pose pose`, it is the second one, unless that may be a type.
  const bool isBuiltin = FindBuiltinType(text) != nullptr;
  if (typeWord == TypeWord::Wrong && (isBuiltin || context.lookup.hasRecord(text))) return;
  if (typeWord == TypeWord::Elsewhere && isBuiltin) {
    context.report(rules::builtinTypeAsName, name);
  }
  // The type comes first in C++: the name is declared after it.
  Uses& own = uses[text];
  if (isInThisList(own.asMember)) {
    context.report(rules::memberTwice, name, text, {context.own(own.asMember)});
  }
  checkChange(name, own);
  own.asMember = name;
}

/// Checks a member whose name may have been used as a type above, which some compilers reject.
void MemberCheck::checkChange(std::size_t name, const Uses& use) {
  if (!isInThisList(use.asType)) return;
  const std::string_view text = words.text(name);
  const std::size_t record = context.lookup.ownWord(text, false);
  if (record == noWord) {
    context.report(rules::changesMeaningOfUse, name, text, {context.own(use.asType)});
  } else {
    const Rule& rule = record < name ? rules::changesMeaning : rules::changesMeaningBelow;
    context.report(rule, name, text, {context.own(record)});
  }
}

MemberCheck::TypeWord MemberCheck::checkTypeWord(std::size_t i) {
  const std::string_view type = ElementType(words.text(i)).value_or("");
  const bool isVector = type.size() < words.text(i).size();
  const bool isBuiltin = FindBuiltinType(type) != nullptr || FindKeyword(type) == Keyword::Type;
  if (!isBuiltin && !IsTypeForm(words.text(i))) {
    context.report(rules::notAType, i);
    return TypeWord::Wrong;
  }
  checkLibrary(i);
  if (isBuiltin) return TypeWord::Type;
  if (type == "char8_t") {
    context.report(rules::laterType, i);
    return TypeWord::Type;
  }
  if (type.find('<') != std::string_view::npos) return checkTemplate(i, type);
  if (!checkParts(i, type)) return TypeWord::Wrong;
  const bool isPath = type.find('.') != std::string_view::npos;
  return isPath ? checkPath(i, type, isVector) : checkName(i, type, isVector);
}

/// Checks once that no included file hides the namespace of the C++ library, which a type needs.
void MemberCheck::checkLibrary(std::size_t i) {
  if (isLibraryChecked || context.view.files().size() == 1 || !NeedsStd(words.text(i))) return;
  isLibraryChecked = true;
  const std::vector<const Namespace*>& spaces = context.file.namespaces;
  for (std::size_t level = 1; level < spaces.size(); ++level) {
    if (context.reportHiding(rules::hiddenLibrary, i, words.text(i), *spaces[level], "std")) return;
  }
}

/// Checks a type of C++ with template arguments, which is copied. Its names are looked up.
MemberCheck::TypeWord MemberCheck::checkTemplate(std::size_t i, std::string_view type) {
  const std::string_view ofTemplate = type.substr(0, type.find('<'));
  if (FindBuiltinType(ofTemplate) != nullptr && FindKeyword(ofTemplate) == Keyword::None) {
    context.report(rules::notAType, i);
    return TypeWord::Wrong;
  }
  for (const std::string_view name : TemplateNames(type)) {
    const Rule* const rule = ruleForTemplateName(name);
    if (rule == nullptr) continue;
    context.report(*rule, i, name);
    return TypeWord::Wrong;
  }
  context.report(rules::uncheckedTemplate, i);
  return TypeWord::Type;
}

/// Returns the rule that a name in a template breaks, or nullptr.
const Rule* MemberCheck::ruleForTemplateName(std::string_view name) const {
  const Keyword keyword = FindKeyword(name);
  if (keyword == Keyword::Type || keyword == Keyword::Cpp20) return nullptr;
  if (keyword != Keyword::None) return &rules::keywordAsType;
  if (FindBuiltinType(name) != nullptr && !context.lookup.mayBeElsewhere(name)) {
    return &rules::builtinInTemplate;
  }
  const bool isKnown = IsLibraryType(name) || context.lookup.ownWord(name, true) != noWord ||
                       find(name).meaning != Meaning::Unknown;
  return isKnown ? nullptr : &rules::notDeclared;
}

/// Checks that no part of a path is a keyword.
bool MemberCheck::checkParts(std::size_t i, std::string_view type) {
  const std::vector<std::string_view> parts = Components(type);
  const auto wrong = std::find_if(parts.begin(), parts.end(), IsKeyword);
  if (wrong == parts.end()) return true;
  context.report(rules::keywordAsType, i, *wrong);
  return false;
}

/// Checks a type that is a path of names. In `S.Request`, it is the service S that is used, so that
/// a member S would change its meaning.
MemberCheck::TypeWord MemberCheck::checkPath(std::size_t i, std::string_view type, bool isVector) {
  const std::vector<std::string_view> parts = Components(type);
  const Found found = find(type);
  const bool isService = std::all_of(parts.begin(), parts.end() - 1, [&](std::string_view part) {
    return found.declaration != nullptr && found.declaration->name == part;
  });
  if (isService) uses[parts.front()].asType = i;
  return checkFound(i, type, isVector, found);
}

/// Checks a type that is one name, which members may hide.
MemberCheck::TypeWord MemberCheck::checkName(std::size_t i, std::string_view type, bool isVector) {
  const Found found = find(type);
  const bool isUnknown = found.meaning == Meaning::Unknown && !IsLibraryType(type);
  const bool isRequest = scope.part == Scope::Part::Response && type == "request";
  if (isRequest && !isUnknown) {
    context.report(rules::hiddenByMember, i, type, {context.own(requestWord)});
    return TypeWord::Wrong;
  }
  Uses& use = uses[type];
  if (isInThisList(use.asMember)) {
    const Rule& rule = hasOuterType(type) ? rules::hiddenByMember : rules::memberAsType;
    context.report(rule, i, type, {context.own(use.asMember)});
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
  const bool isNoted = found.meaning == Meaning::Item || found.meaning == Meaning::Below ||
                       found.meaning == Meaning::OuterType;
  if (isNoted) {
    context.report(*rule, i, type, *found.declaration);
  } else {
    context.report(*rule, i, type);
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
      const bool isItself = service.file == &context.file && service.word == scope.record;
      return isItself && !isVector ? &rules::containsItself : &rules::serviceAsType;
    }
    case Meaning::Itself:
      return isVector ? nullptr : &rules::containsItself;
    case Meaning::Item:
      if (isReportedItem(*found.declaration)) return nullptr;
      return hasOuterType(Components(type).back()) ? &rules::hiddenByItem : &rules::itemAsType;
    case Meaning::Namespace:
      return &rules::namespaceAsType;
    case Meaning::OuterType:
      return &rules::perhapsDeclaredBelow;
    case Meaning::Below: {
      const bool isInMessage = words.role(scope.record) == Role::MessageName;
      const bool isService = found.declaration->role == Role::ServiceName;
      if (context.lookup.mayBeElsewhere(type)) return &rules::perhapsDeclaredBelow;
      return isInMessage && isService ? &rules::serviceInMessage : &rules::declaredBelow;
    }
    case Meaning::LaterPart:
      return &rules::responseInRequest;
    case Meaning::Unknown:
      return IsLibraryType(type) ? nullptr : &rules::notDeclared;
  }
  return nullptr;
}

/// Returns whether a message of the file has the name of this item of it, which has been reported.
bool MemberCheck::isReportedItem(const Declaration& item) const {
  const std::size_t record = context.lookup.ownWord(item.name, false);
  return item.file == &context.file && record != noWord && words.role(record) == Role::MessageName;
}

bool MemberCheck::hasOuterType(std::string_view name) const {
  return context.lookup.hasRecord(name) || context.lookup.mayBeElsewhere(name);
}

}  // namespace zentho::idlgen
