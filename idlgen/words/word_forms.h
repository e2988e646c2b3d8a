#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zentho::idlgen {

// What words must look like in their places. All of it is about their characters only.

/// Returns whether the word has digits only.
bool IsNumber(std::string_view word);

/// Returns the size of the characters of names at the beginning of the text.
std::size_t NameSize(std::string_view text);

/// Returns whether the word is one identifier of C++. It may be a keyword.
bool IsIdentifier(std::string_view word);

/// Returns the first name in the word, or nothing. It may contain any characters beyond ASCII.
std::string_view NameIn(std::string_view word);

/// Returns whether there is no name in the word, as in `=`, `<<` or `//`.
bool IsPunctuation(std::string_view word);

/// Returns the name that a word which is none is probably meant as: without signs around it and
/// digits before it, and with "_" in place of "-".
std::string MeantName(std::string_view word);

/// Returns the type inside the brackets, or nothing if they are not balanced.
std::optional<std::string_view> ElementType(std::string_view type);

/// Returns the parts of a path between its dots. There is an empty one before a leading dot.
std::vector<std::string_view> Components(std::string_view path);

/// Returns whether the type is one of C++ with template arguments: names with dots, and lists of
/// names and numbers in balanced angle brackets.
bool IsTemplate(std::string_view type);

/// What other languages, editors and systems put between words.
inline constexpr std::string_view foreignSeparators = ";,\t\r";

/// Returns the brace that the word is, or that is glued to it: "{" at its end, or "}" at its
/// beginning or end, apart from separators. `\0` if there is none.
char BraceOf(std::string_view word);

/// Returns whether the word has the form of a type: a name with dots, or one of C++ with template
/// arguments, in any number of brackets.
bool IsTypeForm(std::string_view word);

/// Returns whether the word is a type of the language or a fundamental one of C++, perhaps with
/// brackets.
bool LooksLikeType(std::string_view word);

/// Returns the names in a type with template arguments that the file may have to declare: neither
/// numbers, nor names of `std`, nor ones with a leading dot.
std::vector<std::string_view> TemplateNames(std::string_view type);

/// What the word of an `include` statement is.
enum class IncludeForm {
  Path,  ///< "dir/file.idl" or <dir/file.idl>
  Unquoted,
  Unterminated,
  NoExtension,
  Invalid  ///< It contains what could end the `#include` or hide what follows.
};

/// Returns what the word, which is not empty, is.
IncludeForm FormOfInclude(std::string_view word);

}  // namespace zentho::idlgen
