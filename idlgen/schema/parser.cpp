#include "schema/parser.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "io/line_writer.h"

namespace zentho {
namespace {

/// Whether it is one of the integer keywords, all of which the generator has to know as well.
bool IsIntType(std::string type) {
  using namespace std::string_view_literals;  // Such a text is compared by its length first.
  return type == "uint8"sv || type == "uint16"sv || type == "uint32"sv || type == "uint64"sv ||
         type == "int8"sv || type == "int16"sv || type == "int32"sv || type == "int64"sv;
}

[[noreturn]] void failFormat(std::string_view offender) {
  printLine({"WRONG format in ", offender});
  throw std::exception();
}

/// One walk over the tokens of a file, from the first to the last or to the first fault. Refers to
/// the strings of the `IDL`, and writes into the `Schema`.
class Walk {
 public:
  Walk(const IDL& idl, Schema& target);

  /// Reads all statements. Prints the diagnostic of a fault, then throws.
  void parseStatements();

  /// Prints the tokens that the walk has looked at, up to the one that it stopped at.
  void printTokensRead() const;

 private:
  void parseInclude();
  void parseNamespace();
  void parseEnum();
  void parseMessage();
  void parseService();
  std::vector<CommonMember> parseMembers();
  CommonMember parseMember(std::string_view name);

  /// Gives the next token, or fails if there is none.
  std::string_view next();

  /// Reads the next token and fails unless it is the one wanted.
  void expect(std::string_view wanted);

  std::vector<std::string_view> tokens;
  std::size_t position = 0;
  Schema& schema;
};

Walk::Walk(const IDL& idl, Schema& target) : schema(target) {
  for (const std::list<std::string>& line : idl.tokenLines) {
    tokens.insert(tokens.end(), line.begin(), line.end());
  }
}

void Walk::parseStatements() {
  while (position < tokens.size()) {
    const std::string_view keyword = next();
    if (keyword == "include") {
      parseInclude();
    } else if (keyword == "namespace") {
      parseNamespace();
    } else if (keyword == "enum") {
      parseEnum();
    } else if (keyword == "message") {
      parseMessage();
    } else if (keyword == "service") {
      parseService();
    } else {
      failFormat(keyword);
    }
    printLine({keyword, " done."});
  }
}

void Walk::printTokensRead() const {
  printLine({});
  printLine({"lines:"});
  for (std::size_t i = 0; i < position; ++i) printLine({tokens[i]});
}

void Walk::parseInclude() {
  // The opening quote or bracket goes, whatever it is; the extension takes the closing one along.
  const std::string_view file = next().substr(1);
  schema.includes.emplace_back(file.substr(0, file.rfind('.')));
}

void Walk::parseNamespace() {
  if (schema.namespaceSet) {
    printLine({"namespace can be set only once."});
    throw std::exception();
  }
  schema.namespaceSet = true;  // Before the path is read: one without components counts as well.
  std::list<std::string> components;
  IDL::split(std::string(next()), components, '.');
  schema.namespaces.insert(schema.namespaces.end(), components.begin(), components.end());
}

void Walk::parseEnum() {
  Enum record;
  record.name = next();
  expect("{");
  for (std::string_view name = next(); name != "}"; name = next()) {
    record.items.push_back({std::string(name), std::string(next())});
  }
  schema.enums.push_back(std::move(record));
}

void Walk::parseMessage() {
  Message message;
  message.name = next();
  message.members = parseMembers();
  schema.messages.push_back(std::move(message));
}

void Walk::parseService() {
  Service service;
  service.name = next();
  expect("{");
  expect("request");
  service.request = parseMembers();
  expect("response");
  service.response = parseMembers();
  expect("}");
  schema.services.push_back(std::move(service));
}

std::vector<CommonMember> Walk::parseMembers() {
  std::vector<CommonMember> members;
  expect("{");
  for (std::string_view name = next(); name != "}"; name = next()) {
    members.push_back(parseMember(name));
  }
  return members;
}

CommonMember Walk::parseMember(std::string_view name) {
  // A level takes one character off either end, the first one unseen, until the last '[' is gone.
  std::string_view type = next();
  const std::size_t levels = type.rfind('[') + 1;  // 0 without a '['
  for (std::size_t level = 0; level < levels; ++level) {
    if (type.back() != ']') failFormat(type);
    type = type.substr(1, type.size() - 2);
  }

  CommonMember member;
  member.vectorDepth = static_cast<std::int32_t>(levels);
  member.type = type;
  member.isVector = levels > 0 ? 1 : 0;
  member.name = name;
  if (IsIntType(member.type)) {
    schema.hasIntType = true;
  } else if (member.type == "string") {
    schema.hasString = true;
  }
  return member;
}

std::string_view Walk::next() {
  if (position == tokens.size()) {
    printLine({"unexpected end of file."});
    throw std::exception();
  }
  return tokens[position++];
}

void Walk::expect(std::string_view wanted) {
  const std::string_view token = next();
  if (token != wanted) failFormat(token);
}

}  // namespace

void Parser::parse(const IDL& idl, Schema& schema) const {
  Walk walk(idl, schema);
  try {
    walk.parseStatements();
  } catch (const std::exception&) {
    walk.printTokensRead();
    throw std::exception();
  }
}

}  // namespace zentho
