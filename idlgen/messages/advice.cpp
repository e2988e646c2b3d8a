#include "messages/advice.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "messages/known_types.h"
#include "names/view.h"
#include "recovery/symptoms.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns what is missing in the record that the path begins with, or nothing.
std::string MissingPart(std::string_view type, const Words& words, const TypeNames& declared) {
  const std::size_t dot = type.find('.');
  const std::string_view first = type.substr(0, dot);
  if (dot == std::string_view::npos || declared.count(first) == 0) return {};
  const std::string_view part = type.substr(dot + 1);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool isItem = words.role(i) == Role::ItemName && words.text(i) == part;
    if (isItem) return Quoted(part) + " is an item, not a type";
  }
  return Quoted(first) + " has no type " + Quoted(part);
}

/// Returns the index of the name of the record that contains a word.
std::size_t RecordOf(const Words& words, std::size_t i) {
  while (i > 0 && !IsRecordName(words.role(i))) --i;
  return i;
}

bool IsUpper(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

/// Returns what the words of a file show about a type that is not declared: the symptom of a
/// template, where to put the type, or what the record lacks that it begins with. Or nothing.
Advice AdviceOfWords(const LocatedWords& words, const Finding& finding) {
  const std::string_view word = words.text(finding.word);
  if (word.find('<') != std::string_view::npos) {
    return SymptomOf(words, {finding.rule, finding.word, word}).advice;
  }
  const std::string_view type = finding.text;
  const std::string_view name = words.text(finding.word - 1);
  const TypeNames declared = DeclaredTypes(words);
  const bool isCapital = IsUpper(name.front()) && !IsUpper(type.front());  // As in `Pose pose`.
  const bool isKnown = !TypeFor(name).empty() || declared.count(name) > 0;
  const bool isType = LooksLikeType(name) || (isKnown && !IsAfterColon(words, finding.word));
  if (isCapital) return {"put the name first", std::string(type).append(": ").append(name)};
  if (isType) return {"put the name first", "x: int8"};
  return {MissingPart(type, words, declared)};
}

/// Returns what the types show that the files declare: which file is to be included, or which type
/// is similar. Or nothing.
Advice AdviceOfTypes(Examination& examination, const SourceFile& file, const Finding& finding) {
  const std::string_view type = finding.text;
  const Declarations& declarations = examination.declared();
  const CheckedFile& user = declarations.fileOf(file);
  const KnownTypes known(declarations, user);
  const std::vector<const CheckedFile*> others = known.filesThatDeclare(type);
  for (const CheckedFile* const other : others) {         // Never if the file is alone.
    if (View(declarations, *other).has(&user)) continue;  // It would be a cycle.
    const std::string included = examination.includePath(file, *other->source);
    if (!included.empty()) return {"is " + Quoted(included) + " to be included?"};
  }
  std::vector<const Declaration*> seen = known.typesInView();
  const std::size_t record = RecordOf(file.words, finding.word);  // Which it cannot contain.
  seen.erase(std::remove_if(seen.begin(), seen.end(),
                            [&](const Declaration* declared) {
                              return declared->file == &user && declared->word == record;
                            }),
             seen.end());
  if (!others.empty() || !examination.spendComparisons(seen.size())) return {};
  return {DidYouMean(known.mostSimilar(type, seen))};
}

/// Returns the item of a file whose name is most similar, or nothing.
std::string_view SimilarItem(const Words& words, std::string_view name) {
  SimilarWord similar(name);
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.role(i) == Role::ItemName && words.text(i) != name) similar.compare(words.text(i));
  }
  return similar.found();
}

/// Returns what to do about a type that is not declared, or nothing.
Advice UnknownTypeAdvice(Examination& examination, const SourceFile& file, const Finding& finding) {
  const auto ofTypes = [&] { return AdviceOfTypes(examination, file, finding); };
  const auto ofWords = [&] { return AdviceOfWords(file.words, finding); };
  const bool isPath = finding.text.find('.') != std::string_view::npos;
  Advice advice = isPath ? ofTypes() : ofWords();
  if (!advice.text.empty()) return advice;
  return isPath ? ofWords() : ofTypes();
}

/// Returns what to do about a word because of its form, or nothing.
Advice FormAdvice(const LocatedWords& words, const Finding& finding) {
  const std::size_t i = finding.word;
  // `long: float64`
  const bool isNameFirst = IsInList(words.role(i)) && LooksLikeType(words.text(i)) &&
                           IsBeforeColon(words, i) && LooksLikeType(words.text(i + 1));
  if (isNameFirst) return {"choose another name"};
  // `IDLE: 0` in a message
  const bool isItem =
      words.role(i) == Role::MemberType && IsAfterColon(words, i) && IsNumber(words.text(i));
  if (isItem) return {"items stand in an enum"};
  return SymptomOf(words, finding).advice;
}

}  // namespace

Advice AdviceFor(Examination& examination, const SourceFile& file, const Finding& finding) {
  if (!finding.advice.text.empty()) return finding.advice;
  const std::string_view word = file.words.text(finding.word);
  switch (finding.rule->hint) {
    case Hint::None:
      return {};
    case Hint::Form:
      return FormAdvice(file.words, finding);
    case Hint::SimilarType:
      return UnknownTypeAdvice(examination, file, finding);
    case Hint::ItemValue:
      // A colon before the word shows that it is meant as a value.
      if (finding.text != word || IsAfterColon(file.words, finding.word)) {
        return {DidYouMean(SimilarItem(file.words, finding.text))};
      }
      return {"each item needs a value", "A: 0"};
  }
  return {};
}

}  // namespace zentho::idlgen
