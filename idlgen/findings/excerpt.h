#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentho::idlgen {

/// A part of a line that contains the beginning of a word, and a second line that marks the word:
///
///        12 | messag Pose {
///           | ^~~~~~
std::string Excerpt(std::size_t lineNumber, std::string_view line, std::size_t begin,
                    std::size_t size);

}  // namespace zentho::idlgen
