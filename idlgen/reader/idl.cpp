#include "reader/idl.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "io/file.h"
#include "io/line_writer.h"

namespace zentho {
namespace {

/// Moves the first token of `line` to the end of `pieces`: as the pieces that `split` makes of it,
/// or whole and without a new allocation if it is not empty and does not contain the separator.
template <typename Split>
void moveFront(std::list<std::string>& line, std::list<std::string>& pieces, char separator,
               const Split& split) {
  std::string& token = line.front();
  if (!token.empty() && token.find(separator) == std::string::npos) {
    pieces.splice(pieces.end(), line, line.begin());
  } else {
    split(std::move(token), pieces);
    line.pop_front();
  }
}

/// Prints the tokens of each line, each followed by the mark.
void printLines(const std::vector<std::list<std::string>>& lines, std::string_view mark) {
  for (const std::list<std::string>& line : lines) {
    std::string text;
    for (const std::string& token : line) text.append(token).append(mark);
    idlgen::printLine({text});
  }
}

}  // namespace

std::string_view idlgen::WithoutComment(std::string_view line) {
  const std::size_t hash = line.find('#');
  if (hash != std::string_view::npos) return line.substr(0, hash);
  const std::size_t slash = line.find('/');
  if (slash != std::string_view::npos && line.substr(slash, 2) == "//") {
    return line.substr(0, slash);
  }
  return line;
}

std::string_view idlgen::TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

void IDL::load(std::string path) {
  idlgen::printLine({"idl path:", path});
  std::string text;
  (void)idlgen::readFile(path, text);  // What was read before an error counts.
  tokenize(text);
}

void IDL::tokenize(std::string_view text) {
  // Running the passes line by line gives the same result as for the whole text, with less memory.
  while (!text.empty()) {
    std::vector<std::string> stored;
    stored.emplace_back(idlgen::WithoutComment(idlgen::TakeLine(text)));

    std::vector<std::list<std::string>> splitAtSpaces;
    splitBySpace(std::move(stored), splitAtSpaces);
    std::vector<std::list<std::string>> splitAtColons;
    splitByColon(std::move(splitAtSpaces), splitAtColons);
    splitByBrace(std::move(splitAtColons), tokenLines);
  }
}

void IDL::split(std::string text, std::list<std::string>& output, char separator) {
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find(separator, begin), text.size());
    if (end != begin) output.emplace_back(text, begin, end - begin);
    begin = end + 1;
  }
}

void IDL::splitBySpace(std::vector<std::string> lines,
                       std::vector<std::list<std::string>>& output) {
  for (std::string& line : lines) split(std::move(line), output.emplace_back(), ' ');
}

void IDL::splitByColon(std::vector<std::list<std::string>> lines,
                       std::vector<std::list<std::string>>& output) {
  const auto splitToken = [](std::string token, std::list<std::string>& pieces) {
    split(std::move(token), pieces, ':');
  };
  for (std::list<std::string>& line : lines) {
    while (!line.empty()) moveFront(line, output.emplace_back(), ':', splitToken);
  }
}

void IDL::splitByBrace(std::string token, std::list<std::string>& output) {
  std::size_t begin = 0;
  std::size_t brace = token.find('{');
  while (brace != std::string::npos && brace + 1 != token.size()) {
    if (brace != begin) output.emplace_back(token, begin, brace - begin);
    output.emplace_back("{");
    begin = brace + 1;
    brace = token.find('{', begin);
  }
  if (begin != token.size()) output.emplace_back(token, begin);
}

void IDL::splitByBrace(std::vector<std::list<std::string>> lines,
                       std::vector<std::list<std::string>>& output) {
  const auto splitToken = [](std::string token, std::list<std::string>& pieces) {
    splitByBrace(std::move(token), pieces);
  };
  for (std::list<std::string>& line : lines) {
    std::list<std::string>& pieces = output.emplace_back();
    while (!line.empty()) moveFront(line, pieces, '{', splitToken);
  }
}

void IDL::outputFinal() const {
  idlgen::printLine({"output final idl:"});
  printLines(tokenLines, "");
}

void IDL::output(const std::vector<std::list<std::string>>& lines) {
  idlgen::printLine({"output idl:"});
  printLines(lines, "[~]");
}

}  // namespace zentho
