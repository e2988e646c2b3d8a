#pragma once

#include <string>
#include <string_view>

#include "words/located_words.h"

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

/// Returns what the line of this word, which is in a list, declares in another language, such as
/// `stops: [Pose]` for `repeated Pose stops = 2;`. Nothing if that is not sure, or if the line is
/// right but for the signs at its end.
std::string MeantLine(const LocatedWords& words, std::size_t word);

}  // namespace zentho::idlgen
