#include "recovery/symptoms.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "check/value.h"
#include "words/characters.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
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
struct SymptomRow {
  Symptoms kind;
  Roles roles;
  bool (*isShown)(std::string_view word);
  std::string_view advice;
};

template <char letter>
bool Has(std::string_view word) {
  return word.find(letter) != std::string_view::npos;
}

bool StartsComment(std::string_view word) {
  return StartsWith(word, "/*") || StartsWith(word, "*/") || EndsWith(word, "*/") ||
         StartsWith(word, "(*");
}

bool IsGlued(std::string_view word, char brace) {
  const bool isOnlyBraces = word.find_first_not_of("{}") == std::string_view::npos;
  return BraceOf(word) == brace && word.size() > 1 && (!isOnlyBraces || brace == '}');
}

template <char separator>
bool IsGluedBeforeSeparator(std::string_view word) {
  return IsGlued(word, '}') && word.back() == separator && word.front() != '}';
}

/// Returns whether a name and "=" stand at the beginning, as in `x=1`.
bool IsAssignment(std::string_view word) {
  const std::size_t sign = word.find('=');
  return sign != std::string_view::npos && word.substr(sign, 2) != "==" &&
         IsIdentifier(word.substr(0, sign));
}

/// Returns whether a number in brackets follows a name, or stands alone.
bool HasFixedSize(std::string_view word) {
  const std::size_t closing = word.rfind(']');
  if (closing == std::string_view::npos || closing == 0) return false;
  const std::size_t opening = word.find_last_of("[,;", closing - 1);
  return opening != std::string_view::npos &&
         IsNumber(word.substr(opening + 1, closing - opening - 1));
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

constexpr Symptoms sign = Symptoms::Characters;
constexpr Symptoms form = Symptoms::Forms;

/// All symptoms, in the order of what they say about the cause.
constexpr auto rows = Table<SymptomRow>({
    // Characters that no word contains.
    {sign, all, [](std::string_view word) { return StartsWith(word, "//"); },
     R"(here, only "#" starts a comment)"},
    {sign, all, StartsComment, hashComments},
    {sign, all & ~paths, [](std::string_view word) { return Contains(word, "/*"); }, hashComments},
    {sign, all & ~(items | values),
     [](std::string_view word) {
       return StartsWith(word, "--") &&
              (word.size() == 2 || word.find_first_not_of('-') != std::string_view::npos);
     },
     hashComments},
    {sign, all, Has<'\t'>, "use spaces instead of tabs"},
    {sign, all, Has<'\r'>, "end lines with LF, not with CR LF"},
    {sign, all, [](std::string_view word) { return Contains(word, byteOrderMark); },
     "save the file without a byte order mark"},
    {sign, all, [](std::string_view word) { return IsGlued(word, '{'); },
     R"(put a space before "{")"},
    {sign, all, IsGluedBeforeSeparator<';'>, R"(put spaces around "}" and delete the ";")"},
    {sign, all, IsGluedBeforeSeparator<','>, R"(put spaces around "}" and delete the ",")"},
    {sign, all,
     [](std::string_view word) {
       return IsGlued(word, '}') && (word.front() != '}' || word[1] == '}');
     },
     R"(put spaces around "}")"},

    // Equals signs, and parentheses around them.
    {form, types, Has<'('>, R"(it contains "(")"},
    {form, items, Has<'='>, valueColon},
    {form, values, [](std::string_view word) { return word == "=" || IsAssignment(word); },
     valueColon},
    {form, members, IsAssignment, memberColon},
    {form, types, [](std::string_view word) { return word == "="; }, memberColon},
    {form, names | types, Has<'='>, noDefault},

    // All others.
    {form, members,
     [](std::string_view word) {
       return LooksLikeType(word) || (Contains(word, "<") && IsTemplate(word));
     },
     R"(put the name first, as in "x: int8")"},
    {form, names | types,
     [](std::string_view word) { return StartsWith(word, "@") && IsNumber(word.substr(1)); },
     "there are no field numbers"},
    {form, types,
     [](std::string_view word) {
       return IsTemplateOf(word, {"map", "unordered_map", "Map", "HashMap"});
     },
     "there are no maps"},
    {form, types,
     [](std::string_view word) {
       return IsTemplateOf(word, {"vector", "list", "sequence"});
     },
     R"(vectors are written as "[int8]")"},
    {form, names | types, HasFixedSize, "there are no arrays of a fixed size"},
    {form, all & ~paths, [](std::string_view word) { return Contains(word, ";"); },
     R"(delete the ";")"},
    {form, paths, [](std::string_view word) { return EndsWith(word, ";"); }, R"(delete the ";")"},
    {form, all & ~paths,
     [](std::string_view word) {
       return EndsWith(word, ",") || (Contains(word, ",") && !Contains(word, "<"));
     },
     R"(delete the ",")"},
    {form, statements | names, [](std::string_view word) { return StartsWith(word, "@"); },
     "there are no annotations"},
    {form, names | types, [](std::string_view word) { return word == "[" || word == "]"; },
     oneWordType},
    {form, types,
     [](std::string_view word) { return word.find_first_not_of("[]") == std::string_view::npos; },
     R"(the type of the elements is missing, as in "[int8]")"},
    {form, types,
     [](std::string_view word) { return StartsWith(word, "[") && OpenBrackets(word) > 0; },
     R"(a "]" is missing at its end)"},
    {form, types, [](std::string_view word) { return OpenBrackets(word) != 0; },
     "count the brackets"},
    {form, names, Has<'['>, bracketsAround},
    {form, types,
     [](std::string_view word) { return Has<'['>(word) && !ElementType(word).has_value(); },
     bracketsAround},
    {form, names | types, Has<'"'>, "write it without quotes"},
    {form, types,
     [](std::string_view word) { return word.find_first_of("*&") != std::string_view::npos; },
     "there are no pointers and references"},
    {form, types | dottedNames, Has<'/'>, "write a dot between names"},
    {form, items,
     [](std::string_view word) {
       return word.find_first_not_of("+-*/%&|^<>!~?") == std::string_view::npos;
     },
     "write the value as one word, without spaces"},
    {form, names, Has<'-'>, R"(write "_" instead of "-")"},
    {form, names & ~dottedNames, Has<'.'>, "names contain no dots"},
    {form, members, IsNumber, "there are no field numbers"},
    {form, names, [](std::string_view word) { return word.front() >= '0' && word.front() <= '9'; },
     "names begin with a letter"},
    {form, paths, [](std::string_view word) { return Contains(word, "//"); }, R"(write one "/")"},
});

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
bool Fits(const MeantWord& word) {
  if (Contains(word.text, byteOrderMark)) return false;
  if (word.role == Role::MemberType) return IsTypeForm(word.text);
  return word.role == Role::ItemValue ? IsValue(word.text) : IsIdentifier(word.text);
}

