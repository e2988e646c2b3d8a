#include "diagnostics/advice.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "check/characters.h"
#include "check/cpp_words.h"
#include "check/value.h"
#include "check/word_forms.h"
#include "diagnostics/printable.h"
#include "diagnostics/similar.h"
#include "schema/builtin_types.h"
#include "schema/statements.h"

namespace zentho {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

std::string Quoted(std::string_view text) {
  return '"' + Shortened(text) + '"';
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != npos;
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// A set of roles, with a bit for each.
using Roles = unsigned;

constexpr Roles Only(Role role) {
  return 1U << static_cast<unsigned>(role);
}

constexpr Roles all = ~0U;
constexpr Roles statements = Only(Role::Statement);
constexpr Roles paths = Only(Role::IncludePath);
constexpr Roles items = Only(Role::ItemName);
constexpr Roles values = Only(Role::ItemValue);
constexpr Roles members = Only(Role::MemberName);
constexpr Roles types = Only(Role::MemberType);
constexpr Roles dottedNames = Only(Role::NamespacePath);
constexpr Roles names = Only(Role::EnumName) | Only(Role::MessageName) | Only(Role::ServiceName) |
                        items | members | dottedNames;

/// What a word shows in one of the roles, and what to do about it.
struct SignRow {
  Roles roles;
  bool (*isShown)(std::string_view word);
  std::string_view advice;
};

template <char letter>
bool Has(std::string_view word) {
  return word.find(letter) != npos;
}

bool StartsComment(std::string_view word) {
  return StartsWith(word, "/*") || StartsWith(word, "*/") || EndsWith(word, "*/") ||
         StartsWith(word, "(*");
}

bool IsGlued(std::string_view word, char brace) {
  const bool isOnlyBraces = word.find_first_not_of("{}") == npos;
  return BraceOf(word) == brace && word.size() > 1 && (!isOnlyBraces || brace == '}');
}

template <char separator>
bool IsGluedBeforeSeparator(std::string_view word) {
  return IsGlued(word, '}') && word.back() == separator && word.front() != '}';
}

/// Returns whether a name and "=" stand at the beginning, as in `x=1`.
bool IsAssignment(std::string_view word) {
  const std::size_t sign = word.find('=');
  return sign != npos && word.substr(sign, 2) != "==" && IsIdentifier(word.substr(0, sign));
}

bool IsNumber(std::string_view word) {
  return !word.empty() && word.find_first_not_of("0123456789") == npos;
}

/// Returns whether a number in brackets follows a name, or stands alone.
bool HasFixedSize(std::string_view word) {
  const std::size_t closing = word.rfind(']');
  if (closing == npos || closing == 0) return false;
  const std::size_t opening = word.find_last_of("[,", closing - 1);
  return opening != npos && IsNumber(word.substr(opening + 1, closing - opening - 1));
}

std::ptrdiff_t OpenBrackets(std::string_view word) {
  return std::count(word.begin(), word.end(), '[') - std::count(word.begin(), word.end(), ']');
}

bool IsTemplateOf(std::string_view word, std::initializer_list<std::string_view> templates) {
  const std::size_t begin = std::min(word.find_first_not_of('['), word.size());
  const std::string_view name = word.substr(begin, word.find('<') - begin);
  const std::string_view last = name.substr(name.rfind('.') + 1);
  return Contains(word, "<") &&
         std::find(templates.begin(), templates.end(), last) != templates.end();
}

constexpr std::string_view bracketsAround = R"(the brackets are around the type, as in "[int8]")";
constexpr std::string_view oneWordType = R"(a type is one word, as in "[int8]")";
constexpr std::string_view valueColon = R"(write a colon, as in "A: 1")";
constexpr std::string_view memberColon = R"(write a colon, as in "x: int8")";
constexpr std::string_view noDefault = "there are no default values or field numbers";
constexpr std::string_view hashComments = R"(comments start with "#")";

/// Of characters that no word contains.
constexpr SignRow characterRows[] = {
    {all, [](std::string_view word) { return StartsWith(word, "//"); },
     R"(here, only "#" starts a comment)"},
    {all, StartsComment, hashComments},
    {all & ~paths, [](std::string_view word) { return Contains(word, "/*"); }, hashComments},
    {all & ~(items | values),
     [](std::string_view word) {
       return StartsWith(word, "--") && word.find_first_not_of('-') != npos;
     },
     hashComments},
    {all, Has<'\t'>, "use spaces instead of tabs"},
    {all, Has<'\r'>, "end lines with LF, not with CR LF"},
    {all, [](std::string_view word) { return Contains(word, byteOrderMark); },
     "save the file without a byte order mark"},
    {all, [](std::string_view word) { return IsGlued(word, '{'); }, R"(put a space before "{")"},
    {all, IsGluedBeforeSeparator<';'>, R"(put spaces around "}" and delete the ";")"},
    {all, IsGluedBeforeSeparator<','>, R"(put spaces around "}" and delete the ",")"},
    {all,
     [](std::string_view word) {
       return IsGlued(word, '}') && (word.front() != '}' || word[1] == '}');
     },
     R"(put spaces around "}")"},
};

/// Of equals signs, and of parentheses around them.
constexpr SignRow assignmentRows[] = {
    {types, Has<'('>, R"(it contains "(")"},
    {items, Has<'='>, valueColon},
    {values, [](std::string_view word) { return word == "=" || IsAssignment(word); }, valueColon},
    {members, IsAssignment, memberColon},
    {types, [](std::string_view word) { return word == "="; }, memberColon},
    {names | types, Has<'='>, noDefault},
};

constexpr SignRow formRows[] = {
    {members, LooksLikeType, R"(put the name first, as in "x: int8")"},
    {types,
     [](std::string_view word) {
       return IsTemplateOf(word, {"map", "unordered_map", "Map", "HashMap"});
     },
     "there are no maps"},
    {types,
     [](std::string_view word) {
       return IsTemplateOf(word, {"vector", "list", "sequence"});
     },
     R"(vectors are written as "[int8]")"},
    {names | types, HasFixedSize, "there are no arrays of a fixed size"},
    {all & ~paths, [](std::string_view word) { return Contains(word, ";"); }, R"(delete the ";")"},
    {paths, [](std::string_view word) { return EndsWith(word, ";"); }, R"(delete the ";")"},
    {all & ~paths,
     [](std::string_view word) {
       return EndsWith(word, ",") || (Contains(word, ",") && !Contains(word, "<"));
     },
     R"(delete the ",")"},
    {statements | names, [](std::string_view word) { return StartsWith(word, "@"); },
     "there are no annotations"},
    {names | types, [](std::string_view word) { return word == "[" || word == "]"; }, oneWordType},
    {types, [](std::string_view word) { return word.find_first_not_of("[]") == npos; },
     R"(the type of the elements is missing, as in "[int8]")"},
    {types, [](std::string_view word) { return StartsWith(word, "[") && OpenBrackets(word) > 0; },
     R"(a "]" is missing at its end)"},
    {types, [](std::string_view word) { return OpenBrackets(word) != 0; }, "count the brackets"},
    {names, Has<'['>, bracketsAround},
    {types, [](std::string_view word) { return Has<'['>(word) && !ElementType(word).has_value(); },
     bracketsAround},
    {names | types, Has<'"'>, "write it without quotes"},
    {types, [](std::string_view word) { return word.find_first_of("*&") != npos; },
     "there are no pointers and references"},
    {types | dottedNames, Has<'/'>, "write a dot between names"},
    {items, [](std::string_view word) { return word.find_first_not_of("+-*/%&|^<>!~?") == npos; },
     "write the value as one word, without spaces"},
    {names, Has<'-'>, R"(write "_" instead of "-")"},
    {names & ~dottedNames, Has<'.'>, "names contain no dots"},
    {members, IsNumber, "there are no field numbers"},
    {names, [](std::string_view word) { return word.front() >= '0' && word.front() <= '9'; },
     "names begin with a letter"},
    {paths, [](std::string_view word) { return Contains(word, "//"); }, R"(write one "/")"},
};

/// Returns the first character that cannot be part of a name, if it is not one of ASCII.
std::string_view OddCharacter(std::string_view text) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    const bool isAscii = character.valid && character.code < 0x80;
    if (!isAscii && (!character.valid || !IsNameCharacter(character.code))) {
      return text.substr(0, character.size);
    }
    text.remove_prefix(character.size);
  }
  return {};
}

