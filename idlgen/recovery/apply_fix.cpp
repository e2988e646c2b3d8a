#include <algorithm>

#include "recovery/fixes.h"
#include "schema/statements.h"
#include "words/foreign_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Reads these values in place of some of a list.
template <typename T>
void replace(std::vector<T>& list, WordRange range, const std::vector<T>& values) {
  const auto at = [&](std::size_t i) { return list.begin() + static_cast<std::ptrdiff_t>(i); };
  const auto rest = list.erase(at(range.first), at(range.end));
  list.insert(rest, values.begin(), values.end());
}

/// Keeps the names in a word that is not read.
void rememberNamesIn(std::string_view word, PossibleNames& dropped) {
  for (std::string_view name = NameIn(word); !name.empty(); name = NameIn(word)) {
    dropped.names.insert(name);
    word.remove_prefix(static_cast<std::size_t>(name.end() - word.begin()));
  }
}

/// Returns whether any name may be declared if a statement with this word is not read: because of
/// an include, or in a namespace that is not known.
bool MayDeclareAnything(const Words& words, std::string_view word) {
  const Statement statement = FindStatement(SimilarKeyword(NameIn(word)));
  const bool hasNamespace = FirstWithRole(words, Role::NamespacePath) != noWord;
  return statement == Statement::Include || FormOfInclude(word) == IncludeForm::Path ||
         (statement == Statement::Namespace && !hasNamespace);
}

/// Keeps the names that may be declared by the words that are not read: by members none, by items
/// the first and those before a colon or after a comma, by a line of members that opens a block the
/// one after its keyword.
void rememberNames(SourceFile& file, const Fix& fix, const std::vector<std::string_view>& read) {
  const LocatedWords& words = file.words;
  const auto [first, end] = fix.replaced;
  if (fix.mayDeclareAnything) file.dropped.mayDeclareAnything = true;
  if (first == end) return;
  const Role role = words.role(first);
  const bool isOfMembers = role == Role::MemberName || role == Role::MemberType;
  for (std::size_t i = first; i < end; ++i) {
    const bool isNamed = i > first && IsDeclaration(FindStatement(words.text(i - 1)));
    const bool isItem = i == first || IsBeforeColon(words, i) || words.text(i - 1).back() == ',';
    const bool mayDeclare = isOfMembers ? isNamed : !IsOfEnum(role) || isItem;
    const bool isRead = std::find(read.begin(), read.end(), words.text(i)) != read.end();
    if (!mayDeclare || isRead) continue;
    rememberNamesIn(words.text(i), file.dropped);
    const bool isStatement = read.empty() && !IsInList(role);
    if (isStatement && MayDeclareAnything(words, words.text(i))) {
      file.dropped.mayDeclareAnything = true;
    }
  }
}

}  // namespace

void applyFix(SourceFile& file, const Fix& fix) {
  LocatedWords& words = file.words;
  std::vector<std::string_view> read;
  for (const std::string& text : fix.texts) read.push_back(file.ownTexts.emplace_back(text));
  rememberNames(file, fix, read);
  // A text that stands in the rest of the line is shown there, and another one at the word before.
  std::vector<Place> places;
  Place place = words.places[std::min(fix.replaced.first, words.size() - 1)];
  for (const std::string_view text : read) {
    const std::size_t found = place.code.find(text, place.offset);
    if (found != std::string_view::npos) place.offset = found;
    places.push_back(place);
  }
  replace(words.texts, fix.replaced, read);
  replace(words.places, fix.replaced, places);
}

}  // namespace zentho::idlgen
