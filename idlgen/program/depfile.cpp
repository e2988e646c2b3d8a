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

}  // namespace

std::string RuleBeginning(std::string_view target) {
  return Escaped(target) + ":";
}

std::string Depfile(std::string_view target, const std::vector<std::string>& files) {
  std::string rule = RuleBeginning(target);
  std::string emptyRules;
  for (const std::string& file : files) {
    rule += " \\\n " + Escaped(file);
    emptyRules += "\n" + RuleBeginning(file) + "\n";
  }
  return rule + "\n" + emptyRules;
}

}  // namespace zentho::idlgen