/// Returns whether the word is a value if all names in it are items.
bool IsValue(std::string_view word) {
  const auto faults = CheckValue(
      word, [](std::string_view) { return NameKind::Elsewhere; }, true);
  return std::none_of(faults.begin(), faults.end(), [](const ValueFault& fault) {
    return fault.rule->severity == Severity::Error;
  });
}

/// Returns whether the word is right in its place.
bool Fits(const Word& word) {
  if (Contains(word.text, byteOrderMark)) return false;
  switch (word.role) {
    case Role::MemberType:
      return IsTypeForm(word.text);
    case Role::ItemValue:
      return IsValue(word.text);
    default:
      return IsIdentifier(word.text);
  }
}

/// Looks through a table of rows, row by row.
template <typename Rows>
std::optional<Sign> FindIn(const Rows& rows, const std::vector<Word>& words) {
  for (const SignRow& row : rows) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      const bool hasRole = (row.roles & Only(words[i].role)) != 0;
      if (hasRole && row.isShown(words[i].text)) return Sign{i, std::string(row.advice)};
    }
  }
  return std::nullopt;
}

/// Returns whether one of the words declares an enum or message of this name.
bool IsDeclaredType(const Words& words, std::string_view name) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Role role = words.roles[i];
    if ((role == Role::EnumName || role == Role::MessageName) && words.texts[i] == name) {
      return true;
    }
  }
  return false;
}

