#include "program/depfile.h"

#include <cstddef>

namespace zentho::idlgen {
namespace {

/// Escapes a name as gcc does. make cannot read all names: ':' and '%' have no escapes.
std::string Escaped(std::string_view name) {
  std::string result;
  std::size_t backslashes = 0;  // Right before the character.
  for (const char character : name) {
    // make takes backslashes as escapes only before a blank.
    if (character == ' ' || character == '\t') result.append(backslashes + 1, '\\');
    if (character == '#') result += '\\';
    if (character == '$') result += '$';
    result += character;
    backslashes = character == '\\' ? backslashes + 1 : 0;
  }
  return result;
}

/// Returns whether this is one name, and no blank ends it.
bool IsOneName(std::string_view escaped) {
  const std::size_t blank = escaped.find_first_of(" \t");
  if (blank == std::string_view::npos) return true;
  return blank > 0 && escaped[blank - 1] == '\\' && IsOneName(escaped.substr(blank + 1));
}

}  // namespace

std::string Depfile(std::string_view target, const std::vector<std::string>& files) {
  std::string rule = Escaped(target) + ":";
  std::string emptyRules;
  for (const std::string& file : files) {
    const std::string name = Escaped(file);
    rule.append(" \\\n ").append(name);
    emptyRules.append("\n").append(name).append(":\n");
  }
  return rule + "\n" + emptyRules;
}

bool IsDepfile(std::string_view beginning, std::string_view target) {
  const std::string end = "/" + Escaped(target.substr(target.rfind('/') + 1)) + ": \\\n ";
  std::string start = "/";  // In case the path has no directory.
  start += beginning.substr(0, beginning.find('\n') + 2);
  const bool isRule =
      start.size() >= end.size() && start.compare(start.size() - end.size(), end.size(), end) == 0;
  return isRule && IsOneName(start.substr(0, start.size() - end.size()));
}

}  // namespace zentho::idlgen
