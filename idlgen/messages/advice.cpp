#include "messages/advice.h"

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
  const bool isType =
      LooksLikeType(name) || isCapital || (isKnown && !IsAfterColon(words, finding.word));
  if (isType) return {"put the name first", "x: int8"};
  return {MissingPart(type, words, declared)};
}

/// Returns what the types show that the files declare: which file is to be included, or which type
/// is similar. Or nothing.
Advice AdviceOfTypes(Examination& examination, const SourceFile& file, std::string_view type) {
  const Declarations& declarations = examination.declared();
  const CheckedFile& user = declarations.fileOf(file);
  const KnownTypes known(declarations, user);
  const std::vector<const CheckedFile*> others = known.filesThatDeclare(type);
  for (const CheckedFile* const other : others) {         // Never if the file is alone.
    if (View(declarations, *other).has(&user)) continue;  // It would be a cycle.
    const std::string included = examination.includePath(file, *other->source);
    if (!included.empty()) return {"is " + Quoted(included) + " to be included?"};
  }
  const std::vector<const Declaration*> seen = known.typesInView();
  if (!others.empty() || !examination.mayCompare(seen.size())) return {};
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
  const auto ofTypes = [&] { return AdviceOfTypes(examination, file, finding.text); };
  const auto ofWords = [&] { return AdviceOfWords(file.words, finding); };
  const bool isPath = finding.text.find('.') != std::string_view::npos;
  Advice advice = isPath ? ofTypes() : ofWords();
  if (!advice.text.empty()) return advice;
  return isPath ? ofWords() : ofTypes();
}

}  // namespace

Advice AdviceFor(Examination& examination, const SourceFile& file, const Finding& finding) {
  if (!finding.advice.text.empty()) return finding.advice;
  const std::string_view word = file.words.text(finding.word);
  switch (finding.rule->hint) {
    case Hint::None:
      return {};
    case Hint::Form:
      // As in `long: float64`, where the name does come first.
      if (LooksLikeType(word) && IsBeforeColon(file.words, finding.word) &&
          LooksLikeType(file.words.text(finding.word + 1))) {
        return {"choose another name"};
      }
      return SymptomOf(file.words, finding).advice;
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
