#include "sources/slip.h"

#include <algorithm>
#include <cstddef>

namespace zentho::idlgen {
namespace {

bool HasDigit(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos;
}

bool IsLetter(char byte) {
  const bool beginsCharacter = (byte & 0xc0) == 0xc0;  // Of several bytes in UTF-8.
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || beginsCharacter;
}

/// Returns whether the name has enough letters, not counting those of its extension.
bool IsLong(std::string_view name) {
  constexpr std::ptrdiff_t enough = 5;
  const std::string_view stem = name.substr(0, name.rfind('.'));
  return std::count_if(stem.begin(), stem.end(), IsLetter) >= enough;
}

}  // namespace

bool IsSlip(std::string_view written, std::string_view meant) {
  const std::size_t shorter = std::min(written.size(), meant.size());
  if (shorter == 0 || std::max(written.size(), meant.size()) > shorter + 1) return false;
  if (written.front() != meant.front() || !IsLong(written)) return false;
  std::size_t begin = 0;
  while (begin < shorter && written[begin] == meant[begin]) ++begin;
  std::string_view a = written.substr(begin);
  std::string_view b = meant.substr(begin);
  while (!a.empty() && !b.empty() && a.back() == b.back()) {
    a.remove_suffix(1);
    b.remove_suffix(1);
  }
  if (HasDigit(a) || HasDigit(b)) return false;
  const bool isSwapped = a.size() == 2 && b.size() == 2 && a[0] == b[1] && a[1] == b[0];
  return isSwapped || (a.size() <= 1 && b.size() <= 1 && a.size() + b.size() > 0);
}

}  // namespace zentho::idlgen
