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
#include "schema/builtin_types.h"

namespace zentho {
namespace {

/// Returns whether the type is an integer keyword.
bool IsIntType(std::string type) {
  const BuiltinType* const builtin = FindBuiltinType(type);
  return builtin != nullptr && builtin->isInteger;
}

/// Returns all tokens of a file, in their order.
std::vector<std::string_view> Tokens(const IDL& idl) {
  std::vector<std::string_view> tokens;
  for (const std::list<std::string>& line : idl.tokenLines) {
    tokens.insert(tokens.end(), line.begin(), line.end());
  }
  return tokens;
}

/// One pass over the tokens of a file, up to the first error. Refers to its arguments, which must
/// outlive it. Prints only on request.
class StatementParser {
 public:
  /// `fileRoles` is empty, or gets the roles of the tokens that are read.
  StatementParser(const std::vector<std::string_view>& fileTokens, std::vector<Role>& fileRoles,
                  Schema& target)
      : tokens(fileTokens), roles(fileRoles), schema(target) {}

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
  CommonMember parseMember();

  /// Returns the next token, or fails if there is none.
  std::string_view next(Role role);

  /// Reads the next token and fails if it is not the expected one.
  void expect(std::string_view expected, Role role);

  /// Reads the next token if it ends a list. Returns whether it does.
  bool readListEnd();

  [[noreturn]] void fail(ParseError::Kind kind, std::string reason) const;
  [[noreturn]] void failFormat(std::string_view token) const;

  const std::vector<std::string_view>& tokens;
  std::vector<Role>& roles;
  Schema& schema;
  std::size_t position = 0;
};

std::string_view StatementParser::parseStatement() {
  const std::string_view keyword = next(Role::Statement);
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

void StatementParser::printTokensRead() const {
  printLine({});
  printLine({"lines:"});
  for (std::size_t i = 0; i < position; ++i) printLine({tokens[i]});
}

void StatementParser::parseInclude() {
  // Drops the first character, normally '"' or '<', without checking it. Drops everything from the
  // last '.', normally the extension and the closing '"' or '>'.
  const std::string_view file = next(Role::IncludePath).substr(1);
  schema.includes.emplace_back(file.substr(0, file.rfind('.')));
}

void StatementParser::parseNamespace() {
  if (schema.namespaceSet) {
    fail(ParseError::Kind::SecondNamespace, "namespace can be set only once.");
  }
  schema.namespaceSet = true;  // Even if the path has no components.
  std::list<std::string> components;
  IDL::split(std::string(next(Role::NamespacePath)), components, '.');
  schema.namespaces.insert(schema.namespaces.end(), components.begin(), components.end());
}

void StatementParser::parseEnum() {
  Enum record;
  record.name = next(Role::EnumName);
  expect("{", Role::Brace);
  while (!readListEnd()) {
    const std::string_view name = next(Role::ItemName);
    record.items.push_back({std::string(name), std::string(next(Role::ItemValue))});
  }
  schema.enums.push_back(std::move(record));
}

void StatementParser::parseMessage() {
  Message message;
  message.name = next(Role::MessageName);
  message.members = parseMembers();
  schema.messages.push_back(std::move(message));
}

void StatementParser::parseService() {
  Service service;
  service.name = next(Role::ServiceName);
  expect("{", Role::Brace);
  expect("request", Role::Part);
  service.request = parseMembers();
  expect("response", Role::Part);
  service.response = parseMembers();
  expect("}", Role::Brace);
  schema.services.push_back(std::move(service));
}

std::vector<CommonMember> StatementParser::parseMembers() {
  std::vector<CommonMember> members;
  expect("{", Role::Brace);
  while (!readListEnd()) members.push_back(parseMember());
  return members;
}

CommonMember StatementParser::parseMember() {
  CommonMember member;
  member.name = next(Role::MemberName);
  // Strips one character from each end per level until the last '[' is gone. The trailing one must
  // be ']'. The leading one is not checked, so "x[int8]]" has depth 2.
  std::string_view type = next(Role::MemberType);
  const std::size_t levels = type.rfind('[') + 1;  // 0 if there is no '['.
  for (std::size_t level = 0; level < levels; ++level) {
    // Never empty: the last '[' is at index levels - 1, so only the last round strips it.
    if (type.back() != ']') failFormat(type);
    type = type.substr(1, type.size() - 2);
  }

  member.vectorDepth = static_cast<std::int32_t>(levels);
  member.type = type;
  member.isVector = levels > 0 ? 1 : 0;
  if (IsIntType(member.type)) {
    schema.hasIntType = true;
  } else if (member.type == "string") {
    schema.hasString = true;
  }
  return member;
}

std::string_view StatementParser::next(Role role) {
  if (atEnd()) fail(ParseError::Kind::EndOfFile, "unexpected end of file.");
  if (!roles.empty()) roles[position] = role;
  return tokens[position++];
}

void StatementParser::expect(std::string_view expected, Role role) {
  const std::string_view token = next(role);
  if (token != expected) failFormat(token);
}

bool StatementParser::readListEnd() {
  if (atEnd() || tokens[position] != "}") return false;
  next(Role::Brace);
  return true;
}

void StatementParser::fail(ParseError::Kind kind, std::string reason) const {
  throw ParseError(kind, std::move(reason), position);
}

void StatementParser::failFormat(std::string_view token) const {
  fail(ParseError::Kind::WrongFormat, std::string("WRONG format in ").append(token));
}

/// Prints the reason, unless it is empty, and the tokens read so far. Throws a plain exception.
[[noreturn]] void fail(const StatementParser& parser, const std::string& reason) {
  try {
    if (!reason.empty()) printLine({reason});
    parser.printTokensRead();
  } catch (const std::exception&) {
    // Memory has run out.
  }
  throw std::exception();
}

}  // namespace

void Parser::parse(const IDL& idl, Schema& schema) const {
  std::vector<std::string_view>
      tokens;  // Filled inside the try block: memory may run out there, too.
  std::vector<Role> noRoles;
  StatementParser parser(tokens, noRoles, schema);
  try {
    tokens = Tokens(idl);
    while (!parser.atEnd()) printLine({parser.parseStatement(), " done."});
  } catch (const ParseError& error) {
    fail(parser, error.reason);
  } catch (const std::exception&) {
    fail(parser, {});
  }
}

void Parser::parseSilently(const IDL& idl, Schema& schema) const {
  Words words;
  parseSilently(idl, schema, words);
}

void Parser::parseSilently(const IDL& idl, Schema& schema, Words& words) const {
  words.texts = Tokens(idl);
  words.roles.assign(words.size(), Role::Unread);
  StatementParser parser(words.texts, words.roles, schema);
  while (!parser.atEnd()) parser.parseStatement();
}

}  // namespace zentho
