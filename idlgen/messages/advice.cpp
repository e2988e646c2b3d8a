#include "messages/advice.h"

#include <cstddef>
#include <string_view>

#include "recovery/symptoms.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns what is missing in the record that the path begins with, or nothing.
std::string MissingPart(std::string_view type, const Words& words, const TypeNames& declared) {
  const std::size_t dot = type.find('.');
  const std::string_view first = type.substr(0, dot);
  if (dot == std::string_view::npos || declared.count(first) == 0) return {};
  const std::string_view part = type.substr(dot + 1);
  if (DeclaresItem(words, part)) return Quoted(part) + " is an item, not a type";
  return Quoted(first) + " has no type " + Quoted(part);
}

bool IsUpper(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

/// Returns what the words of a file show about a type that is not declared: the symptom of a
/// template, where to put the type, or what the record lacks that it begins with. Or nothing.
std::string AdviceOfWords(const LocatedWords& words, const Finding& finding) {
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
  return isType ? R"(put the name first, as in "x: int8")" : MissingPart(type, words, declared);
}

/// Returns what to do about a type that is not declared, or nothing.
std::string UnknownTypeAdvice(Examination& examination, const SourceFile& file,
                              const Finding& finding) {
  const bool isPath = finding.text.find('.') != std::string_view::npos;
  if (isPath) {
    std::string advice = examination.typeAdvice(file, finding.text);
    return advice.empty() ? AdviceOfWords(file.words, finding) : advice;
  }
  std::string advice = AdviceOfWords(file.words, finding);
  return advice.empty() ? examination.typeAdvice(file, finding.text) : advice;
}

}  // namespace

std::string AdviceFor(Examination& examination, const SourceFile& file, const Finding& finding) {
  if (!finding.advice.empty()) return finding.advice;
  const std::string_view word = file.words.text(finding.word);
  switch (finding.rule->hint) {
    case Hint::None:
      return {};
    case Hint::Form:
      // As in `long: float64`, where the name does come first.
      if (LooksLikeType(word) && IsBeforeColon(file.words, finding.word) &&
          LooksLikeType(file.words.text(finding.word + 1))) {
        return "choose another name";
      }
      return SymptomOf(file.words, finding).advice;
    case Hint::SimilarType:
      return UnknownTypeAdvice(examination, file, finding);
    case Hint::ItemValue:
      // A colon before the word shows that it is meant as a value.
      if (finding.text != word || IsAfterColon(file.words, finding.word)) return {};
      return R"(each item needs a value, as in "A: 0")";
  }
  return {};
}

}  // namespace zentho::idlgen
