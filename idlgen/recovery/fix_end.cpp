#include <string_view>

#include "recovery/fixes.h"
#include "schema/statements.h"

namespace zentho::idlgen {

Texts MissingEnd(const Words& words, std::size_t end) {
  const std::size_t keyword = KeywordOf(words, end - 1);
  std::size_t part = end - 1;
  while (part > keyword && words.role(part) != Role::Part) --part;
  const bool hasPart = part > keyword;
  if (!hasPart && FindStatement(words.text(keyword)) != Statement::Service) return {"}"};
  Texts missing;
  if (hasPart && words.text(end - 1) != "}") missing = {"}"};
  if (!hasPart) missing = {"request", "{", "}"};
  if (!hasPart || words.text(part) == "request") {
    missing.insert(missing.end(), {"response", "{", "}"});
  }
  missing.emplace_back("}");
  return missing;
}

Fix FixEnd(SourceFile& file) {
  const LocatedWords& words = file.words;
  const std::size_t last = words.size() - 1;
  const std::size_t keyword = KeywordOf(words, last);
  const WordRange statement = {keyword, words.size()};
  const auto missing = [&](std::string_view what) {
    return Finding{&rules::endOfFile, last, what, {}, {{&file, keyword}}};
  };
  const Role role = words.role(last);
  if (role == Role::Statement) {
    const bool isInclude = FindStatement(words.text(last)) == Statement::Include;
    return Drop(missing(isInclude ? "a path" : "a name"), statement);
  }
  if (IsRecordName(role) || role == Role::Part) return Drop(missing(R"(a "{")"), statement);
  return Insert(missing(R"(a "}")"), words.size(), MissingEnd(words, words.size()),
                CausesOfMissingBrace(words));
}

}  // namespace zentho::idlgen
