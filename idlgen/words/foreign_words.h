#pragma once

#include <string_view>

namespace zentho::idlgen {

// Words of other languages, and what they stand for in this one.

/// Returns the keyword of a statement that the word is or, in another language, stands for, or
/// nothing.
std::string_view KeywordFor(std::string_view word);

/// The same, or a keyword that is similar.
std::string_view SimilarKeyword(std::string_view word);

/// Returns the type that a built-in type of another language stands for, or nothing.
std::string_view TypeFor(std::string_view word);

/// Templates of other languages, with spaces around each.
inline constexpr std::string_view vectorTemplates =
    " vector list sequence array Vec List Array set Set ";
inline constexpr std::string_view optionalTemplates = " optional Option Optional ";

/// Returns whether the type is a template, whose name is one of these.
bool IsTemplateOf(std::string_view type, std::string_view templates);

/// Returns whether the word qualifies a declaration in another language, as in `optional x: int8`.
bool IsQualifier(std::string_view word);

/// Returns whether the word is one of these that begins a line which declares nothing.
bool BeginsForeignLine(std::string_view word);

}  // namespace zentho::idlgen
