#pragma once

#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace zentho {

namespace idlgen {

/// Returns the line up to its comment, which starts at the first '#'. In a line without '#', it
/// starts at "//" if that is the first '/' of the line.
std::string_view WithoutComment(std::string_view line);

/// Takes the first line from the text. Returns it without its line feed.
std::string_view TakeLine(std::string_view& text);

}  // namespace idlgen

/// The token lines of one IDL file, and the passes that split its text into them.
///
/// A token is a non-empty byte string without spaces and colons. A token line holds the tokens
/// between two spaces: `x:int8` gives the token line {"x", "int8"}, and `:` an empty one. Which
/// tokens share a line matters only to the dumps. The class knows no grammar, quotes or escapes,
/// and accepts every sequence of bytes. Its only special characters are the line feed, '#', '/',
/// the space, ':' and '{'.
///
/// A fixed interface, see CONTRIBUTING.md.
class IDL {
 public:
  /// Prints "idl path:" and the path, and tokenizes the file. Errors are not reported: a file that
  /// cannot be opened has no lines, and reading stops at the first error.
  void load(std::string path);

  /// Removes the comment from each line of the text, runs the space, colon and brace passes on it,
  /// and appends the results to `tokenLines`.
  void tokenize(std::string_view text);

  /// Splits `text` at `separator` and appends the non-empty pieces to `output`.
  static void split(std::string text, std::list<std::string>& output, char separator);

  /// The space pass: appends one token line per line, even if it has no tokens.
  static void splitBySpace(std::vector<std::string> lines,
                           std::vector<std::list<std::string>>& output);

  /// The colon pass: appends one token line per token, with its pieces: the line {"a", "b:c", "::"}
  /// gives {"a"}, {"b", "c"} and {}. Tokens without a colon are moved, not copied.
  static void splitByColon(std::vector<std::list<std::string>> lines,
                           std::vector<std::list<std::string>>& output);

  /// Splits one token at each '{' and appends the pieces. Each '{' is its own piece, except that a
  /// '{' at the end stays attached: "a{b{" gives "a", "{" and "b{". No other character is special,
  /// not even '}'.
  static void splitByBrace(std::string token, std::list<std::string>& output);

  /// The brace pass: appends one token line per line, with its tokens split as above. Tokens
  /// without a '{' are moved, not copied.
  static void splitByBrace(std::vector<std::list<std::string>> lines,
                           std::vector<std::list<std::string>>& output);

  /// Prints "output final idl:", then each of the `tokenLines`: its tokens without separators.
  void outputFinal() const;

  /// Prints "output idl:", then each line: its tokens, each followed by "[~]".
  static void output(const std::vector<std::list<std::string>>& lines);

  /// In the order of the file. `load` appends to it.
  std::vector<std::list<std::string>> tokenLines;
};

}  // namespace zentho
