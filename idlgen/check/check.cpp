#include "check/check.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "check/cpp_words.h"
#include "check/declarations.h"
#include "check/forms.h"
#include "check/out_of_step.h"
#include "check/value.h"
#include "schema/builtin_types.h"

namespace zentho {
namespace {

/// Where a name has last been used, as the indexes of words. 0 if never.
struct Uses {
  std::size_t asMember = 0;
  std::size_t asType = 0;  ///< Without dots.
};

/// Returns whether no character of the word can be part of a name, as in `=`, `<<` or `//`.
bool IsPunctuation(std::string_view word) {
  return std::none_of(word.begin(), word.end(),
                      [](char byte) { return IsNameCharacter(static_cast<unsigned char>(byte)); });
}

/// One pass over the words of a file.
class Checker {
 public:
  Checker(const Words& fileWords, std::size_t count)
      : words(fileWords), declarations(fileWords, count) {}

  void checkWord(std::size_t i);

  std::vector<Finding> findings;

 private:
  void checkInclude(std::size_t i);
  void checkNamespace(std::size_t i);
  void checkRecordName(std::size_t i);
  void checkItemName(std::size_t i);
  void checkValue(std::size_t i);
  [[nodiscard]] NameKind kindInValue(std::string_view name, std::size_t value) const;
  void checkMember(std::size_t i);
  void checkMemberName(std::size_t i);
  void checkTypeWord(std::size_t i);
  void checkType(std::size_t i, std::string_view type, bool isVector);
  void checkFound(std::size_t i, std::string_view type, bool isVector, const Found& found);

  /// Returns whether the text is a name that C++ compilers accept.
  bool checkName(std::size_t i, std::string_view text);

  /// Returns whether the declaration of the name would be one of an existing namespace.
  [[nodiscard]] bool isGlobalNamespace(std::string_view name) const {
    return !declarations.hasNamespace() && (name == "std" || name == "zentho");
  }

  /// Returns whether a member or an element is an integer, so that the header includes <cstdint>.
  bool hasIntegerMember();

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

