#include "findings/excerpt.h"

#include <algorithm>

#include "words/printable.h"

namespace zentho::idlgen {
namespace {

/// Returns how many columns a printable text takes: one for each character.
std::size_t Width(const std::string& printable) {
  return static_cast<std::size_t>(std::count_if(printable.begin(), printable.end(),
                                                [](char byte) { return (byte & 0xc0) != 0x80; }));
}

}  // namespace

std::string Excerpt(std::size_t lineNumber, std::string_view line, std::size_t begin,
                    std::size_t size) {
  constexpr std::size_t context = 40;
  const std::size_t cut =
      begin + context <= maxShownSize ? 0 : CharacterBegin(line, begin - context);
  const std::string_view part = line.substr(cut);
  const std::size_t shown =
      part.size() <= maxShownSize ? part.size() : CharacterBegin(part, maxShownSize);
  const std::string before = (cut > 0 ? "..." : "") + Printable(part.substr(0, begin - cut));
  const std::string word = Printable(line.substr(begin, std::min(size, cut + shown - begin)));

  std::string number = std::to_string(lineNumber);
  number.insert(0, number.size() < 5 ? 5 - number.size() : 0, ' ');
  const std::string margin(number.size(), ' ');
  const std::size_t width = std::max<std::size_t>(Width(word), 1);
  return number + " | " + (cut > 0 ? "..." : "") + Shortened(part) + "\n" + margin + " | " +
         std::string(Width(before), ' ') + "^" + std::string(width - 1, '~') + "\n";
}

}  // namespace zentho::idlgen
