#include "told.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <regex>

#include "check.h"

namespace zentho::idlgen {
namespace {

/// The first line of a message: its place and kind; path, line, column and the kind alone.
const std::regex head("(([^:]+):([1-9][0-9]*):([1-9][0-9]*): (error|warning|note)): .+");
const std::regex end("[^:]+: (more messages are not shown|the rest is not checked)");

void checkPlace(const Files& files, const std::smatch& message) {
  const auto file = files.find(std::filesystem::path(message.str(2)).lexically_normal().string());
  check(file != files.end(), "the file of a message exists");
  const std::vector<std::string> lines = Lines(file->second);
  const std::size_t number = std::stoul(message.str(3));
  check(number <= lines.size(), "the line of a message exists");
  check(std::stoul(message.str(4)) <= lines[number - 1].size(), "the column of a message exists");
}

}  // namespace

std::vector<std::string> checkTold(const Files& files, const std::string& path,
                                   const Outcome& result) {
  check(std::none_of(
            result.messages.begin(), result.messages.end(),
            [](unsigned char byte) { return (byte < 0x20 && byte != '\n') || byte == 0x7f; }),
        "a message contains no control characters");
  std::vector<std::string> told;
  bool hasError = false;
  const std::vector<std::string> lines = Lines(result.messages);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::smatch message;
    if (!std::regex_match(lines[i], message, head)) {
      check(std::regex_match(lines[i], end), "a line without a place is about the whole file");
      continue;
    }
    checkPlace(files, message);
    check(i + 2 < lines.size() && lines[i + 1].find(" | ") != std::string::npos &&
              lines[i + 2].find('^') != std::string::npos,
          "an excerpt follows a message");
    i += 2;
    if (message.str(5) == "note") continue;
    check(message.str(2) == path, "what is wrong in a file is told there");
    hasError = hasError || message.str(5) == "error";
    told.push_back(message.str(1));
  }
  check(told.size() <= 20, "there are at most 20 messages");
  check(result.succeeded == !hasError, "only an error is a failure");
  return told;
}

}  // namespace zentho::idlgen
