#include "check/checker.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "check/value.h"
#include "schema/builtin_types.h"
#include "words/cpp_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns which headers the members, or the elements of one, need.
LibraryHeaders HeadersOf(const Words& words) {
  LibraryHeaders headers;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.roles[i] != Role::MemberType) continue;
    const std::optional<std::string_view> element = ElementType(words.texts[i]);
    const BuiltinType* const type = element.has_value() ? FindBuiltinType(*element) : nullptr;
    if (type == nullptr) continue;
    if (type->isInteger) headers.cstdint = true;
    if (type->keyword == "string") headers.string = true;
  }
  return headers;
}

}  // namespace

void Checker::checkWord(std::size_t i) {
  switch (words[i].role) {
    case Role::IncludePath:
      return checkInclude(i);
    case Role::NamespacePath:
      return checkNamespace(i);
    case Role::EnumName:
      enumName = i;
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
      hasMemberName = checkNewName(i, words[i].text);
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
  const bool hidesName =
      top < names.size() && (names[top] == "BytesBuffer" || (top == 1 && names[top] == "zentho"));
  if (hidesName && hasFunctions()) reportPart(rules::frameworkName, i, names[top]);
  // No file may declare a part of the namespace as something else.
  for (std::size_t level = 0; level < names.size(); ++level) {
    const std::size_t space = declarations.file(file).namespaces[level];
    const std::size_t other =
        broughtInto(space, names[level], [](const Declaration&) { return true; });
    if (other != nothing) reportOther(rules::declaredTwice, i, names[level], declarations[other]);
  }
  const std::size_t framework = lookup.seenNamespace(0, "zentho");
  if (names.empty() || framework == nothing || !hasFunctions()) return;
  reportHiding(rules::hiddenNamespace, i, names[0], framework, names[0]);
}

/// Reports that another file has a type or a namespace of this name in a namespace, if one does.
bool Checker::reportHiding(const Rule& rule, std::size_t i, std::string_view text,
                           std::size_t space, std::string_view name) {
  const std::size_t other = broughtInto(
      space, name, [](const Declaration& declaration) { return !declaration.isItem(); });
  const std::size_t nested = lookup.seenNamespace(space, name);
  if (other != nothing) {
    reportOther(rule, i, text, declarations[other]);
  } else if (nested != nothing) {
    reportNamespace(rule, i, text, nested);
  }
  return other != nothing || nested != nothing;
}

/// Reports a name and the first namespace statement that declares a namespace.
void Checker::reportNamespace(const Rule& rule, std::size_t i, std::string_view name,
                              std::size_t space) {
  std::size_t first = nothing;
  for (const std::size_t other : sight.others()) {
    const std::vector<std::size_t>& spaces = declarations.file(other).namespaces;
    const bool isIn = std::find(spaces.begin(), spaces.end(), space) != spaces.end();
    if (isIn) first = std::min(first, other);
  }
  if (first == nothing) return;
  findings.push_back({&rule, i, name, {declarations.file(first).namespaceWord, first}});
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
  const std::vector<std::string_view>& spaces = declarations.file(file).namespaceNames;
  const bool hidesFramework = !isService && name == "zentho" && spaces.size() == 1 &&
                              spaces.front() == "zentho" && hasFunctions();
  if (isGlobalNamespace(name)) {
    report(rules::globalNamespace, i);
  } else if (hidesFramework) {
    report(rules::frameworkName, i);
  } else if (name == "std") {
    report(rules::hidesStd, i);
  }
  if (isService && (name == "Request" || name == "Response")) report(rules::nestedTypeAsService, i);

  checkIsNew(i);
}

void Checker::checkItemName(std::size_t i) {
  const std::string_view name = words[i].text;
  if (!checkNewName(i, name)) return;
  if (isGlobalNamespace(name)) report(rules::globalNamespace, i);
  checkIsNew(i);
}

/// Checks that no other declaration has the name of this one, in the file or in those it includes.
void Checker::checkIsNew(std::size_t i) {
  const std::string_view name = words[i].text;
  const std::size_t space = declarations.file(file).namespaces.back();
  const bool isItem = words[i].role == Role::ItemName;
  for (std::size_t d = declarations.firstIn(space, name); d != nothing; d = declarations[d].next) {
    const Declaration& other = declarations[d];
    const bool isOwn = other.file == file;
    if (isOwn ? other.word >= i : !sight.hasFile(other.file)) continue;
    // In the header, the items of a file come first. A type before an item of its name is hidden.
    const bool isHidden =
        isItem ? !isOwn || other.role != Role::MessageName : words[i].role != Role::MessageName;
    if (other.isItem() != isItem && isHidden) continue;
    return reportOther(other.isItem() ? rules::itemTwice : rules::declaredTwice, i, name, other);
  }
  const std::size_t nested = lookup.seenNamespace(space, name);
  if (nested != nothing) reportNamespace(rules::isNamespace, i, name, nested);
}

void Checker::checkValue(std::size_t i) {
  if (IsPunctuation(words[i - 1].text)) return;  // The name has been reported.
  const auto kindOf = [this, i](std::string_view name) { return kindInValue(name, i); };
  for (ValueFault& fault : CheckValue(words[i].text, kindOf, libraryHeaders().cstdint)) {
    // An item of another file may have the name of an enum.
    if (fault.rule == &rules::typeAsItem && lookup.mayBeElsewhere(fault.text)) continue;
    findings.push_back({fault.rule, i, fault.text, {}, {}, std::move(fault.advice)});
  }
}

NameKind Checker::kindInValue(std::string_view name, std::size_t value) const {
  const Found found = lookup.findInValue(name, value, enumName);
  switch (found.result) {
    case Result::Item:
      return NameKind::Item;
    case Result::Type:
      return declarations[found.declaration].role == Role::EnumName ? NameKind::EnumType
                                                                    : NameKind::OtherType;
    case Result::Itself:
      return NameKind::OtherType;
    case Result::Below:
      return lookup.mayBeElsewhere(name) ? NameKind::Elsewhere : NameKind::OtherType;
    case Result::Elsewhere:
      return NameKind::Elsewhere;
    default:
      return NameKind::Unknown;
  }
}

const LibraryHeaders& Checker::libraryHeaders() const {
  if (!headers.has_value()) headers = HeadersOf(words);
  return *headers;
}

bool Checker::isLibraryType(std::string_view type) const {
  const auto hasCLibrary = [this] { return libraryHeaders().cstdint || libraryHeaders().string; };
  return IsCppType(type) || (IsCLibraryType(type) && hasCLibrary());
}

}  // namespace zentho::idlgen
