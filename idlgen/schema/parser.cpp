#include "schema/parser.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "io/line_writer.h"
#include "schema/builtin_types.h"
#include "schema/statements.h"

namespace zentho {
namespace {

/// Returns whether the type is an integer keyword.
bool IsIntType(std::string type) {
  const idlgen::BuiltinType* const builtin = idlgen::FindBuiltinType(type);
  return builtin != nullptr && builtin->isInteger;
}

/// Returns all tokens of a file, in their order. None has been read.
Words AllWords(const IDL& idl) {
  Words words;
  std::size_t count = 0;
  for (const std::list<std::string>& line : idl.tokenLines) count += line.size();
  words.texts.reserve(count);
  for (const std::list<std::string>& line : idl.tokenLines) {
    words.texts.insert(words.texts.end(), line.begin(), line.end());
  }
  words.roles.assign(words.size(), Role::Unread);
  return words;
}

/// One pass over the words of a file, up to the first error. Sets their roles. Refers to its
/// arguments, which must outlive it. Prints only on request.
class StatementParser {
 public:
  StatementParser(Words& fileWords, Schema& target) : words(fileWords), schema(target) {}

  [[nodiscard]] bool atEnd() const { return position == words.size(); }

  /// Parses one statement. Returns its keyword, or throws a ParseError.
  std::string_view parseStatement();

  /// Prints the words read so far.
  void printWordsRead() const;

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

  Words& words;
  Schema& schema;
  std::size_t position = 0;
};

std::string_view StatementParser::parseStatement() {
  const std::string_view keyword = next(Role::Statement);
  switch (idlgen::FindStatement(keyword)) {
    case idlgen::Statement::Include:
      parseInclude();
      break;
    case idlgen::Statement::Namespace:
      parseNamespace();
      break;
    case idlgen::Statement::Enum:
      parseEnum();
      break;
    case idlgen::Statement::Message:
      parseMessage();
      break;
    case idlgen::Statement::Service:
      parseService();
      break;
    case idlgen::Statement::None:
      failFormat(keyword);
  }
  return keyword;
}

void StatementParser::printWordsRead() const {
  for (std::size_t i = 0; i < position; ++i) idlgen::printLine({words.texts[i]});
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
  words.roles[position] = role;
  return words.texts[position++];
}

void StatementParser::expect(std::string_view expected, Role role) {
  const std::string_view token = next(role);
  if (token != expected) failFormat(token);
}

bool StatementParser::readListEnd() {
  if (atEnd() || words.texts[position] != "}") return false;
  next(Role::Brace);
  return true;
}

void StatementParser::fail(ParseError::Kind kind, std::string reason) const {
  throw ParseError(kind, std::move(reason), position);
}

void StatementParser::failFormat(std::string_view token) const {
  fail(ParseError::Kind::WrongFormat, std::string("WRONG format in ").append(token));
}

/// Prints why parsing stopped, unless that is unknown, and the words read so far. Throws a plain
/// exception.
[[noreturn]] void failPrinting(const std::string& reason,
                               const std::optional<StatementParser>& parser) {
  try {
    if (!reason.empty()) idlgen::printLine({reason});
    idlgen::printLine({});
    idlgen::printLine({"lines:"});
    if (parser.has_value()) parser->printWordsRead();
  } catch (const std::exception&) {
    // Memory has run out.
  }
  throw std::exception();
}

}  // namespace

void Parser::parse(const IDL& idl, Schema& schema) const {
  Words words;
  std::optional<StatementParser> parser;
  try {
    words = AllWords(idl);
    parser.emplace(words, schema);
    while (!parser->atEnd()) idlgen::printLine({parser->parseStatement(), " done."});
  } catch (const ParseError& error) {
    failPrinting(error.reason, parser);
  } catch (const std::exception&) {
    failPrinting({}, parser);
  }
}

void Parser::parseSilently(const IDL& idl, Schema& schema) const {
  Words words;
  parseSilently(idl, schema, words);
}

void Parser::parseSilently(const IDL& idl, Schema& schema, Words& words) const {
  words = AllWords(idl);
  parseSilently(words, schema);
}

void Parser::parseSilently(Words& words, Schema& schema) const {
  words.roles.assign(words.size(), Role::Unread);
  StatementParser parser(words, schema);
  while (!parser.atEnd()) parser.parseStatement();
}

}  // namespace zentho
