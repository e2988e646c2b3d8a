#include <algorithm>
#include <cstddef>

#include "recovery/fix.h"
#include "schema/statements.h"

namespace zentho::idlgen {

Texts MissingBraces(const Words& words, std::size_t end) {
  std::size_t i = end - 1;
  while (words.role(i) != Role::Part && words.role(i) != Role::Statement) --i;
  const bool isService = FindStatement(words.text(i)) == Statement::Service;
  if (words.role(i) != Role::Part && !isService) return {"}"};
  Texts missing;
  if (words.text(end - 1) != "}" && !isService) missing = {"}"};
  if (isService) missing = {"request", "{", "}"};
  if (isService || words.text(i) == "request") {
    missing.insert(missing.end(), {"response", "{", "}"});
  }
  missing.emplace_back("}");
  return missing;
}

Fix FixEnd(SourceFile& file) {
  const Words& words = file.words;
  const std::size_t last = words.size() - 1;
  std::size_t keyword = last;
  while (words.role(keyword) != Role::Statement) --keyword;
  const WordRange statement = {keyword, words.size()};
  const auto isMissing = [&](std::string_view what) {
    return Finding{&rules::endOfFile, last, what, {}, {{&file, keyword}}};
  };
  switch (words.role(last)) {
    case Role::Statement: {
      const bool isInclude = FindStatement(words.text(last)) == Statement::Include;
      return Drop(isMissing(isInclude ? "a path" : "a name"), statement);
    }
    case Role::EnumName:
    case Role::MessageName:
    case Role::ServiceName:
    case Role::Part:
      return Drop(isMissing(R"(a "{")"), statement);
    case Role::Brace:
    case Role::IncludePath:
    case Role::NamespacePath:
    case Role::ItemName:
    case Role::ItemValue:
    case Role::MemberName:
    case Role::MemberType:
    case Role::Unread:
      break;
  }
  Fix fix = Insert(isMissing(R"(a "}")"), words.size(), MissingBraces(words, words.size()));
  fix.mayFollow = MayFollow::AnyFault;
  return fix;
}

}  // namespace zentho::idlgen
