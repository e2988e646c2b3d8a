#include <algorithm>
#include <cstddef>
#include <string>

#include "recovery/fixes.h"
#include "recovery/separators.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns whether the word cannot have its role, which shows that a word is missing or too many:
/// it is a brace where a name, a type or a value should be, or is glued to one, consists of
/// separators, or is a "=" in place of a type or value.
bool IsMisplaced(const Words& words, std::size_t i) {
  const Role role = words.role(i);
  if (role == Role::Statement || role == Role::Part || role == Role::Brace ||
      role == Role::Unread) {
    return false;
  }
  const std::string_view word = words.text(i);
  const auto isLetter = [](char byte) { return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z'; };
  if (isLetter(word.front()) && isLetter(word.back())) return false;  // Most words.
  if (IsSeparator(word)) return true;
  return BraceOf(word) != '\0' || (word == "=" && IsTypeOrValue(role));
}

/// Returns whether the word is a type or value of which "::" makes two words.
bool IsCppName(const LocatedWords& words, std::size_t i) {
  return IsTypeOrValue(words.role(i)) && IsJoinedByColons(words, i);
}

/// Returns the first of the words before `end` for which the function returns true, or `end`.
template <typename Predicate>
std::size_t FirstWord(std::size_t end, Predicate isWanted) {
  std::size_t i = 0;
  while (i < end && !isWanted(i)) ++i;
  return i;
}

/// Returns the fix for a word that the parser refuses, or that cannot have its role.
Fix FixWord(const LocatedWords& words, const TypeNames& types, std::size_t word) {
  return IsInList(words.role(word)) ? FixList(List(words, types, word), word)
                                    : FixStatement(words, word);
}

/// Returns the fix for a second namespace statement, which begins with this word.
Fix FixSecondNamespace(SourceFile& file, std::size_t word) {
  const LocatedWords& words = file.words;
  const std::size_t first = FirstWithRole(words, Role::NamespacePath);
  Finding finding = FindingAt(rules::secondNamespace, words, word);
  finding.others = {{&file, first}};
  return Drop(std::move(finding),
              {word, std::max(LineEnd(words, word), std::min(word + 2, words.size()))});
}

/// Returns the fix for a statement that the file ends in.
Fix FixLastStatement(SourceFile& file, const TypeNames& types) {
  const std::size_t last = file.words.size() - 1;
  const bool isInList = IsInList(file.words.role(last));
  const bool hasWrongLine =
      isInList && List(file.words, types, last).firstWrongLine(last).has_value();
  return hasWrongLine ? FixWord(file.words, types, last) : FixEnd(file);
}

/// Returns the words of lists whose role the findings make doubtful. A name with signs around it is
/// still a name.
std::vector<std::size_t> DoubtfulWords(const Words& words, const std::vector<Finding>& findings) {
  std::vector<std::size_t> doubtful;
  for (const Finding& finding : findings) {
    const bool isName = finding.rule == &rules::notAName && IsIdentifier(MeantName(finding.text));
    const bool isError = finding.isError() && !isName;
    const bool isDoubtful = isError || finding.rule->doubtsRole;
    if (isDoubtful && IsInList(words.role(finding.word))) doubtful.push_back(finding.word);
  }
  return doubtful;
}

/// Returns the fix for a line of the list, in or below which these doubtful words stand, or
/// nothing.
std::optional<Fix> FixDoubtful(const List& list, const std::vector<std::size_t>& doubtful) {
  const std::size_t last = doubtful.back();
  if (list.firstWrongLine(last).has_value()) return FixList(list, last);
  std::size_t end = 0;  // Of the line that has been looked at.
  for (const std::size_t word : doubtful) {
    if (word < end) continue;
    const WordRange line = list.lineOf(word);
    if (list.isOneDeclaration(line)) return FixList(list, word);
    end = line.end;
  }
  return std::nullopt;
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
  const TypeNames types = DeclaredTypes(words);
  if (word < end) return FixWord(words, types, word);
  if (!error.has_value()) return std::nullopt;
  if (!isRefused) return FixLastStatement(file, types);
  return error->kind == ParseError::Kind::SecondNamespace ? FixSecondNamespace(file, word)
                                                          : FixWord(words, types, word);
}

std::optional<Fix> FixFindings(const LocatedWords& words, const std::vector<Finding>& findings) {
  const TypeNames types = DeclaredTypes(words);
  const std::vector<std::size_t> doubtful = DoubtfulWords(words, findings);
  for (auto next = doubtful.begin(); next != doubtful.end();) {
    const List list(words, types, *next);
    const auto end = std::lower_bound(next, doubtful.end(), list.end());
    if (std::optional<Fix> fix = FixDoubtful(list, {next, end})) return fix;
    next = end;
  }
  return std::nullopt;
}

}  // namespace zentho::idlgen
