#include "recovery/out_of_step.h"

#include <string_view>

#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

bool IsChecked(Role role) {
  return role != Role::Statement && role != Role::Part && role != Role::Brace &&
         role != Role::Unread;
}

bool IsOutOfStep(const Word& word) {
  const auto isLetter = [](char byte) { return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z'; };
  if (isLetter(word.text.front()) && isLetter(word.text.back())) return false;  // For speed.
  if (word.text.find_first_not_of(";,\t\r") == std::string_view::npos) return true;
  return BraceOf(word.text) != '\0' || (word.text == "=" && IsSecondHalf(word.role));
}

}  // namespace

std::size_t WordsInStep(const Words& words, std::size_t count) {
  std::size_t i = 0;
  while (i < count && !(IsChecked(words.roles[i]) && IsOutOfStep(words[i]))) ++i;
  return i;
}

}  // namespace zentho::idlgen
