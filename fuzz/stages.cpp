// Runs arbitrary bytes through all stages and checks invariants.
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "header/examine.h"
#include "generator/generator.h"
#include "io/line_writer.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho {
namespace {

const std::string stem = "/dev/shm/idlgen_fuzz_" + std::to_string(getpid());

/// Deletes the files when the fuzzer ends. After a failure they are kept.
struct Cleaner {
  ~Cleaner() {
    for (const char* extension : {".idl", ".h", ".out"}) std::remove((stem + extension).c_str());
  }
} cleaner;

void check(bool holds, const char* invariant) {
  if (holds) return;
  std::fprintf(stderr, "Check failed: %s\n", invariant);
  std::abort();
}

/// Returns what the action prints. From the first call on, standard output goes to a file.
template <typename Action>
std::string Printed(const Action& action) {
  const std::string path = stem + ".out";
  static const bool redirected = std::freopen(path.c_str(), "a", stdout) != nullptr;
  check(redirected, "standard output goes to a file");
  std::filesystem::resize_file(path, 0);
  action();
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

IDL Load(const std::string& text) {
  std::ofstream(stem + ".idl", std::ios::binary) << text;
  IDL idl;
  check(Printed([&] { idl.load(stem + ".idl"); }) == "idl path:" + stem + ".idl\n",
        "loading prints only the path");
  return idl;
}

/// Parses the tokens and dumps the model. Returns whether the tokens are valid.
bool Parse(const IDL& idl, Schema& schema) {
  bool valid = true;
  Printed([&] {
    try {
      Parser().parse(idl, schema);
    } catch (const std::exception&) {
      valid = false;
    }
    schema.output();
  });
  return valid;
}

void checkTokens(const IDL& idl) {
  for (const auto& line : idl.tokenLines) {
    for (const std::string& token : line) {
      check(!token.empty(), "no token is empty");
      check(token.find_first_of(" :") == std::string::npos, "no token contains a separator");
      check(token.find('{') >= token.size() - 1, "'{' occurs only at the end of a token");
    }
  }
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// Checks the messages about the text: their number, their places, and that nothing in them can
/// disturb a terminal.
void checkMessages(const std::string& text, const Outcome& result) {
  const std::vector<std::string> textLines = Lines(text);
  std::size_t count = 0;
  std::size_t errors = 0;
  for (const std::string& line : Lines(result.messages)) {
    check(std::none_of(line.begin(), line.end(),
                       [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }),
          "a message contains no control characters");
    if (line.rfind("a.idl:", 0) != 0 || line.rfind("a.idl: ", 0) == 0) continue;
    std::size_t end = 0;
    const std::size_t number = std::stoul(line.substr(6), &end);
    const std::size_t column = std::stoul(line.substr(6 + end + 1));
    check(number >= 1 && number <= textLines.size(), "the line of a message exists");
    check(column >= 1 && column <= textLines[number - 1].size(), "the column of a message exists");
    const std::string kind = line.substr(line.find(": ") + 2);
    if (kind.rfind("error: ", 0) == 0) ++errors;
    if (kind.rfind("note: ", 0) != 0) ++count;
  }
  check(count <= 20, "there are at most 20 messages");
  check(result.succeeded == (errors == 0), "only an error is a failure");
}

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

/// Checks that words of the IDL file are where they belong in the header, and nowhere else.
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

void checkStages(const std::string& text) {
  const IDL idl = Load(text);
  checkTokens(idl);
  std::string doubled;
  for (const char byte : text) doubled.append(byte == ' ' || byte == ':' ? 2 : 1, byte);
  check(Load(doubled).tokenLines == idl.tokenLines, "doubled separators change nothing");
  Printed([&] { idl.outputFinal(); });

  Schema schema;
  const bool valid = Parse(idl, schema);
  Schema other;
  Outcome result{};
  check(Printed([&] { result = examine("a.idl", text, other); }).empty(),
        "checking prints nothing");
  check(valid || !result.succeeded, "a file with a grammar error is never accepted");
  checkMessages(text, result);
  if (!valid) return;

  check(Printed([&] { Generator(schema).generate(stem + ".idl"); }).empty(),
        "generating prints nothing");
  StringLineWriter writer;
  Generator(other).write(writer);
  std::ifstream file(stem + ".h", std::ios::binary);
  check(writer.text == std::string(std::istreambuf_iterator<char>(file), {}),
        "the header is the same in a file and in a string");
  if (result.succeeded) checkHeader(writer.text);
  const std::vector<std::string> lines = Lines(writer.text);
  check(static_cast<std::size_t>(std::count(lines.begin(), lines.end(), "template<>")) ==
            2 * schema.messages.size() + 4 * schema.services.size(),
        "two functions per message, four per service");
}

}  // namespace
}  // namespace zentho

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zentho::checkStages(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
