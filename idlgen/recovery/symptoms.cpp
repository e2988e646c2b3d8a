#include "recovery/symptoms.h"

#include <algorithm>

#include "check/value.h"
#include "words/characters.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/tables.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

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
constexpr Roles records = Only(Role::EnumName) | Only(Role::MessageName) | Only(Role::ServiceName);
constexpr Roles names = records | items | members | dottedNames;

/// What a word shows in one of the roles, and what to do about it.
struct SymptomRow {
  SymptomKind kind;
  Roles roles;
  bool (*isShown)(std::string_view word, std::string_view text);
  std::string_view text;  ///< For the function.
  std::string_view advice;
  std::string_view example = {};
};

bool Has(std::string_view word, std::string_view text) {
  return word.find(text) != std::string_view::npos;
}

bool HasOneOf(std::string_view word, std::string_view letters) {
  return word.find_first_of(letters) != std::string_view::npos;
}

bool HasOnly(std::string_view word, std::string_view letters) {
  return word.find_first_not_of(letters) == std::string_view::npos;
}

bool Is(std::string_view word, std::string_view text) {
  return word == text;
}

bool Begins(std::string_view word, std::string_view text) {
  return word.substr(0, text.size()) == text;
}

bool BeginsWithOneOf(std::string_view word, std::string_view letters) {
  return letters.find(word.front()) != std::string_view::npos;
}

bool Ends(std::string_view word, std::string_view text) {
  return word.size() >= text.size() && word.substr(word.size() - text.size()) == text;
}

bool IsComment(std::string_view word, std::string_view end) {
  return Begins(word, "/*") || Begins(word, "(*") || Begins(word, end) || Ends(word, end);
}

/// Returns whether dashes begin the word, which is no number.
bool BeginsWithDashes(std::string_view word, std::string_view dashes) {
  return Begins(word, dashes) && (word.size() == dashes.size() || !HasOnly(word, "-"));
}

/// As in `x{`, but not in `{{`.
bool IsGluedToOpening(std::string_view word, std::string_view /*text*/) {
  return BraceOf(word) == '{' && !HasOnly(word, "{}");
}

/// As in `int8}` and `}}`, but not in `};`.
bool IsGluedToClosing(std::string_view word, std::string_view /*text*/) {
  return BraceOf(word) == '}' && word.size() > 1 && (word.front() != '}' || word[1] == '}');
}

/// As in `int8};`.
bool IsGluedBefore(std::string_view word, std::string_view separator) {
  return BraceOf(word) == '}' && word.front() != '}' && Ends(word, separator);
}

/// Returns whether a name and "=" stand at the beginning, as in `x=1`.
bool IsAssignment(std::string_view word, std::string_view sign) {
  const std::size_t place = word.find(sign);
  return place != std::string_view::npos && word.substr(place, 2) != "==" &&
         IsIdentifier(word.substr(0, place));
}

bool IsTypeFirst(std::string_view word, std::string_view /*text*/) {
  return LooksLikeType(word) || (Has(word, "<") && IsTemplate(word));
}

bool IsNumberAfter(std::string_view word, std::string_view text) {
  return Begins(word, text) && IsNumber(word.substr(text.size()));
}

/// Returns whether a number in brackets follows a name, or stands alone.
bool HasFixedSize(std::string_view word, std::string_view beforeNumber) {
  const std::size_t closing = word.rfind(']');
  if (closing == std::string_view::npos || closing == 0) return false;
  const std::size_t opening = word.find_last_of(beforeNumber, closing - 1);
  return opening != std::string_view::npos &&
         IsNumber(word.substr(opening + 1, closing - opening - 1));
}

/// As in `[int8; 3]`.
bool IsOpenVector(std::string_view word, std::string_view separators) {
  return word.front() == '[' && !Has(word, "]") &&
         HasOneOf(word.substr(word.size() - 1), separators);
}

/// Returns whether one of the signs follows the keyword without a space.
bool BeginsInclude(std::string_view word, std::string_view signs) {
  const std::size_t end = NameSize(word);
  return word.substr(0, end) == "include" && HasOneOf(word.substr(end, 1), signs);
}