  const Words& words;
  Declarations declarations;
  Scope scope;
  std::size_t listBegin = 0;
  std::size_t openEnum = noWord;  ///< The index of the name of the last enum so far.
  std::optional<bool> integerMember;
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
      openEnum = i;
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
      return checkMemberName(i);
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
  for (const std::string_view part : parts) {
    if (!part.empty() && checkName(i, part) && part == "std") reportPart(rules::hidesStd, i, part);
  }
  // The first part is empty before a leading dot.
  const bool isDot = parts.size() == 2 && parts.back().empty();
  if (isDot || std::count(parts.begin() + 1, parts.end(), "") > 0) report(rules::emptyNamespace, i);
}

bool Checker::checkName(std::size_t i, std::string_view text) {
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
  if (!checkName(i, name)) return;
  const bool isService = words[i].role == Role::ServiceName;
  if (isGlobalNamespace(name)) {
    report(rules::globalNamespace, i);
  } else if (name == "std") {
    report(rules::hidesStd, i);
  }
  if (isService && (name == "Request" || name == "Response")) report(rules::nestedTypeAsService, i);

  const std::size_t record = declarations.record(name);
  const std::size_t item = declarations.item(name);
  if (record < i) {
    report(rules::declaredTwice, i, record);
  } else if (item < i && words[i].role == Role::MessageName) {
    report(rules::itemTwice, i, item);
  }
}

void Checker::checkItemName(std::size_t i) {
  const std::string_view name = words[i].text;
  if (!checkName(i, name)) return;
  if (isGlobalNamespace(name)) report(rules::globalNamespace, i);
  const std::size_t item = declarations.item(name);
  const std::size_t record = declarations.record(name);
  if (item < i) {
    report(rules::itemTwice, i, item);
  } else if (record < i && words[record].role == Role::MessageName) {
    report(rules::declaredTwice, i, record);
  }
}

void Checker::checkValue(std::size_t i) {
  if (IsPunctuation(words[i - 1].text)) return;  // The name has been reported.
  const auto kindOf = [this, i](std::string_view name) { return kindInValue(name, i); };
  for (ValueFault& fault : CheckValue(words[i].text, kindOf, hasIntegerMember())) {
    findings.push_back({fault.rule, i, fault.text, noWord, std::move(fault.advice)});
  }
}

NameKind Checker::kindInValue(std::string_view name, std::size_t value) const {
  if (declarations.item(name) < value - 1) return NameKind::Item;
  const std::size_t record = declarations.record(name);
  if (record == openEnum) return NameKind::OtherType;
  if (record < value && words[record].role == Role::EnumName) return NameKind::EnumType;
  if (declarations.mayBeElsewhere(name)) return NameKind::Elsewhere;
  return record == noWord ? NameKind::Unknown : NameKind::OtherType;
}

bool Checker::hasIntegerMember() {
  if (!integerMember.has_value()) {
    std::size_t i = 0;
    const auto isInteger = [&](const Word& word) {
      if (word.role != Role::MemberType && word.role != Role::Unread) return false;
      const std::optional<std::string_view> element = ElementType(word.text);
      const BuiltinType* const type = element.has_value() ? FindBuiltinType(*element) : nullptr;
      return type != nullptr && type->isInteger;
    };
    while (i < words.size() && !isInteger(words[i])) ++i;
    integerMember = i < words.size();
  }
  return *integerMember;
}

void Checker::checkMemberName(std::size_t i) {
  const std::string_view name = words[i].text;
  if (checkName(i, name) && FindBuiltinType(name) != nullptr) report(rules::builtinTypeAsName, i);
}

/// Checks the member with this type, whose name is the word before it. The type comes first in C++:
/// the name is declared behind it.
void Checker::checkMember(std::size_t i) {
  const std::string_view name = words[i - 1].text;
  if (IsPunctuation(name)) return;  // It has been reported.
  if (!IsIdentifier(name)) return checkTypeWord(i);
  Uses& own = uses[name];
  if (isInList(own.asMember)) report(rules::memberTwice, i - 1, own.asMember);
  const std::size_t before = findings.size();
  checkTypeWord(i);
  // In `Pose pose`, the type has been put first, and is no member.
  const bool isUnknown = findings.size() > before && findings.back().rule == &rules::notDeclared;
  if (isUnknown && declarations.record(name) != noWord) return;
  if (isInList(own.asType)) report(rules::changesMeaning, i - 1, own.asType);
  own.asMember = i - 1;
}

void Checker::checkTypeWord(std::size_t i) {
  const std::optional<std::string_view> element = ElementType(words[i].text);
  if (!element.has_value()) return report(rules::notAType, i);
  checkType(i, *element, element->size() < words[i].text.size());
}

void Checker::checkType(std::size_t i, std::string_view type, bool isVector) {
  if (FindBuiltinType(type) != nullptr) return;
  if (type.find('<') != std::string_view::npos) {
    return report(IsTemplate(type) ? rules::uncheckedTemplate : rules::notAType, i);
  }
  const std::vector<std::string_view> parts = Components(type);
  const bool isPath = parts.size() > 1;
  for (const std::string_view& part : parts) {
    if (isPath && part.empty() && &part == &parts.front()) continue;
    if (!IsIdentifier(part)) return report(rules::notAType, i);
    const Keyword keyword = FindKeyword(part);
    if (keyword == Keyword::Type && !isPath) return;
    if (part == "char8_t" && !isPath) return report(rules::laterType, i);
    if (keyword != Keyword::None && keyword != Keyword::Cpp20) {
      return reportPart(rules::keywordAsType, i, part);
    }
  }
  const Found found = declarations.findType(type, scope);
  if (!isPath) {
    Uses& use = uses[type];
    if (isInList(use.asMember)) return reportPart(rules::hiddenByMember, i, type, use.asMember);
    // A record may have a member of its own name.
    if (found.lookup != Lookup::Itself) use.asType = i;
  }
  checkFound(i, type, isVector, found);
}

void Checker::checkFound(std::size_t i, std::string_view type, bool isVector, const Found& found) {
  switch (found.lookup) {
    case Lookup::Type:
    case Lookup::Elsewhere:
      return;
    case Lookup::Service: {
      const bool isItself = found.word == scope.record && !isVector;
      return reportPart(isItself ? rules::containsItself : rules::serviceAsType, i, type);
    }
    case Lookup::Itself:
      if (!isVector) reportPart(rules::containsItself, i, type);
      return;
    case Lookup::Item:
      return reportPart(rules::hiddenByItem, i, type, found.word);
    case Lookup::Below: {
      const bool isService = words[found.word].role == Role::ServiceName &&
                             words[scope.record].role == Role::MessageName;
      const Rule& rule = isService ? rules::serviceInMessage : rules::declaredBelow;
      const bool mayBeElsewhere = declarations.mayBeElsewhere(type);
      return reportPart(mayBeElsewhere ? rules::perhapsDeclaredBelow : rule, i, type, found.word);
    }
    case Lookup::Unknown:
      if (!IsCppType(type)) reportPart(rules::notDeclared, i, type);
  }
}

}  // namespace

std::vector<Finding> Check(std::string_view text, const Words& words, std::size_t count) {
  const std::size_t inStep = WordsInStep(text, words, count);
  Checker checker(words, inStep);
  for (std::size_t i = 0; i < inStep; ++i) checker.checkWord(i);
  std::vector<Finding> findings = std::move(checker.findings);
  if (inStep < count) explainStep(text, words, inStep, findings);
  const auto isBefore = [](const Finding& a, const Finding& b) { return a.word < b.word; };
  if (!std::is_sorted(findings.begin(), findings.end(), isBefore)) {
    std::stable_sort(findings.begin(), findings.end(), isBefore);
  }
  return findings;
}

}  // namespace zentho
