#include "check/check_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "check/file_check.h"
#include "check/include_check.h"
#include "check/member_check.h"
#include "check/name_check.h"
#include "check/value.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// One pass over the words of a file, which looks at each of them.
class WordCheck {
 public:
  explicit WordCheck(FileCheck& fileCheck)
      : check(fileCheck), nameCheck(fileCheck), memberCheck(fileCheck) {}

  void checkWord(std::size_t i) {
    switch (check.words.role(i)) {
      case Role::IncludePath:
        return nameCheck.checkInclude(i);
      case Role::NamespacePath:
        return nameCheck.checkNamespace(i);
      case Role::EnumName:
        enumName = i;
        return nameCheck.checkRecordName(i);
      case Role::MessageName:
      case Role::ServiceName:
        memberCheck.startRecord(i);
        return nameCheck.checkRecordName(i);
      case Role::Part:
        return memberCheck.startPart(i);
      case Role::ItemName:
        return nameCheck.checkItemName(i);
      case Role::ItemValue:
        return checkValue(i);
      case Role::MemberName:
        return memberCheck.checkName(i);
      case Role::MemberType:
        return memberCheck.checkType(i);
      case Role::Statement:
      case Role::Brace:
      case Role::Unread:
        return;
    }
  }

 private:
  void checkValue(std::size_t i) {
    if (IsPunctuation(check.words.text(i - 1))) return;  // The name has been reported.
    const auto meaningOf = [this, i](std::string_view name) { return meaningInValue(name, i); };
    for (Finding& finding : CheckValue(check.words.text(i), i, meaningOf)) {
      check.findings.push_back(std::move(finding));
    }
  }

  /// Returns what a name is to a value, in which only an enum is a type.
  [[nodiscard]] Meaning meaningInValue(std::string_view name, std::size_t value) const {
    const Found found = check.lookup.findInValue(name, value, enumName);
    const bool isType = found.meaning == Meaning::Type;
    const bool isEnum = isType && found.declaration->role == Role::EnumName;
    // An item of another file may have the name.
    const bool mayBeItem = isEnum || found.meaning == Meaning::Below;
    if (mayBeItem && check.lookup.mayBeElsewhere(name)) return Meaning::Elsewhere;
    return isType && !isEnum ? Meaning::Itself : found.meaning;
  }

  FileCheck& check;
  NameCheck nameCheck;
  MemberCheck memberCheck;
  std::size_t enumName = noWord;  ///< The word of the last one.
};

bool IsBefore(const Finding& a, const Finding& b) {
  return a.word < b.word;
}

}  // namespace

std::vector<Finding> CheckFile(const Declarations& declarations, const View& view) {
  FileCheck check(declarations, view);
  WordCheck words(check);
  for (std::size_t i = 0; i < check.words.size(); ++i) words.checkWord(i);
  checkIncludes(check);
  std::vector<Finding>& findings = check.findings;
  const bool isSorted = std::is_sorted(findings.begin(), findings.end(), IsBefore);
  if (!isSorted) std::stable_sort(findings.begin(), findings.end(), IsBefore);
  return std::move(findings);
}

}  // namespace zentho::idlgen
