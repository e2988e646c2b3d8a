#include "findings/located_words.h"

#include <algorithm>

#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns 1 for a word that opens a brace, -1 for one that closes one, and 0 for all others.
std::ptrdiff_t Depth(std::string_view word) {
  switch (BraceOf(word)) {
    case '{':
      return 1;
    case '}':
      return -1;
    default:
      return 0;
  }
}

}  // namespace

bool AreOnOneLine(const LocatedWords& file, std::size_t a, std::size_t b) {
  return file.places[a].lineNumber == file.places[b].lineNumber;
}

std::size_t LineEnd(const LocatedWords& file, std::size_t i) {
  std::size_t end = i + 1;
  while (end < file.size() && AreOnOneLine(file, i, end)) ++end;
  return end;
}

bool IsBeforeColon(const LocatedWords& file, std::size_t i) {
  const std::string_view after = CodeAfter(file.places[i], file.text(i));
  const std::size_t next = after.find_first_not_of(' ');
  return next != std::string_view::npos && after[next] == ':';
}

bool IsAfterColon(const LocatedWords& file, std::size_t i) {
  const std::string_view before = file.places[i].code.substr(0, file.places[i].offset);
  const std::size_t last = before.find_last_not_of(' ');
  return last != std::string_view::npos && before[last] == ':';
}

bool IsJoinedByColons(const LocatedWords& file, std::size_t i) {
  const std::string_view after = CodeAfter(file.places[i], file.text(i));
  return after.substr(0, 2) == "::" && after.size() > 2 &&
         std::string_view(" :\t\r").find(after[2]) == std::string_view::npos;
}

std::size_t ClosingBrace(const LocatedWords& file, std::size_t opening) {
  std::ptrdiff_t depth = 0;
  for (std::size_t i = opening; i < file.size(); ++i) {
    depth += Depth(file.text(i));
    if (depth <= 0) return i;
  }
  return LineEnd(file, opening) - 1;
}

std::size_t OpeningBrace(const LocatedWords& file, std::size_t i) {
  const std::size_t end = LineEnd(file, i);
  for (; i < end; ++i) {
    if (file.text(i) == "{") return i;
  }
  return end < file.size() && file.text(end) == "{" ? end : noWord;
}

std::ptrdiff_t OpenBraces(const LocatedWords& file) {
  std::ptrdiff_t open = 0;
  for (const std::string_view text : file.words.texts) open += Depth(text);
  return open;
}

TypeNames DeclaredTypes(const LocatedWords& file) {
  TypeNames types;
  for (std::size_t i = 0; i < file.size(); ++i) {
    const Role role = file.role(i);
    if (role == Role::EnumName || role == Role::MessageName) types.insert(file.text(i));
  }
  return types;
}

}  // namespace zentho::idlgen
