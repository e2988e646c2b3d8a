#include "check/check_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "check/context.h"
#include "check/include_check.h"
#include "check/member_check.h"
#include "check/name_check.h"
#include "check/value.h"

namespace zentho::idlgen {
namespace {

void checkItemValue(Context& check, std::size_t i, std::size_t enumName) {
  const auto meaningOf = [&](std::string_view name) {
    return check.lookup.findInValue(name, i, enumName);
  };
  for (Finding& finding : CheckValue(check.words.text(i), i, meaningOf)) {
    check.findings.push_back(std::move(finding));
  }
}

/// Looks at each word of the file once.
void checkWords(Context& check) {
  MemberCheck members(check);
  std::size_t enumName = noWord;  // Of the last one.
  for (std::size_t i = 0; i < check.words.size(); ++i) {
    switch (check.words.role(i)) {
      case Role::IncludePath:
        checkIncludePath(check, i);
        break;
      case Role::NamespacePath:
        checkNamespacePath(check, i);
        break;
      case Role::EnumName:
        enumName = i;
        checkRecordName(check, i);
        break;
      case Role::MessageName:
      case Role::ServiceName:
        members.startRecord(i);
        checkRecordName(check, i);
        break;
      case Role::Part:
        members.startPart(i);
        break;
      case Role::ItemName:
        checkItemName(check, i);
        break;
      case Role::ItemValue:
        checkItemValue(check, i, enumName);
        break;
      case Role::MemberType:
        members.checkMember(i);
        break;
      case Role::MemberName:  // With its type.
      case Role::Statement:
      case Role::Brace:
      case Role::Unread:
        break;
    }
  }
}

}  // namespace

std::vector<Finding> CheckFile(const Declarations& declarations, const File& file) {
  const View view(declarations, file);
  Context check(view);
  const std::string& rival = file.source->rival;
  if (!rival.empty() && check.words.size() > 0) check.report(rules::sameHeader, 0, rival);
  checkWords(check);
  checkIncludes(check);
  std::stable_sort(check.findings.begin(), check.findings.end(),
                   [](const Finding& a, const Finding& b) { return a.word < b.word; });
  return std::move(check.findings);
}

}  // namespace zentho::idlgen