bool HasNoExtension(std::string_view path, std::string_view /*text*/) {
  return path.find('.', path.rfind('/') + 1) == std::string_view::npos;
}

/// Returns whether a comma stands in the word, which is no template.
bool HasComma(std::string_view word, std::string_view comma) {
  return Has(word, comma) && !Has(word, "<");
}

constexpr std::string_view hashComments = R"(comments start with "#")";
constexpr std::string_view noDefault = "there are no default values or field numbers";
constexpr std::string_view noFieldNumbers = "there are no field numbers";
constexpr std::string_view writeColon = "write a colon";
constexpr std::string_view nameFirst = "put the name first";
constexpr std::string_view dotsInNames = "write a dot between names";
constexpr std::string_view oneWordValue = "write the value as one word, without spaces";

constexpr SymptomKind sign = SymptomKind::Characters;
constexpr SymptomKind form = SymptomKind::Forms;

/// All symptoms, in the order of what they say about the cause.
constexpr auto rows = Table<SymptomRow>({
    // Characters that no word contains.
    {sign, all, Begins, "//", R"(here, only "#" starts a comment)"},
    {sign, all, IsComment, "*/", hashComments},
    {sign, all & ~paths, Has, "/*", hashComments},
    {sign, all & ~(items | values), BeginsWithDashes, "--", hashComments},
    {sign, items | values, Is, "--", hashComments},
    {sign, all, Has, "\r", "end lines with LF, not with CR LF"},
    {sign, all, Has, byteOrderMark, "save the file without a byte order mark"},
    {sign, all, IsGluedToOpening, "", R"(put a space before "{")"},
    {sign, all, IsGluedBefore, ";", R"(put spaces around "}" and delete the ";")"},
    {sign, all, IsGluedBefore, ",", R"(put spaces around "}" and delete the ",")"},
    {sign, all, IsGluedToClosing, "", R"(put spaces around "}")"},

    // Maps, whatever else the line has; equals signs, and parentheses around them.
    {form, members | types, IsTemplateOf, " map unordered_map Map HashMap Record ",
     "there are no maps"},
    {form, types, Begins, "map[", "there are no maps"},
    {form, types, Begins, "dict[", "there are no maps"},
    {form, types, Begins, "Dict[", "there are no maps"},
    {form, types, Begins, "Optional[", "there are no optional members"},
    {form, members | types, Has, "<=", "there are no bounds"},
    {form, types, Begins, "(", "there are no tuples"},
    {form, types, Has, "(", R"(it contains "(")"},
    {form, items, Has, "=", writeColon, "A: 1"},
    {form, values, Begins, "=", writeColon, "A: 1"},
    {form, values, IsAssignment, "=", writeColon, "A: 1"},
    {form, members, IsAssignment, "=", writeColon, "x: int8"},
    {form, types, Begins, "=", writeColon, "x: int8"},
    {form, names | types, Has, "=", noDefault},

    // All others.
    {form, members, IsTypeFirst, "", nameFirst, "x: int8"},
    {form, members, IsNumberAfter, "", noFieldNumbers},
    {form, names | types, IsNumberAfter, "@", noFieldNumbers},
    {form, types, IsTemplateOf, vectorTemplates, "vectors have brackets", "[int8]"},
    {form, types, IsTemplateOf, optionalTemplates, "there are no optional members"},
    {form, members | types, Ends, "?", "there are no optional members"},
    {form, names | types, HasFixedSize, "[,;", "there are no arrays of a fixed size"},
    {form, types, IsOpenVector, ";,", "there are no arrays of a fixed size"},
    {form, statements | names, Begins, "@", "there are no annotations"},
    {form, all, Ends, ";", R"(delete the ";")"},
    {form, all & ~paths, Has, ";", R"(write a space in place of the ";")"},
    {form, all, Is, "---", "a request and a response stand in braces"},
    {form, statements, BeginsInclude, "(\"", R"(write include "dir/file.idl")"},
    {form, items, Has, ",", R"(each item needs a value and no ",")", "A: 0"},
    {form, all, Ends, ",", R"(delete the ",")"},
    {form, dottedNames, Has, ",", dotsInNames},
    {form, all & ~paths, HasComma, ",", R"(write a space in place of the ",")"},
    {form, paths, Has, "(", "delete the parentheses"},
    {form, names | types, HasOneOf, "[]", "the brackets are around the type", "[int8]"},
    {form, names | types, Has, R"(")", "write it without quotes"},
    {form, types, HasOneOf, "*&", "there are no pointers and references"},
    {form, types | dottedNames, Has, "/", dotsInNames},
    {form, items | values, HasOnly, "+-*/%&|^<>!~?()", oneWordValue},
    {form, items, IsNumberAfter, "", "the name comes first"},
    {form, members | types, Is, "-", R"(delete the "-")"},
    {form, members | types, Is, "|", "there are no unions"},
    {form, members, Has, "/", nameFirst, "x: int8"},
    {form, items, Has, "(", writeColon, "A: 1"},
    {form, records, HasOneOf, "(<", R"(only a name stands before "{")"},
    {form, names, Has, "-", R"(write "_" instead of "-")"},
    {form, names & ~dottedNames, Has, ".", "names contain no dots"},
    {form, names, BeginsWithOneOf, "0123456789", "names begin with a letter"},
    {form, paths, Has, "//", R"(write one "/")"},
    {form, paths, Has, "\\", R"(write "/" between names)"},
    {form, paths, HasNoExtension, "", R"(it has no extension, such as ".idl")"},
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
  const auto found = CheckValue(word, noWord, [](std::string_view) { return Meaning::Elsewhere; });
  return std::none_of(found.begin(), found.end(),
                      [](const Finding& finding) { return finding.isError(); });
}

/// Returns whether the word is right in its place.
bool Fits(const MeantWord& word) {
  if (Has(word.text, byteOrderMark)) return false;
  if (word.role == Role::MemberType) return IsTypeForm(word.text);
  return word.role == Role::ItemValue ? IsValue(word.text) : IsIdentifier(word.text);
}

/// Returns the first symptom of a word, or advice without one.
Symptom FirstSymptom(std::string_view word, Role role) {
  for (std::size_t rank = 0; rank < rows.size(); ++rank) {
    const SymptomRow& row = rows[rank];
    const bool isShown = (row.roles & Only(role)) != 0 && row.isShown(word, row.text);
    if (isShown) return {rank, {std::string(row.advice), std::string(row.example)}};
  }
  Symptom none;
  const std::string_view odd = OddCharacter(word);
  if (!odd.empty() && !Has(word, "'")) {
    none.advice.text = "it contains " + Quoted(odd);
  } else if (role == Role::ItemValue) {
    none.advice.text = "values are integers, items above, and expressions of them without spaces";
  }
  return none;
}

}  // namespace

const Rule& FormRule(Role role) {
  if (role == Role::Statement || role == Role::Unread) return rules::notAStatement;
  if (role == Role::Part) return rules::notAPart;
  if (role == Role::Brace) return rules::notABrace;
  if (role == Role::IncludePath) return rules::notAPath;
  if (role == Role::ItemValue) return rules::notAValue;
  return role == Role::MemberType ? rules::notAType : rules::notAName;
}

std::optional<Finding> FindSymptom(SymptomKind kind, const std::vector<MeantWord>& words) {
  Symptom first;
  const MeantWord* shownBy = nullptr;
  for (const MeantWord& word : words) {
    if (Fits(word)) continue;
    const Symptom symptom = FirstSymptom(word.text, word.role);
    if (symptom.rank >= first.rank) continue;
    first = symptom;
    shownBy = &word;
  }
  if (shownBy == nullptr || rows[first.rank].kind != kind) return std::nullopt;
  const bool isEnd = shownBy->text.front() == '}';
  const Rule& rule = isEnd ? rules::notAnEnd : FormRule(shownBy->role);
  return Finding{&rule, shownBy->word, shownBy->text, first.advice};
}

Symptom SymptomOf(const Words& words, const Finding& finding) {
  const Role role = words.role(finding.word);
  const Symptom symptom = FirstSymptom(finding.text, role);
  const bool isPart = role == Role::MemberType && symptom.advice.text.empty();
  return isPart ? FirstSymptom(words.text(finding.word), role) : symptom;
}

}  // namespace zentho::idlgen
