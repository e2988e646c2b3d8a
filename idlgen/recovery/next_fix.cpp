#include "recovery/next_fix.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

bool IsChecked(Role role) {
  return role != Role::Statement && role != Role::Part && role != Role::Brace &&
         role != Role::Unread;
}

bool IsMisplaced(std::string_view word, Role role) {
  const auto isLetter = [](char byte) { return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z'; };
  if (isLetter(word.front()) && isLetter(word.back())) return false;  // Most words.
  if (word.find_first_not_of(foreignSeparators) == std::string_view::npos) return true;
  return BraceOf(word) != '\0' || (word == "=" && IsSecondHalf(role));
}

/// Returns the first of the first `count` words that cannot have its role, or `count`. It shows
/// that a word is missing or too many: it is a brace where a name, a type or a value should be, or
/// is glued to one, or has nothing that could be a name.
std::size_t FirstMisplacedWord(const Words& words, std::size_t count) {
  std::size_t i = 0;
  while (i < count && !(IsChecked(words.role(i)) && IsMisplaced(words.text(i), words.role(i)))) ++i;
  return i;
}

/// Returns the index of the first type or value of which "::" makes two words, or `count`.
std::size_t FirstCppName(const LocatedWords& words, std::size_t count) {
  std::size_t i = 0;
  while (i < count && !(IsSecondHalf(words.role(i)) && IsJoinedByColons(words, i))) ++i;
  return i;
}

/// Returns the fix for a second namespace statement, which begins with this word.
Fix FixSecondNamespace(SourceFile& file, std::size_t word) {
  const std::vector<Role>& roles = file.words.roles;
  const auto first = std::find(roles.begin(), roles.end(), Role::NamespacePath);
  Finding finding = FindingAt(rules::secondNamespace, file.words, word);
  finding.others = {{&file, static_cast<std::size_t>(first - roles.begin())}};
  Fix fix = Drop(std::move(finding), {word, std::min(word + 2, file.words.size())});
  fix.mayFollow = MayFollow::FaultInOther;
  fix.mayDeclare = false;
  return fix;
}

/// Returns the fix for a statement that the file ends in.
Fix FixLastStatement(SourceFile& file) {
  const std::size_t last = file.words.size() - 1;
  const bool isInList = IsInList(file.words.role(last));
  return isInList && HasWrongLine(file.words, DeclaredTypes(file.words), last)
             ? FixList(file.words, last)
             : FixEnd(file);
}

}  // namespace

bool NeedsFix(const SourceFile& file) {
  return file.error.has_value() ||
         FirstMisplacedWord(file.words, file.words.size()) < file.words.size() ||
         file.text.find("::") != std::string::npos || file.text.find('\t') != std::string::npos;
}

std::optional<Fix> FixWords(SourceFile& file) {
  const std::optional<ParseError>& error = file.error;
  const bool isAtEnd = error.has_value() && error->kind == ParseError::Kind::EndOfFile;
  const bool isRefused = error.has_value() && !isAtEnd;
  const std::size_t count = isRefused ? error->tokensRead - 1 : file.words.size();
  const std::size_t word =
      std::min(FirstMisplacedWord(file.words, count), FirstCppName(file.words, count));
  if (word == count && isAtEnd) return FixLastStatement(file);
  if (word == count && !isRefused) return std::nullopt;
  const bool isSecondNamespace = word == count && error->kind == ParseError::Kind::SecondNamespace;
  if (isSecondNamespace) return FixSecondNamespace(file, word);
  return IsInList(file.words.role(word)) ? FixList(file.words, word)
                                         : FixStatement(file.words, word);
}

std::optional<Fix> FixFindings(const LocatedWords& words, const std::vector<Finding>& findings) {
  const TypeNames types = DeclaredTypes(words);
  std::vector<std::size_t> doubtful;  // The words of lists whose role may be wrong.
  for (const Finding& finding : findings) {
    const bool isDoubtful = finding.rule->severity == Severity::Error || finding.rule->doubtsRole;
    if (isDoubtful && IsInList(words.role(finding.word))) doubtful.push_back(finding.word);
  }
  auto next = doubtful.begin();
  while (next != doubtful.end()) {
    std::size_t listEnd = *next;
    while (listEnd < words.size() && IsInList(words.role(listEnd))) ++listEnd;
    const auto end = std::lower_bound(next, doubtful.end(), listEnd);
    const std::vector<std::size_t> ofList(next, end);
    if (HasWrongLine(words, types, ofList.back())) return FixList(words, ofList.back());
    const std::size_t mixed = FirstInMixedLine(words, types, ofList);
    if (mixed != noWord) return FixList(words, mixed);
    next = end;
  }
  return std::nullopt;
}

}  // namespace zentho::idlgen
