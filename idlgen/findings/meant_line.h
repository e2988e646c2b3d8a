#pragma once

#include <cstddef>
#include <string>

#include "words/located_words.h"

namespace zentho::idlgen {

/// Returns what the line of this word, which is in a list, declares in another language, such as
/// `stops: [Pose]` for `repeated Pose stops = 2;`. Nothing if that is not sure, or if the line is
/// right but for the signs at its end.
std::string MeantLine(const LocatedWords& words, std::size_t word);

}  // namespace zentho::idlgen