/// Returns what is missing in the record that the path begins with, or nothing.
std::string MissingPart(std::string_view type, const Words& words) {
  const std::size_t dot = type.find('.');
  const std::string_view first = type.substr(0, dot);
  if (dot == npos || !IsDeclaredType(words, first)) return {};
  const std::string_view part = type.substr(dot + 1);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool isItem = words.roles[i] == Role::ItemName && words.texts[i] == part;
    if (isItem) return Quoted(part) + " is an item, not a type";
  }
  return Quoted(first) + " has no type " + Quoted(part);
}

/// Returns where to put a type, or what the record lacks that it begins with, or nothing.
std::string TypeAdvice(std::string_view type, std::size_t word, const Words& words) {
  const std::string_view name = words.texts[word - 1];
  if (FindBuiltinType(name) != nullptr || FindKeyword(name) == Keyword::Type ||
      IsDeclaredType(words, name)) {
    return "put the name first, as in " + Quoted(std::string(type) + ": " + std::string(name));
  }
  if (std::string missing = MissingPart(type, words); !missing.empty()) return missing;
  return {};
}

/// Returns whether a message of this name contains the other one, as a member or in one.
bool Contains(const Words& words, std::string_view message, std::string_view other) {
  std::unordered_map<std::string_view, std::vector<std::string_view>> elements;
  std::vector<std::string_view>* current = nullptr;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.roles[i] == Role::MessageName) current = &elements[words.texts[i]];
    if (words.roles[i] == Role::ServiceName) current = nullptr;
    if (words.roles[i] != Role::MemberType || current == nullptr) continue;
    const std::optional<std::string_view> element = ElementType(words.texts[i]);
    if (element.has_value()) current->push_back(element->substr(element->rfind('.') + 1));
  }
  std::vector<std::string_view> pending = {message};
  std::unordered_set<std::string_view> seen;
  while (!pending.empty()) {
    const std::string_view next = pending.back();
    pending.pop_back();
    if (next == other) return true;
    if (elements.count(next) == 0 || !seen.insert(next).second) continue;
    pending.insert(pending.end(), elements[next].begin(), elements[next].end());
  }
  return false;
}

