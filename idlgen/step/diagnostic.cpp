#include "step/diagnostic.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <list>

#include "reader/idl.h"

namespace zentho {
namespace {

/// The number of bytes of a line or word that a message shows.
constexpr std::size_t longest = 200;

/// A token and the line of the file that contains it. Refers to the text of the file.
struct Place {
  std::size_t lineNumber = 0;  ///< Counts from 1; 0 if there is no such token.
  std::string_view line;
  std::string_view token;
};

/// The places that a message shows.
struct Places {
  Place last;     ///< The last token read.
  Place suspect;  ///< The last one read for which there is advice.
};

/// Returns what to do about a token that is probably more than one word, or nothing.
std::string_view Advice(std::string_view token) {
  if (token.find('\r') != std::string_view::npos) return "end lines with LF, not with CR LF";
  if (token.find('\t') != std::string_view::npos) return "use spaces instead of tabs";
  if (token.size() > 1 && token.find('}') != std::string_view::npos) {
    return token.find(';') == std::string_view::npos
               ? R"(put spaces around "}")"
               : R"(put spaces around "}" and delete the ";")";
  }
  return {};
}

Places FindPlaces(std::string_view text, std::size_t tokensRead) {
  Places places;
  std::size_t read = 0;
  for (std::size_t lineNumber = 1; !text.empty(); ++lineNumber) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    IDL idl;
    idl.tokenize(line);
    std::size_t end = 0;
    for (const std::list<std::string>& tokenLine : idl.tokenLines) {
      for (const std::string& token : tokenLine) {
        if (++read > tokensRead) return places;
        const std::size_t begin = line.find(token, end);
        end = begin + token.size();
        places.last = {lineNumber, line, line.substr(begin, token.size())};
        if (!Advice(token).empty()) places.suspect = places.last;
      }
    }
  }
  return places;
}

/// Returns the index, which must be in the text, or that of the beginning of the UTF-8 character
/// that it is inside of.
std::size_t CharacterBegin(std::string_view text, std::size_t index) {
  std::size_t begin = index;
  while (begin > 0 && index - begin < 3 && (text[begin] & 0xc0) == 0x80) {
    --begin;
  }
  return begin;
}

std::string Shortened(std::string_view text) {
  if (text.size() <= longest) return Printable(text);
  return Printable(text.substr(0, CharacterBegin(text, longest))) + "...";
}

/// Returns the line, shortened if it is long, but with the beginning of the token.
std::string Excerpt(const Place& place) {
  constexpr std::size_t context = 40;
  const auto begin = static_cast<std::size_t>(place.token.data() - place.line.data());
  if (begin + context <= longest) return Shortened(place.line);
  return "..." + Shortened(place.line.substr(CharacterBegin(place.line, begin - context)));
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    // U+0080 to U+009F are control characters, too.
    const bool isTwoBytes =
        text[i] == '\xc2' && i + 1 < text.size() && (text[i + 1] & 0xe0) == 0x80;
    if (isTwoBytes) ++i;
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte == '\t') {
      result += "\\t";
    } else if (byte == '\n') {
      result += "\\n";
    } else if (byte == '\r') {
      result += "\\r";
    } else if (byte < 0x20 || byte == 0x7f || isTwoBytes) {
      std::array<char, 5> escape{};
      std::snprintf(escape.data(), escape.size(), "\\x%02x", static_cast<unsigned>(byte));
      result += escape.data();
    } else {
      result += text[i];
    }
  }
  return result;
}

std::string Diagnostic(const std::string& path, std::string_view text, const ParseError& error) {
  const Places places = FindPlaces(text, error.tokensRead);
  const auto location = [&](const Place& place) {
    return Printable(path) + ":" + std::to_string(place.lineNumber) + ": ";
  };
  const std::string number = std::to_string(places.last.lineNumber);
  std::string message = location(places.last) + "error: " + Shortened(error.reason) + "\n";
  message += std::string(number.size() < 5 ? 5 - number.size() : 0, ' ') + number + " | " +
             Excerpt(places.last) + "\n";
  if (places.suspect.lineNumber > 0) {
    message += location(places.suspect) + "note: \"" + Shortened(places.suspect.token) +
               "\" is one word: " + std::string(Advice(places.suspect.token)) + "\n";
  }
  return message;
}

}  // namespace zentho
