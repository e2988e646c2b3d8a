#include <cstddef>
#include <string>
#include <vector>

#include "recovery/fix.h"
#include "schema/statements.h"

namespace zentho::idlgen {

std::vector<std::string> MissingBraces(const LocatedWords& file, std::size_t end) {
  std::size_t i = end - 1;
  while (file.role(i) != Role::Part && file.role(i) != Role::Statement) --i;
  const bool isService = FindStatement(file.text(i)) == Statement::Service;
  if (file.role(i) != Role::Part && !isService) return {"}"};
  std::vector<std::string> missing;
  if (file.text(end - 1) != "}" && !isService) missing = {"}"};
  if (isService) missing = {"request", "{", "}"};
  if (isService || file.text(i) == "request") {
    missing.insert(missing.end(), {"response", "{", "}"});
  }
  missing.emplace_back("}");
  return missing;
}

Fix FixEnd(const LocatedWords& file) {
  const std::size_t last = file.size() - 1;
  std::size_t keyword = last;
  while (file.role(keyword) != Role::Statement) --keyword;
  Fix fix{&rules::endOfFile, last, R"(a "}")", "", {file.size(), file.size()}};
  fix.other = keyword;
  switch (file.role(last)) {
    case Role::Statement:
      fix.text = FindStatement(file.text(last)) == Statement::Include ? "a path" : "a name";
      fix.replaced.first = keyword;
      break;
    case Role::EnumName:
    case Role::MessageName:
    case Role::ServiceName:
    case Role::Part:
      fix.text = R"(a "{")";
      fix.replaced.first = keyword;
      break;
    default:
      fix.texts = MissingBraces(file, file.size());
      fix.mayFollow = MayFollow::AnyFault;
  }
  return fix;
}

}  // namespace zentho::idlgen