/// Returns how to declare a message before those that use it.
std::string OrderAdvice(const Finding& finding, const Words& words) {
  std::size_t user = finding.word;
  while (words.roles[user] != Role::MessageName && words.roles[user] != Role::ServiceName) --user;
  const std::string_view name = words.texts[user];
  const std::string_view used = words.texts[finding.other.word];
  return words.roles[user] == Role::MessageName && Contains(words, used, name)
             ? Quoted(used) + " and " + Quoted(name) + " contain each other"
             : "move it above the types that use it";
}

}  // namespace

std::optional<Sign> FindSign(Signs signs, const std::vector<Word>& words) {
  std::vector<Word> unfit;
  std::vector<std::size_t> indexes;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (Fits(words[i])) continue;
    unfit.push_back(words[i]);
    indexes.push_back(i);
  }
  std::optional<Sign> sign = signs == Signs::Characters    ? FindIn(characterRows, unfit)
                             : signs == Signs::Assignments ? FindIn(assignmentRows, unfit)
                                                           : FindIn(formRows, unfit);
  if (sign.has_value()) sign->word = indexes[sign->word];
  return sign;
}

std::string FormAdvice(std::string_view part, Role role) {
  if (const auto sign = FindIn(characterRows, {{part, role}})) return sign->advice;
  if (const auto sign = FindIn(assignmentRows, {{part, role}})) return sign->advice;
  if (const auto sign = FindIn(formRows, {{part, role}})) return sign->advice;
  const std::string_view odd = OddCharacter(part);
  if (!odd.empty() && !Contains(part, "'")) return "it contains " + Quoted(odd);
  if (role != Role::ItemValue) return {};
  return "values are integers, items above, and expressions of them without spaces";
}

std::string AdviceFor(const Finding& finding, const LocatedWords& file) {
  if (!finding.advice.empty()) return finding.advice;
  const Word word = file.words[finding.word];
  switch (finding.rule->hint) {
    case Hint::None:
      return {};
    case Hint::Form: {
      const std::string advice = FormAdvice(finding.text, word.role);
      const bool isType = word.role == Role::MemberType;
      return advice.empty() && isType ? FormAdvice(word.text, word.role) : advice;
    }
    case Hint::SimilarType:
      return Contains(word.text, "<") ? FormAdvice(word.text, word.role)
                                      : TypeAdvice(finding.text, finding.word, file.words);
    case Hint::ItemValue:
      // A colon before the word shows that it is meant as a value.
      return finding.text == word.text && !IsAfterColon(file, finding.word)
                 ? R"(each item needs a value, as in "A: 0")"
                 : "";
    case Hint::Order:
      return OrderAdvice(finding, file.words);
  }
  return {};
}

std::string_view KeywordFor(std::string_view word) {
  constexpr std::array<std::string_view, 2> foreign[] = {
      {"import", "include"}, {"package", "namespace"}, {"module", "namespace"},
      {"struct", "message"}, {"class", "message"},     {"record", "message"},
      {"table", "message"},  {"interface", "service"}};
  for (const auto& [other, keyword] : foreign) {
    if (word == other) return keyword;
  }
  return FindStatement(word) == Statement::None ? std::string_view() : word;
}

std::string_view SimilarKeyword(std::string_view word) {
  if (const std::string_view keyword = KeywordFor(word); !keyword.empty()) return keyword;
  SimilarWord similar(word);
  for (const std::string_view keyword : statementKeywords) similar.compare(keyword);
  return similar.found();
}

bool LooksLikeType(std::string_view word) {
  const std::size_t begin = std::min(word.find_first_not_of('['), word.size());
  const std::string_view element = word.substr(begin, word.find_first_of("[]", begin) - begin);
  return FindBuiltinType(element) != nullptr || FindKeyword(element) == Keyword::Type;
}

bool IsQualifier(std::string_view word) {
  constexpr std::string_view qualifiers[] = {
      "optional", "repeated", "required", "const", "constant", "static", "mutable", "readonly",
      "public",   "private",  "in",       "out",   "inout",    "oneway", "var",     "let",
      "case",     "unsigned", "signed",   "long",  "struct",   "enum",   "class"};
  return std::find(std::begin(qualifiers), std::end(qualifiers), word) != std::end(qualifiers);
}

}  // namespace zentho
