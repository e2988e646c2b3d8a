// Runs arbitrary bytes through all stages and checks invariants.
#include <unistd.h>

#include <algorithm>
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

#include "generator/generator.h"
#include "io/line_writer.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"
#include "step/diagnostic.h"

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

std::size_t CountLines(const std::string& path, std::string_view expected) {
  std::ifstream file(path, std::ios::binary);
  std::size_t count = 0;
  for (std::string line; std::getline(file, line);) count += line == expected ? 1U : 0U;
  return count;
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

std::vector<std::string> Tokens(std::string_view text) {
  IDL idl;
  idl.tokenize(text);
  std::vector<std::string> tokens;
  for (const auto& line : idl.tokenLines) tokens.insert(tokens.end(), line.begin(), line.end());
  return tokens;
}

/// Returns the number of tokens in the first lines of the text.
std::size_t CountTokens(const std::string& text, std::size_t lines) {
  std::size_t end = 0;
  for (; lines > 0 && end < text.size(); --lines)
    end = std::min(text.find('\n', end), text.size() - 1) + 1;
  check(lines == 0, "a reported line exists");
  return Tokens(text.substr(0, end)).size();
}

/// Checks a line of a message that begins with the number of the line with a token.
void checkLocation(const std::string& text, const std::string& message, std::size_t token) {
  check(message.rfind("a.idl:", 0) == 0, "a location begins with the path");
  const std::size_t number = std::stoul(message.substr(6));
  check(CountTokens(text, number - 1) < token && token <= CountTokens(text, number),
        "the reported line contains the token");
}

void checkDiagnostic(const std::string& text, const ParseError& error) {
  const std::string message = Diagnostic("a.idl", text, error);
  std::vector<std::string> lines;
  std::istringstream stream(message);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  for (const std::string& line : lines) {
    check(std::none_of(line.begin(), line.end(),
                       [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }),
          "a message contains no control characters");
  }

  const std::vector<std::string> tokens = Tokens(text);
  std::size_t suspect = error.tokensRead;
  const auto isSuspect = [](const std::string& token) {
    return token.find_first_of("\t\r}") != std::string::npos && token != "}";
  };
  while (suspect > 0 && !isSuspect(tokens.at(suspect - 1))) --suspect;
  check(lines.size() == (suspect > 0 ? 3 : 2), "a message has a note if there is a suspect word");
  checkLocation(text, lines[0], error.tokensRead);
  // 40 bytes are shown, or up to 3 less if the cut would split a character.
  std::string beginning = tokens.at(error.tokensRead - 1).substr(0, 37);
  if (beginning.back() == '\xc2') beginning.pop_back();  // Half a character.
  check(lines[1].find(Printable(beginning)) != std::string::npos,
        "an excerpt shows the last token");
  if (suspect > 0) checkLocation(text, lines[2], suspect);
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
  try {
    Schema other;
    check(Printed([&] { Parser().parseSilently(idl, other); }).empty(),
          "silent parsing prints nothing");
    check(valid, "parsing fails in both ways");
  } catch (const ParseError& error) {
    check(!valid, "parsing succeeds in both ways");
    checkDiagnostic(text, error);
  }
  if (!valid) return;

  check(Printed([&] { Generator(schema).generate(stem + ".idl"); }).empty(),
        "generating prints nothing");
  std::string header;
  LineWriter writer(&header);
  Generator(schema).write(writer);
  std::ifstream file(stem + ".h", std::ios::binary);
  check(header == std::string(std::istreambuf_iterator<char>(file), {}),
        "the header is the same in a file and in a string");
  check(CountLines(stem + ".h", "template<>") ==
            2 * schema.messages.size() + 4 * schema.services.size(),
        "two functions per message, four per service");
}

}  // namespace
}  // namespace zentho

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zentho::checkStages(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
