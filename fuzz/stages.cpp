// Runs arbitrary bytes through all stages and checks invariants.
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

void checkStages(const std::string& text) {
  const IDL idl = Load(text);
  checkTokens(idl);
  std::string doubled;
  for (const char byte : text) doubled.append(byte == ' ' || byte == ':' ? 2 : 1, byte);
  check(Load(doubled).tokenLines == idl.tokenLines, "doubled separators change nothing");
  Printed([&] { idl.outputFinal(); });

  Schema schema;
  if (!Parse(idl, schema)) return;

  check(Printed([&] { Generator(schema).generate(stem + ".idl"); }).empty(),
        "generating prints nothing");
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
