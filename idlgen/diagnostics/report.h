#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "check/located_words.h"
#include "recovery/recovery.h"

namespace zentho {

/// What a report about one file shows of others that have been read.
class OtherFiles {
 public:
  virtual ~OtherFiles() = default;

  [[nodiscard]] virtual const std::string& path(std::size_t file) const = 0;
  [[nodiscard]] virtual const LocatedWords& words(std::size_t file) = 0;

  /// Returns what to do about a type that is not declared, or nothing.
  [[nodiscard]] virtual std::string typeAdvice(std::string_view type) = 0;
};

/// Returns the messages about the IDL file at `path`, which contains `text`: those of its recovery,
/// and what the check has found in the words that are left. They are in the order of the places.
/// Of many, 20 are shown, errors rather than warnings.
std::string Report(const std::string& path, std::string_view text, const Recovery& recovery,
                   OtherFiles& others);

}  // namespace zentho
