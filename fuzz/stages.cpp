// Runs arbitrary bytes through the stages of idlgen, from a file to a file, and checks invariants.
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"
#include "generator/generator.h"
#include "io/line_writer.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho::idlgen {
namespace {

const std::string stem = "/dev/shm/idlgen_fuzz_" + std::to_string(getpid());

/// Deletes the files when the fuzzer ends. After a failure they are kept.
struct Cleaner {
  ~Cleaner() {
    for (const char* extension : {".idl", ".h"}) std::remove((stem + extension).c_str());
  }
} cleaner;

IDL Load(const std::string& text) {
  std::ofstream(stem + ".idl", std::ios::binary) << text;
  IDL idl;
  const std::size_t printed = Printed([&] { idl.load(stem + ".idl"); });
  check(printed == ("idl path:" + stem + ".idl\n").size(), "loading prints only the path");
  return idl;
}

void checkTokens(const std::string& text, const IDL& idl) {
  for (const auto& line : idl.tokenLines) {
    for (const std::string& token : line) {
      check(!token.empty(), "no token is empty");
      check(token.find_first_of(" :") == std::string::npos, "no token contains a separator");
      check(token.find('{') >= token.size() - 1, "'{' occurs only at the end of a token");
    }
  }
  std::string doubled;
  for (const char byte : text) doubled.append(byte == ' ' || byte == ':' ? 2 : 1, byte);
  IDL same;
  same.tokenize(doubled);
  check(same.tokenLines == idl.tokenLines, "doubled separators change nothing");
  Printed([&] { idl.outputFinal(); });
}

/// Parses the tokens and dumps the model. Returns whether the tokens are valid.
bool Parse(const IDL& idl, Schema& schema) {
  bool isValid = true;
  Printed([&] {
    try {
      Parser().parse(idl, schema);
    } catch (const std::exception&) {
      isValid = false;
    }
    schema.output();
  });
  return isValid;
}

void checkHeaderOf(const Schema& schema) {
  const Generator generator(schema);
  check(Printed([&] { generator.generate(stem + ".idl"); }) == 0, "generating prints nothing");
  StringLineWriter header;
  generator.write(header);
  std::ifstream file(stem + ".h", std::ios::binary);
  check(header.text == std::string(std::istreambuf_iterator<char>(file), {}),
        "the header is the same in a file and in a string");
  const std::vector<std::string_view> lines = Lines(header.text);
  check(static_cast<std::size_t>(std::count(lines.begin(), lines.end(), "template<>")) ==
            2 * schema.messages.size() + 4 * schema.services.size(),
        "two functions per message, four per service");
}

}  // namespace
}  // namespace zentho::idlgen

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const zentho::IDL idl = zentho::idlgen::Load(text);
  zentho::idlgen::checkTokens(text, idl);
  zentho::Schema schema;
  if (zentho::idlgen::Parse(idl, schema)) zentho::idlgen::checkHeaderOf(schema);
  return 0;
}
