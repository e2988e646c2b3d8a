#include "header_lines.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <string_view>

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
                              std::string_view(":<>,").find(static_cast<char>(byte)) < 4;
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

/// Returns whether the line has the form of the pattern, in which a '@' and a letter stand for a
/// name, a type, a value or a path.
bool Matches(std::string_view line, std::string_view pattern) {
  while (true) {
    const std::size_t place = pattern.find('@');
    if (line.substr(0, std::min(place, pattern.size())) != pattern.substr(0, place)) return false;
    if (place == std::string_view::npos) return line.size() == pattern.size();
    const char kind = pattern[place + 1];
    line.remove_prefix(place);
    pattern.remove_prefix(place + 2);
    const std::string_view next = pattern.substr(0, pattern.find('@'));
    const std::size_t size =
        next.size() == pattern.size() ? line.size() - next.size() : line.find(next);
    if (size > line.size()) return false;
    const std::string_view word = line.substr(0, size);
    const bool fits = kind == 'N'   ? IsName(word)
                      : kind == 'T' ? IsType(word)
                      : kind == 'V' ? IsValue(word)
                                    : IsPath(word);
    if (!fits) return false;
    line.remove_prefix(size);
  }
}

}  // namespace

void checkHeader(const std::string& header) {
  constexpr const char* patterns[] = {
      "",
      "#pragma once",
      "#include <zentho/serialization/serialization.h>",
      "#include <cstdint>",
      "#include <string>",
      "#include \"@P.h\"",
      "namespace @N {",
      "} /* namespace @N */",
      "enum @N {",
      "    @N = @V,",
      "}; /* enum @N */",
      "struct @N {",
      "    @T @N;",
      "}; /* message @N */",
      "    struct Request {",
      "        @T @N;",
      "    } request; /* struct Request */",
      "    struct Response {",
      "    } response; /* struct Response */",
      "}; /* service @N */",
      "template<>",
      "inline void serialize(const @T& data, BytesBuffer& buffer) {",
      "inline void deserialize(BytesBuffer& buffer, @T& data) {",
      "    serialize(data.@N, buffer);",
      "    deserialize(buffer, data.@N);",
      "}; /* serialization of @T */",
      "}; /* de-serialization of @T */",
      "}; /* serialization of @T Request */",
      "}; /* serialization of @T Response */",
      "}; /* de-serialization of @T Request */",
      "}; /* de-serialization of @T Response */"};
  for (const std::string& line : Lines(header)) {
    check(std::any_of(std::begin(patterns), std::end(patterns),
                      [&](const char* pattern) { return Matches(line, pattern); }),
          "each line of a header has a known form");
  }
}

}  // namespace zentho::idlgen
