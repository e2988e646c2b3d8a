#include "reader/idl.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

#include "io/file.h"

namespace zentho {
namespace {

/// All the bytes of the file, or those before the first read error; empty if it cannot be opened.
std::string ReadFile(const std::string& path) {
  std::string text;
  const File file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) return text;
  std::array<char, 16384> block;
  while (const std::size_t size = std::fread(block.data(), 1, block.size(), file.get())) {
    text.append(block.data(), size);
  }
  return text;
}

/// The line up to its comment. A '#' anywhere makes every '/' ordinary, and a "//" counts only
/// where the line has its first '/'.
std::string_view WithoutComment(std::string_view line) {
  const std::size_t hash = line.find('#');
  if (hash != std::string_view::npos) return line.substr(0, hash);
  const std::size_t slash = line.find('/');
  if (slash != std::string_view::npos && line.substr(slash, 2) == "//") {
    return line.substr(0, slash);
  }
  return line;
}

/// The lines of the text, without their comments. Empty lines are dropped, but a line that its
/// comment leaves empty is kept.
std::vector<std::string> StoredLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (end != 0) lines.emplace_back(WithoutComment(text.substr(0, end)));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

/// Prints every line as its tokens in a row, each followed by the mark.
void printLines(const std::vector<std::list<std::string>>& lines, std::string_view mark) {
  for (const std::list<std::string>& line : lines) {
    std::string text;
    for (const std::string& token : line) text.append(token).append(mark);
    writeLine(stdout, {text});
  }
}

}  // namespace

void IDL::load(std::string path) {
  writeLine(stdout, {"idl path:", path});

  std::vector<std::list<std::string>> cutAtSpaces;
  splitBySpace(StoredLines(ReadFile(path)), cutAtSpaces);
  std::vector<std::list<std::string>> cutAtColons;
  splitByColon(std::move(cutAtSpaces), cutAtColons);
  splitByBrace(std::move(cutAtColons), tokenLines);
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
  output.reserve(output.size() + lines.size());
  for (std::string& line : lines) split(std::move(line), output.emplace_back(), ' ');
}

void IDL::splitByColon(std::vector<std::list<std::string>> lines,
                       std::vector<std::list<std::string>>& output) {
  for (std::list<std::string>& line : lines) {
    // Each token is freed as soon as it is cut, here and below: the file is in memory only once.
    for (; !line.empty(); line.pop_front()) {
      split(std::move(line.front()), output.emplace_back(), ':');
    }
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
  output.reserve(output.size() + lines.size());
  for (std::list<std::string>& line : lines) {
    std::list<std::string>& cut = output.emplace_back();
    for (; !line.empty(); line.pop_front()) splitByBrace(std::move(line.front()), cut);
  }
}

void IDL::outputFinal() const {
  writeLine(stdout, {"output final idl:"});
  printLines(tokenLines, "");
}

void IDL::output(const std::vector<std::list<std::string>>& lines) {
  writeLine(stdout, {"output idl:"});
  printLines(lines, "[~]");
}

}  // namespace zentho
