#include "check/check.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "check/context.h"
#include "check/member_check.h"
#include "check/value.h"
#include "check/word_checks.h"

namespace zentho::idlgen {
namespace {

void checkItemValue(Context& context, std::size_t i, std::size_t enumName) {
  const auto meaningOf = [&](std::string_view name) {
    return context.lookup.findInValue(name, i, enumName);
  };
  for (Finding& finding : CheckValue(context.words.text(i), i, meaningOf)) {
    context.findings.push_back(std::move(finding));
  }
}

/// Looks at each word of the file once.
void checkWords(Context& context) {
  MemberCheck members(context);
  std::size_t enumName = noWord;  // Of the last one.
  for (std::size_t i = 0; i < context.words.size(); ++i) {
    switch (context.words.role(i)) {
      case Role::IncludePath:
        checkIncludePath(context, i);
        break;
      case Role::NamespacePath:
        checkNamespacePath(context, i);
        break;
      case Role::EnumName:
        enumName = i;
        checkDeclaredName(context, i);
        break;
      case Role::MessageName:
      case Role::ServiceName:
        members.startRecord(i);
        checkDeclaredName(context, i);
        break;
      case Role::Part:
        members.startPart(i);
        break;
      case Role::ItemName:
        checkDeclaredName(context, i);
        break;
      case Role::ItemValue:
        checkItemValue(context, i, enumName);
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

std::vector<Finding> FindingsIn(const Declarations& declarations, const CheckedFile& file) {
  const View view(declarations, file);
  Context context(view);
  const std::string& other = file.source->sameHeaderAs;
  if (!other.empty() && context.words.size() > 0) context.report(rules::sameHeader, 0, other);
  checkWords(context);
  checkIncludes(context);
  std::stable_sort(context.findings.begin(), context.findings.end(),
                   [](const Finding& a, const Finding& b) { return a.word < b.word; });
  return std::move(context.findings);
}

}  // namespace zentho::idlgen
