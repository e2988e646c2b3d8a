#include "recovery/out_of_step.h"

#include <string_view>

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

}  // namespace

std::size_t FirstMisplacedWord(const Words& words, std::size_t count) {
  std::size_t i = 0;
  while (i < count && !(IsChecked(words.role(i)) && IsMisplaced(words.text(i), words.role(i)))) ++i;
  return i;
}

}  // namespace zentho::idlgen
