#include "recovery/fix.h"

namespace zentho::idlgen {

const Rule& FormRule(Role role) {
  switch (role) {
    case Role::Statement:
    case Role::Unread:
      return rules::notAStatement;
    case Role::Part:
      return rules::notAPart;
    case Role::Brace:
      return rules::notABrace;
    case Role::IncludePath:
      return rules::notAPath;
    case Role::ItemValue:
      return rules::notAValue;
    case Role::MemberType:
      return rules::notAType;
    case Role::NamespacePath:
    case Role::EnumName:
    case Role::MessageName:
    case Role::ServiceName:
    case Role::ItemName:
    case Role::MemberName:
      return rules::notAName;
  }
  return rules::notAName;
}

}  // namespace zentho::idlgen
