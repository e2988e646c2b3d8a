#include "messages/advice.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "recovery/symptoms.h"
#include "schema/builtin_types.h"
#include "words/cpp_words.h"
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
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool isItem = words.role(i) == Role::ItemName && words.text(i) == part;
    if (isItem) return Quoted(part) + " is an item, not a type";
  }
  return Quoted(first) + " has no type " + Quoted(part);
}

/// Returns where to put a type, or what the record lacks that it begins with, or nothing.
std::string TypeAdvice(std::string_view type, std::size_t word, const Words& words) {
  const std::string_view name = words.text(word - 1);
  const TypeNames declared = DeclaredTypes(words);
  if (FindBuiltinType(name) != nullptr || FindKeyword(name) == Keyword::Type ||
      declared.count(name) > 0) {
    return "put the name first, as in " + Quoted(std::string(type) + ": " + std::string(name));
  }
  return MissingPart(type, words, declared);
}

/// Returns what to do about a type that is not declared, or nothing.
std::string UnknownTypeAdvice(Examination& examination, const SourceFile& file,
                              const Finding& finding) {
  const bool isPath = finding.text.find('.') != std::string_view::npos;
  const std::string_view word = file.words.text(finding.word);
  std::string elsewhere = isPath ? examination.typeAdvice(file, finding.text) : std::string();
  if (!elsewhere.empty()) return elsewhere;
  std::string advice = word.find('<') == std::string_view::npos
                           ? TypeAdvice(finding.text, finding.word, file.words)
                           : FormAdvice(word, file.words.role(finding.word));
  return advice.empty() && !isPath ? examination.typeAdvice(file, finding.text) : advice;
}

/// Returns whether the other message is a member of this one, or is contained in one.
bool IsMessageIn(const Words& words, std::string_view other, std::string_view message) {
  std::unordered_map<std::string_view, std::vector<std::string_view>> elements;
  std::vector<std::string_view>* current = nullptr;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.role(i) == Role::MessageName) current = &elements[words.text(i)];
    if (words.role(i) == Role::ServiceName) current = nullptr;
    if (words.role(i) != Role::MemberType || current == nullptr) continue;
    const std::optional<std::string_view> element = ElementType(words.text(i));
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
  while (words.role(user) != Role::MessageName && words.role(user) != Role::ServiceName) --user;
  const std::string_view name = words.text(user);
  const std::string_view used = words.text(finding.others.front().word);
  return words.role(user) == Role::MessageName && IsMessageIn(words, name, used)
             ? Quoted(used) + " and " + Quoted(name) + " contain each other"
             : "move it above the types that use it";
}

}  // namespace

std::string AdviceFor(Examination& examination, const SourceFile& file, const Finding& finding) {
  if (!finding.advice.empty()) return finding.advice;
  const std::string_view word = file.words.text(finding.word);
  const Role role = file.words.role(finding.word);
  switch (finding.rule->hint) {
    case Hint::None:
      return {};
    case Hint::Form: {
      std::string advice = FormAdvice(finding.text, role);
      return advice.empty() && role == Role::MemberType ? FormAdvice(word, role) : advice;
    }
    case Hint::SimilarType:
      return UnknownTypeAdvice(examination, file, finding);
    case Hint::ItemValue:
      // A colon before the word shows that it is meant as a value.
      if (finding.text != word || IsAfterColon(file.words, finding.word)) return {};
      return R"(each item needs a value, as in "A: 0")";
    case Hint::Order:
      return OrderAdvice(finding, file.words);
  }
  return {};
}

}  // namespace zentho::idlgen
