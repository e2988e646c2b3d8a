#include "words/similar.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "words/printable.h"

namespace zentho::idlgen {
namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
}

/// Returns how many letters must be inserted, deleted, replaced or swapped with their neighbours to
/// get from one word to the other, apart from their case.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  std::vector<std::size_t> before = row;
  std::vector<std::size_t> twoBefore = row;
  const auto isSame = [&](std::size_t i, std::size_t j) { return Lower(a[i]) == Lower(b[j]); };
  for (std::size_t i = 1; i <= a.size(); ++i) {
    twoBefore.swap(before);
    before.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = before[j - 1] + (isSame(i - 1, j - 1) ? 0 : 1);
      row[j] = std::min({before[j] + 1, row[j - 1] + 1, replaced});
      const bool isSwapped = i > 1 && j > 1 && isSame(i - 1, j - 2) && isSame(i - 2, j - 1);
      if (isSwapped) row[j] = std::min(row[j], twoBefore[j - 2] + 1);
    }
  }
  return row.back();
}

}  // namespace

bool SimilarWord::compare(std::string_view candidate) {
  const bool isOther =
      candidate.size() + best <= word.size() || word.size() + best <= candidate.size();
  const std::size_t distance = isOther ? best : Distance(word, candidate);
  if (distance >= best) return false;
  best = distance;
  similar = candidate;
  return true;
}

std::string DidYouMean(std::string_view word, std::string_view more) {
  return word.empty() ? std::string() : "did you mean " + Quoted(word) + std::string(more) + "?";
}

}  // namespace zentho::idlgen