bool IsShown(const SymptomRow& row, std::string_view word, Role role) {
  return (row.roles & Only(role)) != 0 && row.isShown(word);
}

}  // namespace

std::optional<Finding> FindSymptom(Symptoms kind, const std::vector<MeantWord>& words) {
  std::vector<MeantWord> unfit;
  std::copy_if(words.begin(), words.end(), std::back_inserter(unfit),
               [](const MeantWord& word) { return !Fits(word); });
  for (const SymptomRow& row : rows) {
    if (row.kind != kind) continue;
    for (const auto& [word, text, role] : unfit) {
      if (IsShown(row, text, role)) {
        return Finding{&FormRule(role), word, text, std::string(row.advice)};
      }
    }
  }
  return std::nullopt;
}

std::size_t SymptomRank(std::string_view word, Role role) {
  std::size_t rank = 0;
  while (rank < rows.size() && !IsShown(rows[rank], word, role)) ++rank;
  return rank < rows.size() ? rank : noSymptom;
}

std::string FormAdvice(std::string_view word, Role role) {
  const std::size_t rank = SymptomRank(word, role);
  if (rank != noSymptom) return std::string(rows[rank].advice);
  const std::string_view odd = OddCharacter(word);
  if (!odd.empty() && !Contains(word, "'")) return "it contains " + Quoted(odd);
  if (role != Role::ItemValue) return {};
  return "values are integers, items above, and expressions of them without spaces";
}

const Rule& FormRule(Role role) {
  switch (role) {
    case Role::Statement:
    case Role::Unread:
      return rules::notAStatement;
    case Role::Part:
      return rules::notAPart;
    case Role::Brace:
      return rules::notABrace;
    case Role::IncludePath:
      return rules::notAPath;
    case Role::ItemValue:
      return rules::notAValue;
    case Role::MemberType:
      return rules::notAType;
    case Role::NamespacePath:
    case Role::EnumName:
    case Role::MessageName:
    case Role::ServiceName:
    case Role::ItemName:
    case Role::MemberName:
      return rules::notAName;
  }
  return rules::notAName;
}

}  // namespace zentho::idlgen
