#pragma once

#include <list>
#include <string>
#include <vector>

namespace zentho {

/// The token lines of one IDL file, and the passes that cut them out of its text.
///
/// A token is a non-empty byte string without spaces and colons; a token line is a list of tokens
/// and may be empty. The class knows no grammar, quotes or escapes and refuses nothing: every
/// sequence of bytes gives token lines. Only the line feed, '#', '/', the space, ':' and '{' mean
/// anything to it. Where a token line begins and ends shows in the dumps alone.
///
/// Whoever is done with a text or a list hands it over with std::move.
class IDL {
 public:
  /// Prints "idl path:" and the path, reads the file, drops comments and empty lines, and appends
  /// what the space, colon and brace passes make of the rest to `tokenLines`. A file that cannot be
  /// opened has no lines; one that cannot be read to its end stops where the reading stopped.
  void load(std::string path);

  /// Appends to `output` the non-empty pieces of `text` between occurrences of `separator`.
  static void split(std::string text, std::list<std::string>& output, char separator);

  /// The space pass: appends one token line for each of the `lines`, even for one without tokens.
  static void splitBySpace(std::vector<std::string> lines,
                           std::vector<std::list<std::string>>& output);

  /// The colon pass: appends one token line for each token of the `lines`, holding its pieces. A
  /// line without tokens leaves nothing behind; a token made of colons leaves an empty line.
  static void splitByColon(std::vector<std::list<std::string>> lines,
                           std::vector<std::list<std::string>>& output);

  /// Cuts one token at its '{'s and appends the pieces, each such '{' being a piece of its own. A
  /// '{' that ends the token is not cut off, and no other character is special, '}' included.
  static void splitByBrace(std::string token, std::list<std::string>& output);

  /// The brace pass: appends one token line for each of the `lines`, its tokens cut as above.
  static void splitByBrace(std::vector<std::list<std::string>> lines,
                           std::vector<std::list<std::string>>& output);

  /// Prints "output final idl:", then a line for each of the `tokenLines`: its tokens in a row.
  void outputFinal() const;

  /// Prints "output idl:", then a line for each of the `lines`: its tokens, each followed by "[~]".
  static void output(const std::vector<std::list<std::string>>& lines);

  /// In the order of the file. `load` only ever appends to it.
  std::vector<std::list<std::string>> tokenLines;
};

}  // namespace zentho
