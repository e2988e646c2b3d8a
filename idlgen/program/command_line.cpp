#include "program/command_line.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "messages/outcome.h"
#include "reader/idl.h"
#include "sources/source_tree.h"
#include "words/printable.h"

namespace zentho::idlgen {
namespace {

/// What getopt_long returns for the options without a letter.
enum LongOption : int { check = 256, depfile, ifChanged, stamp, werror };

constexpr std::array<option, 6> longOptions = {{{"check", no_argument, nullptr, check},
                                                {"depfile", required_argument, nullptr, depfile},
                                                {"if-changed", no_argument, nullptr, ifChanged},
                                                {"stamp", required_argument, nullptr, stamp},
                                                {"werror", no_argument, nullptr, werror},
                                                {nullptr, 0, nullptr, 0}}};

/// The lines of an argument file. Empty lines are no arguments.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (!line.empty()) lines.emplace_back(line);
  }
  return lines;
}

/// Returns whether two paths of files that may not exist are the same, also through a link to a
/// directory.
bool IsSamePath(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code error;
  return a.lexically_normal() == b.lexically_normal() ||
         (a.filename() == b.filename() &&
          std::filesystem::equivalent(a.parent_path() / ".", b.parent_path() / ".", error));
}

/// Reads the arguments in their order.
class ArgumentReader {
 public:
  explicit ArgumentReader(std::vector<std::string> commandLine)
      : arguments(std::move(commandLine)) {}

  CommandLine read() {
    while (next < arguments.size()) {
      if (operands.empty() && !readOptions()) return std::move(line);
      if (next == arguments.size()) break;
      if (isCheck && next >= endOfFile && arguments[next][0] == '@') {
        if (!readArgumentFile()) break;
      } else {
        operands.push_back(std::move(arguments[next++]));
      }
    }
    finish();
    return std::move(line);
  }

 private:
  /// Reads options up to the first operand. Returns whether they are right, or else says why not.
  bool readOptions() {
    std::vector<char*> words = {nullptr};  // In place of the name of the program.
    for (std::size_t i = next; i < arguments.size(); ++i) words.push_back(arguments[i].data());
    const int count = static_cast<int>(words.size());
    words.push_back(nullptr);
    opterr = 0;
    optind = 0;  // Starts again.
    while (true) {
      const char* const word = words[static_cast<std::size_t>(std::max(optind, 1))];
      int index = -1;
      const int letter = getopt_long(count, words.data(), "+:wI:", longOptions.data(), &index);
      if (letter == -1) break;
      const bool isPart =
          index >= 0 && !isWhole(word, longOptions[static_cast<std::size_t>(index)].name);
      if (isPart || !readOption(letter)) {
        line.error = isPart ? unknown(word) : optionError(letter, word);
        return false;
      }
    }
    next += static_cast<std::size_t>(optind) - 1;
    return true;
  }

  /// Returns whether the word is "--NAME" or "--NAME=...": getopt_long takes a part of the name,
  /// too.
  static bool isWhole(std::string_view word, std::string_view name) {
    return word.substr(2, word.find('=') - 2) == name;
  }

  static std::string unknown(const std::string& option) {
    const bool isAlone = option == "--help" || option == "--version";
    return Quoted(option) + (isAlone ? " takes no other arguments" : " is not an option");
  }

  /// Returns what is wrong with the option in this word, of which getopt_long returned the letter.
  static std::string optionError(int letter, const std::string& word) {
    if (letter == ':') return Quoted(word) + " needs a value";
    if (optopt >= check) return Quoted(word) + " has a value, but takes none";
    return unknown(optopt == 0 ? word : std::string("-") + static_cast<char>(optopt));
  }

  bool readOption(int letter) {
    switch (letter) {
      case 'I':
        line.check.directories.emplace_back(optarg);
        return true;
      case 'w':
        isSilent = true;
        return true;
      case werror:
        isStrict = true;
        return true;
      case check:
        isCheck = true;
        return true;
      case ifChanged:
        line.header.ifChanged = true;
        return true;
      case stamp:
        line.check.stamp = optarg;
        return true;
      case depfile:
        line.check.depfile = optarg;
        return true;
      default:
        return false;
    }
  }

  /// Replaces the next argument, "@FILE", by the lines of the file. Returns whether that worked, or
  /// else notes why not.
  bool readArgumentFile() {
    std::string path = arguments[next].substr(1);
    std::string text;
    DiskTree tree;
    Entry entry = tree.look(path);
    if (entry.kind == Entry::Kind::File) entry = tree.read(path, text);
    if (entry.kind != Entry::Kind::File) {
      line.check.argumentError =
          ErrorLine(path, entry.error ? entry.error.message() : "is not a regular file");
      return false;
    }
    const std::vector<std::string> lines = Lines(text);
    const auto place = arguments.begin() + static_cast<std::ptrdiff_t>(next);
    arguments.insert(arguments.erase(place), lines.begin(), lines.end());
    endOfFile = next + lines.size();
    line.check.argumentFiles.push_back(std::move(path));
    return true;
  }

  /// Completes the command line, or says what is wrong with it.
  void finish() {
    line.error = wholeError();
    if (!line.error.empty()) return;
    line.kind = isCheck ? CommandLine::Kind::Check : CommandLine::Kind::Header;
    line.header.warnings = line.check.warnings = warnings();
    if (isCheck) {
      line.check.files = std::move(operands);
    } else {
      line.header.idl = std::move(operands[0]);
      line.header.header = std::move(operands[1]);
    }
  }

  [[nodiscard]] std::string wholeError() const {
    if (!line.check.argumentError.empty()) return {};  // Not all of it has been read.
    if (isSilent && isStrict) return "-w and --werror exclude each other";
    return isCheck ? checkError() : headerError();
  }

  [[nodiscard]] std::string checkError() const {
    const CheckRequest& request = line.check;
    for (const std::string& operand : operands) {
      if (operand[0] == '-') return Quoted(operand) + " is among the files, but options come first";
    }
    if (line.header.ifChanged) return "--check takes no --if-changed";
    if (operands.empty()) return "there is no IDL file to check";
    if (request.depfile && !request.stamp) return "--depfile needs --stamp";
    if (request.depfile && IsSamePath(*request.depfile, *request.stamp)) {
      return "the stamp and the depfile are one file";
    }
    return {};
  }

  [[nodiscard]] std::string headerError() const {
    const CheckRequest& foreign = line.check;
    if (!foreign.directories.empty() || foreign.stamp || foreign.depfile) {
      return "-I, --stamp and --depfile need --check";
    }
    return operands.size() == 2 ? "" : "without --check, give one IDL file and its header";
  }

  [[nodiscard]] Warnings warnings() const {
    if (isStrict) return Warnings::Fail;
    return isSilent ? Warnings::Ignore : Warnings::Report;
  }

  std::vector<std::string> arguments;
  std::size_t next = 0;       ///< The first argument that has not been read.
  std::size_t endOfFile = 0;  ///< The arguments before this one come from an argument file.
  std::vector<std::string> operands;
  bool isCheck = false;
  bool isSilent = false;
  bool isStrict = false;
  CommandLine line;
};

}  // namespace

CommandLine ParseCommandLine(std::vector<std::string> arguments) {
  CommandLine line;
  if (arguments.size() == 1 && arguments[0] == "--help") line.kind = CommandLine::Kind::Help;
  if (arguments.size() == 1 && arguments[0] == "--version") line.kind = CommandLine::Kind::Version;
  if (line.kind != CommandLine::Kind::Wrong) return line;
  return ArgumentReader(std::move(arguments)).read();
}

}  // namespace zentho::idlgen
