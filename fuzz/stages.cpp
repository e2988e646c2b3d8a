// Takes any bytes through all stages and holds what comes out against what must be true of it.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "generator/generator.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho {
namespace {

const std::string stem = "/dev/shm/idlgen_fuzz_" + std::to_string(getpid());

/// Takes the files away when the fuzzer ends; a fault leaves them.
struct Cleaner {
  ~Cleaner() {
    for (const char* extension : {".idl", ".h", ".out"}) std::remove((stem + extension).c_str());
  }
} cleaner;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "Not so: %s\n", what);
  std::abort();
}

/// What the action prints, caught in a file that standard output goes to from the first call on.
template <typename Action>
std::string Printed(const Action& action) {
  const std::string path = stem + ".out";
  static const bool caught = std::freopen(path.c_str(), "a", stdout) != nullptr;
  require(caught, "standard output goes to a file");
  std::filesystem::resize_file(path, 0);
  action();
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

IDL Load(const std::string& text) {
  std::ofstream(stem + ".idl", std::ios::binary) << text;
  IDL idl;
  require(Printed([&] { idl.load(stem + ".idl"); }) == "idl path:" + stem + ".idl\n",
          "loading prints the path alone");
  return idl;
}

/// Parses, and gives what is printed by it and then by the dump of the model.
std::string Parse(const IDL& idl, Schema& schema, bool& accepted) {
  return Printed([&] {
    try {
      Parser().parse(idl, schema);
      accepted = true;
    } catch (const std::exception&) {
      accepted = false;
    }
    schema.output();
  });
}

std::size_t CountLines(const std::string& path, std::string_view wanted) {
  std::ifstream file(path, std::ios::binary);
  std::size_t count = 0;
  for (std::string line; std::getline(file, line);) count += line == wanted ? 1U : 0U;
  return count;
}

void checkTokens(const IDL& idl) {
  for (const auto& line : idl.tokenLines) {
    for (const std::string& token : line) {
      require(!token.empty(), "no token is empty");
      require(token.find_first_of(" :") == std::string::npos, "no token holds a separator");
      require(token.find('{') >= token.size() - 1, "a brace ends its token");
    }
  }
}

void check(const std::string& text) {
  const IDL idl = Load(text);
  checkTokens(idl);
  std::string doubled;
  for (const char byte : text) doubled.append(byte == ' ' || byte == ':' ? 2 : 1, byte);
  require(Load(doubled).tokenLines == idl.tokenLines, "doubled separators change nothing");
  Printed([&] { idl.outputFinal(); });

  bool accepted = false;
  Schema schema;
  const std::string printed = Parse(idl, schema, accepted);
  Schema again;
  require(Parse(idl, again, accepted) == printed, "a second parse gives the same");
  if (!accepted) return;

  require(Printed([&] { Generator(schema).generate(stem + ".idl"); }).empty(),
          "generating prints nothing");
  require(CountLines(stem + ".h", "template<>") ==
              2 * schema.messages.size() + 4 * schema.services.size(),
          "two functions for a message, four for a service");
}

}  // namespace
}  // namespace zentho

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zentho::check(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
