#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace zentho::idlgen {

/// Looks for the word that is most similar to another one. A third of the letters may differ, but
/// not more than `most`.
class SimilarWord {
 public:
  explicit SimilarWord(std::string_view wanted, std::size_t most = 3)
      : word(wanted), best(wanted.size() <= maxSize ? std::min(wanted.size() / 3, most) + 1 : 0) {}

  /// Returns whether the candidate is more similar than all before it.
  bool compare(std::string_view candidate);

  /// Returns the most similar one, or nothing if none was similar.
  [[nodiscard]] std::string_view found() const { return similar; }

 private:
  /// To longer words none is similar, because comparing them takes long.
  static constexpr std::size_t maxSize = 40;

  std::string_view word;
  std::size_t best;  ///< Only words with a smaller distance are similar.
  std::string_view similar;
};

/// Returns the question whether this word is meant, with what else is, or nothing if it is empty.
std::string DidYouMean(std::string_view word, std::string_view more = {});

}  // namespace zentho::idlgen
