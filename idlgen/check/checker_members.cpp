#include <algorithm>
#include <optional>

#include "check/checker.h"
#include "schema/builtin_types.h"
#include "words/cpp_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

/// Checks the member with this type, whose name is the word before it. The type comes first in C++:
/// the name is declared after it.
void Checker::checkMember(std::size_t i) {
  const std::string_view name = words[i - 1].text;
  if (!hasMemberName) {  // It has been reported. Perhaps the type stands in its place.
    if (IsPunctuation(name) || LooksLikeType(name)) return;
    if (!IsIdentifier(name)) {
      checkTypeWord(i);
      return;
    }
  }
  const TypeWord type = checkTypeWord(i);
  // In `int8 x` and `Pose pose`, the type has been put first, and is no member.
  const bool isType = FindBuiltinType(name) != nullptr;
  if (type == TypeWord::Unknown && isType) report(rules::builtinTypeAsName, i - 1);
  if (type == TypeWord::Wrong && (isType || lookup.hasRecord(name))) return;
  Uses& own = uses[name];
  if (isInList(own.asMember)) report(rules::memberTwice, i - 1, own.asMember);
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
  const bool isVector = element->size() < words[i].text.size();
  const BuiltinType* const builtin = FindBuiltinType(*element);
  const bool isOfLibrary = builtin != nullptr && builtin->cppType.substr(0, 5) == "std::";
  if (isVector || isOfLibrary) checkLibrary(i);
  if (builtin != nullptr) return TypeWord::Type;
  if (element->find('<') != std::string_view::npos) return checkTemplate(i, *element);
  return checkName(i, *element, isVector);
}

/// Checks once that no included file hides the namespace of the C++ library, which a type needs.
void Checker::checkLibrary(std::size_t i) {
  if (isLibraryChecked || sight.others().empty()) return;
  isLibraryChecked = true;
  const std::vector<std::size_t>& spaces = declarations.file(file).namespaces;
  for (std::size_t level = 1; level < spaces.size(); ++level) {
    if (reportHiding(rules::hiddenLibrary, i, words[i].text, spaces[level], "std")) return;
  }
}

/// Checks a type of C++ with template arguments, which is copied. Its names are looked up.
TypeWord Checker::checkTemplate(std::size_t i, std::string_view type) {
  const std::size_t before = findings.size();
  if (!IsTemplate(type)) report(rules::notAType, i);
  for (const std::string_view name : TemplateNames(type)) {
    if (findings.size() > before) break;
    const Keyword keyword = FindKeyword(name);
    if (keyword != Keyword::None && keyword != Keyword::Type && keyword != Keyword::Cpp20) {
      reportPart(rules::keywordAsType, i, name);
    } else if (FindBuiltinType(name) != nullptr && name.data() == type.data()) {
      report(rules::notAType, i);  // It has no arguments.
    } else if (FindBuiltinType(name) != nullptr && !lookup.mayBeElsewhere(name)) {
      reportPart(rules::builtinInTemplate, i, name);
    } else if (!isLibraryType(name) && keyword == Keyword::None &&
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
  const bool isUnknown = found.result == Result::Unknown && !isLibraryType(type);
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
  // A record may have a member of its own name. Of a path, only a service is used as a type, if all
  // parts before the last are its name.
  const auto isFound = [&](std::string_view part) { return lookup.isNamed(found, part); };
  const bool isUse = isPath ? std::all_of(parts.begin(), parts.end() - 1, isFound)
                            : found.result != Result::Itself && !isUnknown;
  if (isUse) use.asType = i;
  return checkFound(i, type, isVector, found);
}

TypeWord Checker::checkFound(std::size_t i, std::string_view type, bool isVector,
                             const Found& found) {
  const Rule* const rule = ruleFor(found, type, isVector);
  if (rule == nullptr) {
    return found.result == Result::Elsewhere ? TypeWord::Unknown : TypeWord::Type;
  }
  Finding finding{rule, i, type};
  if (!rule->note.empty()) {
    const Declaration& declaration = declarations[found.declaration];
    finding.other = {declaration.word, declaration.file == file ? nothing : declaration.file};
  }
  findings.push_back(finding);
  return TypeWord::Wrong;
}

/// Returns the rule that a member breaks by its type, or nullptr.
const Rule* Checker::ruleFor(const Found& found, std::string_view type, bool isVector) const {
  const Declaration* const declaration =
      found.declaration == nothing ? nullptr : &declarations[found.declaration];
  switch (found.result) {
    case Result::Elsewhere:
    case Result::Type:
      return nullptr;
    case Result::Service: {
      const bool isItself = declaration->file == file && declaration->word == scope.record;
      return isItself && !isVector ? &rules::containsItself : &rules::serviceAsType;
    }
    case Result::Itself:
      return isVector ? nullptr : &rules::containsItself;
    case Result::Item: {
      const std::string_view name = Components(type).back();
      const bool isType = lookup.hasRecord(name) || lookup.mayBeElsewhere(name);
      return isType ? &rules::hiddenByItem : &rules::itemAsType;
    }
    case Result::Namespace:
      return &rules::namespaceAsType;
    case Result::NotBelow:
      return &rules::perhapsDeclaredBelow;
    case Result::Below: {
      const bool isInMessage = words[scope.record].role == Role::MessageName;
      if (lookup.mayBeElsewhere(type)) return &rules::perhapsDeclaredBelow;
      return isInMessage && declaration->role == Role::ServiceName ? &rules::serviceInMessage
                                                                   : &rules::declaredBelow;
    }
    case Result::LaterPart:
      return &rules::responseInRequest;
    case Result::Unknown:
      return isLibraryType(type) ? nullptr : &rules::notDeclared;
  }
  return nullptr;
}

}  // namespace zentho::idlgen
