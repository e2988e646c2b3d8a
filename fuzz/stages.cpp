// Runs arbitrary bytes through all stages, and several files made of them through the check of
// files together, and checks invariants.
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "check.h"
#include "generator/generator.h"
#include "header_lines.h"
#include "io/line_writer.h"
#include "memory_tree.h"
#include "messages/examination.h"
#include "messages/report.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"
#include "sources/sources.h"
#include "told.h"

namespace zentho::idlgen {
namespace {

const std::string stem = "/dev/shm/idlgen_fuzz_" + std::to_string(getpid());
const std::string firstPath = "a.idl";

/// Deletes the files when the fuzzer ends. After a failure they are kept.
struct Cleaner {
  ~Cleaner() {
    for (const char* extension : {".idl", ".h", ".out"}) std::remove((stem + extension).c_str());
  }
} cleaner;

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

std::string Header(const Schema& schema) {
  StringLineWriter writer;
  Generator(schema).write(writer);
  return writer.text;
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

/// Checks each stage of idlgen. Returns whether it accepts the text.
bool checkStages(const std::string& text) {
  const IDL idl = Load(text);
  checkTokens(idl);
  std::string doubled;
  for (const char byte : text) doubled.append(byte == ' ' || byte == ':' ? 2 : 1, byte);
  check(Load(doubled).tokenLines == idl.tokenLines, "doubled separators change nothing");
  Printed([&] { idl.outputFinal(); });

  Schema schema;
  if (!Parse(idl, schema)) return false;
  check(Printed([&] { Generator(schema).generate(stem + ".idl"); }).empty(),
        "generating prints nothing");
  const std::string header = Header(schema);
  std::ifstream file(stem + ".h", std::ios::binary);
  check(header == std::string(std::istreambuf_iterator<char>(file), {}),
        "the header is the same in a file and in a string");
  const std::vector<std::string> lines = Lines(header);
  check(static_cast<std::size_t>(std::count(lines.begin(), lines.end(), "template<>")) ==
            2 * schema.messages.size() + 4 * schema.services.size(),
        "two functions per message, four per service");
  return true;
}

/// Checks a file by itself. Returns the places and kinds of the messages.
std::vector<std::string> checkAlone(const std::string& path, const std::string& text, bool valid) {
  Schema schema;
  Outcome result{};
  check(Printed([&] { result = reportAlone(path, text, schema); }).empty(),
        "checking prints nothing");
  check(valid || !result.succeeded, "a file with a grammar error is never accepted");
  if (result.succeeded) checkHeader(Header(schema));
  return checkTold({{path, text}}, path, result);
}

/// Checks the files together. Those in inc/ are read only if others include them.
void checkTogether(const Files& files) {
  MemoryTree tree(files);
  Sources sources(tree, {".", "inc"});
  std::vector<std::string> paths;
  for (const auto& [path, text] : files) {
    if (path.rfind("inc/", 0) != 0) paths.push_back(path);
  }
  sources.load(paths);
  Examination examination(sources);
  for (const Sources::Named& named : sources.named()) {
    const SourceFile& file = sources.files()[named.file];
    const Outcome result = reportOn(examination, named.file, Warnings::Tell);
    const bool valid = !file.error.has_value();
    check(valid || !result.succeeded, "a file with a grammar error is never accepted");
    if (result.succeeded) checkHeader(Header(file.schema));
    const std::vector<std::string> told = checkTold(files, file.path, result);
    // After an error, words of other languages may be read as includes.
    check(!valid || !file.includes.empty() || told == checkAlone(file.path, file.text, valid),
          "the other files do not matter to one without includes");
  }
}

/// Returns the path in a line such as "=== dir/b.idl", or nothing if the line is another one.
std::string PathOf(const std::string& line) {
  if (line.rfind("=== ", 0) != 0) return {};
  const std::string path = line.substr(4);
  const bool isPath = path.find_first_not_of("abcdefghijklmnopqrstuvwxyz./") == std::string::npos &&
                      path[0] != '.' && std::filesystem::path(path).has_filename() &&
                      std::filesystem::path(path).lexically_normal().string() == path;
  return isPath ? path : std::string();
}

/// Splits the input at such lines. What stands before them is the first file.
Files Split(const std::string& input) {
  Files files;
  std::string* text = &files[firstPath];
  for (std::size_t begin = 0; begin < input.size();) {
    const std::size_t end = std::min(input.find('\n', begin), input.size());
    const std::string path = PathOf(input.substr(begin, end - begin));
    if (path.empty()) {
      text->append(input, begin, end + 1 - begin);
    } else {
      text = &files[path];
    }
    begin = end + 1;
  }
  return files;
}

}  // namespace
}  // namespace zentho::idlgen

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const zentho::idlgen::Files files =
      zentho::idlgen::Split(std::string(reinterpret_cast<const char*>(data), size));
  const std::string& first = files.at(zentho::idlgen::firstPath);
  zentho::idlgen::checkAlone(zentho::idlgen::firstPath, first, zentho::idlgen::checkStages(first));
  if (files.size() > 1) zentho::idlgen::checkTogether(files);
  return 0;
}
