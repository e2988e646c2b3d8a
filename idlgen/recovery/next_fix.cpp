#include "recovery/next_fix.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "recovery/fix_end.h"
#include "recovery/fix_list.h"
#include "recovery/fix_statement.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns whether the word cannot have its role, which shows that a word is missing or too many:
/// it is a brace where a name, a type or a value should be, or is glued to one, or has nothing that
/// could be a name.
bool IsMisplaced(const Words& words, std::size_t i) {
  const Role role = words.role(i);
  if (role == Role::Statement || role == Role::Part || role == Role::Brace ||
      role == Role::Unread) {
    return false;
  }
  const std::string_view word = words.text(i);
  const auto isLetter = [](char byte) { return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z'; };
  if (isLetter(word.front()) && isLetter(word.back())) return false;  // Most words.
  if (word.find_first_not_of(foreignSeparators) == std::string_view::npos) return true;
  return BraceOf(word) != '\0' || (word == "=" && IsSecondHalf(role));
}

/// Returns whether the word is a type or value of which "::" makes two words.
bool IsCppName(const LocatedWords& words, std::size_t i) {
  return IsSecondHalf(words.role(i)) && IsJoinedByColons(words, i);
}

/// Returns the first of the words before `end` for which the function returns true, or `end`.
template <typename Predicate>
std::size_t FirstWord(std::size_t end, Predicate isWanted) {
  std::size_t i = 0;
  while (i < end && !isWanted(i)) ++i;
  return i;
}

/// Returns the fix for a word that the parser refuses, or that cannot have its role.
Fix FixWord(const LocatedWords& words, std::size_t word) {
  if (!IsInList(words.role(word))) return FixStatement(words, word);
  const TypeNames types = DeclaredTypes(words);
  return FixList(List(words, types, word), word);
}

/// Returns the fix for a second namespace statement, which begins with this word.
Fix FixSecondNamespace(SourceFile& file, std::size_t word) {
  const LocatedWords& words = file.words;
  const std::size_t first =
      FirstWord(words.size(), [&](std::size_t i) { return words.role(i) == Role::NamespacePath; });
  const std::size_t line = words.places[first].lineNumber;
  Finding finding = FindingAt(rules::secondNamespace, words, word);
  finding.others = {{&file, first}};
  Fix fix = Drop(std::move(finding), {word, std::min(word + 2, words.size())});
  fix.causes = {line, line};
  fix.mayDeclare = false;
  return fix;
}

/// Returns the fix for a statement that the file ends in.
Fix FixLastStatement(SourceFile& file) {
  const std::size_t last = file.words.size() - 1;
  if (!IsInList(file.words.role(last))) return FixEnd(file);
  const TypeNames types = DeclaredTypes(file.words);
  const List list(file.words, types, last);
  return list.firstWrongLine(last).has_value() ? FixList(list, last) : FixEnd(file);
}

}  // namespace

bool NeedsFix(const SourceFile& file) {
  const Words& words = file.words;
  const auto isMisplaced = [&](std::size_t i) { return IsMisplaced(words, i); };
  return file.error.has_value() || FirstWord(words.size(), isMisplaced) < words.size() ||
         file.text.find("::") != std::string::npos || file.text.find('\t') != std::string::npos;
}

std::optional<Fix> FixWords(SourceFile& file) {
  const LocatedWords& words = file.words;
  const std::optional<ParseError>& error = file.error;
  const bool isRefused = error.has_value() && error->kind != ParseError::Kind::EndOfFile;
  const std::size_t end = isRefused ? error->tokensRead - 1 : words.size();
  const std::size_t word =
      FirstWord(end, [&](std::size_t i) { return IsMisplaced(words, i) || IsCppName(words, i); });
  if (word < end) return FixWord(words, word);
  if (!error.has_value()) return std::nullopt;
  switch (error->kind) {
    case ParseError::Kind::WrongFormat:
      return FixWord(words, word);
    case ParseError::Kind::SecondNamespace:
      return FixSecondNamespace(file, word);
    case ParseError::Kind::EndOfFile:
      return FixLastStatement(file);
  }
  return std::nullopt;
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
    const List list(words, types, ofList.front());
    if (list.firstWrongLine(ofList.back()).has_value()) return FixList(list, ofList.back());
    const std::size_t mixed = list.firstInMixedLine(ofList);
    if (mixed != noWord) return FixList(list, mixed);
    next = end;
  }
  return std::nullopt;
}

}  // namespace zentho::idlgen
