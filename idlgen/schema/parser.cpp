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

/// Returns whether the type is an integer keyword. The generator has the same list.
bool IsIntType(std::string type) {
  return type == "uint8" || type == "uint16" || type == "uint32" || type == "uint64" ||
         type == "int8" || type == "int16" || type == "int32" || type == "int64";
}

/// One pass over the tokens of a file, up to the first error. Refers to the strings of the `IDL`
/// and to the `Schema`, which must outlive it. Prints only on request.
class Walk {
 public:
  Walk(const IDL& idl, Schema& target);

  [[nodiscard]] bool atEnd() const { return position == tokens.size(); }

  /// Parses one statement. Returns its keyword, or throws a ParseError.
  std::string_view parseStatement();

  /// Prints the tokens read so far.
  void printTokensRead() const;

 private:
  void parseInclude();
  void parseNamespace();
  void parseEnum();
  void parseMessage();
  void parseService();
  std::vector<CommonMember> parseMembers();
  CommonMember parseMember(std::string_view name);

  /// Returns the next token, or fails if there is none.
  std::string_view next();

  /// Reads the next token and fails if it is not the expected one.
  void expect(std::string_view expected);

  [[noreturn]] void fail(std::string reason) const;
  [[noreturn]] void failFormat(std::string_view token) const;

  std::vector<std::string_view> tokens;
  std::size_t position = 0;
  Schema& schema;
};

Walk::Walk(const IDL& idl, Schema& target) : schema(target) {
  for (const std::list<std::string>& line : idl.tokenLines) {
    tokens.insert(tokens.end(), line.begin(), line.end());
  }
}

std::string_view Walk::parseStatement() {
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
  return keyword;
}

void Walk::printTokensRead() const {
  printLine({});
  printLine({"lines:"});
  for (std::size_t i = 0; i < position; ++i) printLine({tokens[i]});
}

void Walk::parseInclude() {
  // Drops the first character, normally '"' or '<', without checking it. Drops everything from the
  // last '.', normally the extension and the closing '"' or '>'.
  const std::string_view file = next().substr(1);
  schema.includes.emplace_back(file.substr(0, file.rfind('.')));
}

void Walk::parseNamespace() {
  if (schema.namespaceSet) fail("namespace can be set only once.");
  schema.namespaceSet = true;  // Even if the path has no components.
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
  // Strips one character from each end per level until the last '[' is gone. The trailing one must
  // be ']'. The leading one is not checked, so "x[int8]]" has depth 2.
  std::string_view type = next();
  const std::size_t levels = type.rfind('[') + 1;  // 0 if there is no '['.
  for (std::size_t level = 0; level < levels; ++level) {
    // Never empty: a '[' is left, because each level strips at most the first one.
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
  if (atEnd()) fail("unexpected end of file.");
  return tokens[position++];
}

void Walk::expect(std::string_view expected) {
  const std::string_view token = next();
  if (token != expected) failFormat(token);
}

void Walk::fail(std::string reason) const {
  throw ParseError(std::move(reason), position);
}

void Walk::failFormat(std::string_view token) const {
  fail(std::string("WRONG format in ").append(token));
}

}  // namespace

void Parser::parse(const IDL& idl, Schema& schema) const {
  Walk walk(idl, schema);
  try {
    while (!walk.atEnd()) printLine({walk.parseStatement(), " done."});
  } catch (const std::exception& error) {
    const auto* const parseError = dynamic_cast<const ParseError*>(&error);
    if (parseError != nullptr) printLine({parseError->reason});
    walk.printTokensRead();
    throw std::exception();
  }
}

void Parser::parseSilently(const IDL& idl, Schema& schema) const {
  Walk walk(idl, schema);
  while (!walk.atEnd()) walk.parseStatement();
}

}  // namespace zentho
