#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zentho::idlgen {

/// Returns the text with escapes such as `\t`, `\x1b` or `\ufeff` for characters that cannot be
/// seen and for bytes that are not valid UTF-8. The result is one line.
std::string Printable(std::string_view text);

/// The same, but of a long text only the beginning, followed by "...".
std::string Shortened(std::string_view text);

/// The same, in quotes.
std::string Quoted(std::string_view text);

/// The number of bytes of a line or word that a message shows.
inline constexpr std::size_t maxShownSize = 200;

/// Returns how many bytes of a text are shown.
std::size_t ShownSize(std::string_view text);

/// Moves an index of the text back to the start of the UTF-8 character it is in.
std::size_t CharacterBegin(std::string_view text, std::size_t index);

}  // namespace zentho::idlgen
