#include "program/command_line.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "io/file.h"
#include "messages/outcome.h"
#include "reader/idl.h"

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

bool IsSamePath(const std::filesystem::path& a, const std::filesystem::path& b) {
  return a.lexically_normal() == b.lexically_normal();
}

/// Reads the arguments in their order.
class ArgumentReader {
 public:
  explicit ArgumentReader(std::vector<std::string> commandLine)
      : arguments(std::move(commandLine)) {}

  CommandLine read() {
    while (next < arguments.size()) {
      if (operands.empty() && !readOptions()) return {};
      if (next == arguments.size()) break;
      if (isCheck && next >= endOfFile && arguments[next][0] == '@') {
        if (std::string error = readArgumentFile(); !error.empty()) {
          return {CommandLine::Kind::Failed, std::move(error)};
        }
      } else {
        operands.push_back(std::move(arguments[next++]));
      }
    }
    return isCheck ? checkLine() : headerLine();
  }

 private:
  /// Reads options up to the first operand. Returns whether they are right.
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
      const int letter = getopt_long(count, words.data(), "+wI:", longOptions.data(), &index);
      if (letter == -1) break;
      if (index >= 0 && !isWhole(word, longOptions[static_cast<std::size_t>(index)].name)) {
        return false;
      }
      if (!readOption(letter)) return false;
    }
    next += static_cast<std::size_t>(optind) - 1;
    return true;
  }

  /// Returns whether the word is "--NAME" or "--NAME=...": getopt_long takes a part of the name,
  /// too.
  static bool isWhole(std::string_view word, std::string_view name) {
    return word.substr(2, word.find('=') - 2) == name;
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

  /// Replaces the next argument, "@FILE", by the lines of the file. Returns why that failed.
  std::string readArgumentFile() {
    std::string path = arguments[next].substr(1);
    std::string text;
    if (const std::error_code error = readFile(path, text)) {
      return ErrorLine(path, error.message());
    }
    const std::vector<std::string> lines = Lines(text);
    const auto place = arguments.begin() + static_cast<std::ptrdiff_t>(next);
    arguments.insert(arguments.erase(place), lines.begin(), lines.end());
    endOfFile = next + lines.size();
    line.check.argumentFiles.push_back(std::move(path));
    return {};
  }

  /// Returns the command line of "--check".
  CommandLine checkLine() {
    CheckRequest& request = line.check;
    const bool isWrong = operands.empty() || line.header.ifChanged || (isSilent && isStrict) ||
                         (request.depfile.has_value() &&
                          (!request.stamp || IsSamePath(*request.depfile, *request.stamp))) ||
                         std::any_of(operands.begin(), operands.end(),
                                     [](const std::string& operand) { return operand[0] == '-'; });
    if (isWrong) return {};
    request.files = std::move(operands);
    request.warnings = warnings();
    line.kind = CommandLine::Kind::Check;
    return std::move(line);
  }

  /// Returns the command line that generates a header.
  CommandLine headerLine() {
    const CheckRequest& foreign = line.check;
    const bool isWrong = operands.size() != 2 || (isSilent && isStrict) ||
                         !foreign.directories.empty() || foreign.stamp || foreign.depfile;
    if (isWrong) return {};
    line.header.idl = std::move(operands[0]);
    line.header.header = std::move(operands[1]);
    line.header.warnings = warnings();
    line.kind = CommandLine::Kind::Header;
    return std::move(line);
  }

  [[nodiscard]] Warnings warnings() const {
    if (isStrict) return Warnings::Fail;
    return isSilent ? Warnings::Ignore : Warnings::Tell;
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
