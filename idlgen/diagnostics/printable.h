#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentho {

/// Returns the text with escapes such as `\t`, `\x1b` or `\ufeff` for characters that cannot be
/// seen and for bytes that are not valid UTF-8. The result is one line.
std::string Printable(std::string_view text);

/// The same, but of a long text only the beginning, followed by "...".
std::string Shortened(std::string_view text);

/// A part of a line that contains the beginning of a word, and a second line that marks the word:
///
///        12 | messag Pose {
///           | ^~~~~~
std::string Excerpt(std::size_t lineNumber, std::string_view line, std::size_t begin,
                    std::size_t size);

}  // namespace zentho
