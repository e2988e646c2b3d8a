#pragma once

#include <cstdint>

namespace zentho {

/// What a run does about warnings.
enum class Warnings : std::uint8_t {
  Tell,    ///< Shows them.
  Ignore,  ///< Says nothing, and does not count them among the messages that are shown.
  Fail     ///< Shows them, and fails as after an error.
};

}  // namespace zentho
