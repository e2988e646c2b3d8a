// Checks arbitrary bytes as an IDL file, or as several files that may include each other, in memory
// like idlgen-header, and checks invariants of what is said.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"
#include "memory_tree.h"
#include "messages/examination.h"
#include "messages/report.h"
#include "sources/sources.h"

namespace zentho::idlgen {
namespace {

using Files = std::map<std::string, std::string>;  ///< Texts by paths.

const std::string firstPath = "a.idl";

/// Checks that the place exists that a message is about.
void checkPlace(const Files& files, const std::string& path, std::size_t line, std::size_t column) {
  const auto file = files.find(std::filesystem::path(path).lexically_normal().string());
  check(file != files.end(), "the file of a message exists");
  const std::vector<std::string_view> lines = Lines(file->second);
  check(line >= 1 && line <= lines.size(), "the line of a message exists");
  check(column >= 1 && column <= lines[line - 1].size(), "the column of a message exists");
}

/// Checks what is said about the file at `path`: the form of the lines, the number of messages and
/// their places, and that nothing in them can disturb a terminal. Returns the places and kinds of
/// the errors and warnings, such as "a.idl:1:9: error: ".
std::vector<std::string> CheckOutcome(const Files& files, const std::string& path,
                                      const Outcome& outcome) {
  std::vector<std::string> told;
  bool hasError = false;
  const std::vector<std::string_view> lines = Lines(outcome.messages);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string line(lines[i]);
    char where[101];
    char kind[8];
    std::size_t number = 0;
    std::size_t column = 0;
    int end = 0;
    // The path, the line, the column, and "error", "warning" or "note".
    std::sscanf(line.c_str(), "%100[^:]:%zu:%zu: %7[a-z]: %n", where, &number, &column, kind, &end);
    if (end == 0) {
      check(line == path + ": more messages are not shown" ||
                line == path + ": the rest is not checked",
            "a line without a place is about the whole file");
      continue;
    }
    checkPlace(files, where, number, column);
    check(i + 2 < lines.size() && lines[i + 1].find(" | ") != std::string_view::npos &&
              lines[i + 2].find('^') != std::string_view::npos,
          "an excerpt follows a message");
    i += 2;
    if (std::string_view(kind) == "note") continue;
    check(where == path, "what is wrong in a file is told there");
    hasError = hasError || std::string_view(kind) == "error";
    told.push_back(line.substr(0, static_cast<std::size_t>(end)));
  }
  check(told.size() <= 20, "there are at most 20 messages");
  check(outcome.succeeded == !hasError, "only an error is a failure");
  check(std::none_of(
            outcome.messages.begin(), outcome.messages.end(),
            [](unsigned char byte) { return (byte < 0x20 && byte != '\n') || byte == 0x7f; }),
        "a message contains no control characters");
  return told;
}

/// Checks a file by itself.
std::vector<std::string> CheckAlone(const std::string& path, const std::string& text) {
  Schema schema;
  const Outcome outcome = reportAlone(path, text, schema);
  if (outcome.succeeded) {
    check(!SourceFile(path, text).error.has_value(), "no file with a grammar error is accepted");
    checkWords(schema);
  }
  return CheckOutcome({{path, text}}, path, outcome);
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
  for (const Sources::Input& named : sources.named()) {
    const SourceFile& file = *named.file;
    const bool isValid = !file.error.has_value();
    const Outcome outcome = reportOn(examination, *named.file, Warnings::Report);
    check(isValid || !outcome.succeeded, "no file with a grammar error is accepted");
    if (outcome.succeeded) checkWords(file.schema);
    const std::vector<std::string> told = CheckOutcome(files, file.path, outcome);
    // After an error, words of other languages may be read as includes.
    check(!isValid || !file.includes.empty() || told == CheckAlone(file.path, file.text),
          "the other files do not matter to one without includes");
  }
}

/// Returns the path in a line such as "=== dir/b.idl", or nothing if the line is another one.
std::string PathOf(std::string_view line) {
  if (line.rfind("=== ", 0) != 0 || line.size() > 100) return {};
  const std::string path(line.substr(4));
  const std::string between = "/" + path + "/";
  for (const char* part : {"//", "/.", "./"}) {
    if (between.find(part) != std::string::npos) return {};
  }
  // Two files that differ only in what follows the last dot would have one header.
  const bool isPath = path.find_first_not_of("abcdefghijklmnopqrstuvwxyz./") == std::string::npos &&
                      path.size() > 4 && path.compare(path.size() - 4, 4, ".idl") == 0;
  return isPath ? path : std::string();
}

/// Splits the input at such lines. What stands before them is the first file.
Files Split(const std::string& input) {
  Files files;
  std::string* text = &files[firstPath];
  for (const std::string_view line : Lines(input)) {
    const std::string path = PathOf(line);
    if (path.empty()) {
      text->append(line) += '\n';
    } else {
      text = &files[path];
    }
  }
  return files;
}

void checkInput(const std::string& input) {
  const Files files = Split(input);
  if (files.size() > 1) {
    checkTogether(files);
  } else {
    CheckAlone(firstPath, input);
  }
}

}  // namespace
}  // namespace zentho::idlgen

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  zentho::idlgen::check(zentho::idlgen::Printed([&] { zentho::idlgen::checkInput(input); }) == 0,
                        "checking prints nothing");
  return 0;
}
