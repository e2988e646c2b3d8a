#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"

namespace zentho::idlgen {
namespace {

bool IsWordByte(unsigned char byte) {
  return std::isalnum(byte) != 0 || byte == '_' || byte == '$' || byte >= 0x80;
}

bool IsName(std::string_view word) {
  return !word.empty() && std::isdigit(static_cast<unsigned char>(word[0])) == 0 &&
         std::all_of(word.begin(), word.end(), IsWordByte);
}

bool IsType(std::string_view word) {
  return std::all_of(word.begin(), word.end(),
                     [](unsigned char byte) {
                       return IsWordByte(byte) ||
                              std::string_view(".<>,").find(static_cast<char>(byte)) < 4;
                     }) &&
         std::count(word.begin(), word.end(), '<') == std::count(word.begin(), word.end(), '>');
}

/// Returns the value without its character literals. A quote in a number is a separator.
std::string WithoutCharacters(std::string_view value) {
  std::string code;
  bool inNumber = false;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const auto byte = static_cast<unsigned char>(value[i]);
    const bool beginsWord = i == 0 || !IsWordByte(static_cast<unsigned char>(value[i - 1]));
    if (value[i] == '\'' && !inNumber) {
      for (++i; i < value.size() && value[i] != '\''; ++i) i += value[i] == '\\' ? 1U : 0U;
      continue;
    }
    if (value[i] != '\'' && beginsWord) inNumber = inNumber || std::isdigit(byte) != 0;
    if (value[i] != '\'' && !IsWordByte(byte)) inNumber = false;
    code += value[i];
  }
  return code;
}

/// Returns whether nothing in the value can end it.
bool IsValue(std::string_view word) {
  const std::string code = WithoutCharacters(word);
  for (const char* part : {";", "{", "}", "\"", "\\", "//", "/*", "<%", "%>", "<:", "%:"}) {
    if (code.find(part) != std::string::npos) return false;
  }
  return true;
}

bool IsPath(std::string_view word) {
  return word.find_first_of("\\\t\r") == std::string_view::npos;
}

void checkMembers(const std::vector<CommonMember>& members) {
  for (const CommonMember& member : members) {
    check(IsType(member.type), "a type is one in the header");
    check(IsName(member.name), "the name of a member is one in the header");
  }
}

}  // namespace

void checkWords(const Schema& schema) {
  for (const std::string& path : schema.includes)
    check(IsPath(path), "the path of an include is one in the header");
  for (const std::string& component : schema.namespaces)
    check(IsName(component), "a namespace is a name");
  for (const Enum& record : schema.enums) {
    check(IsName(record.name), "the name of an enum is one in the header");
    for (const EnumItem& item : record.items) {
      check(IsName(item.name), "the name of an item is one in the header");
      check(IsValue(item.value), "a value ends before its comma");
    }
  }
  for (const zentho::Message& message : schema.messages) {
    check(IsName(message.name), "the name of a message is one in the header");
    checkMembers(message.members);
  }
  for (const Service& service : schema.services) {
    check(IsName(service.name), "the name of a service is one in the header");
    checkMembers(service.request);
    checkMembers(service.response);
  }
}

}  // namespace zentho::idlgen
