#include "check/out_of_step.h"

#include <algorithm>
#include <string_view>

#include "check/cpp_words.h"
#include "check/forms.h"
#include "schema/builtin_types.h"

namespace zentho {
namespace {

bool IsName(Role role) {
  return role == Role::ItemName || role == Role::MemberName;
}

bool IsOpenList(Role role) {
  return IsName(role) || role == Role::ItemValue || role == Role::MemberType;
}

bool IsChecked(Role role) {
  return role != Role::Statement && role != Role::Part && role != Role::Brace &&
         role != Role::Unread;
}

bool IsOutOfStep(const Word& word) {
  const auto isLetter = [](char byte) { return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z'; };
  if (isLetter(word.text.front()) && isLetter(word.text.back())) return false;  // For speed.
  constexpr std::string_view extra = ";,\t\r";
  const std::size_t begin = word.text.find_first_not_of(extra);
  if (begin == std::string_view::npos) return true;
  const std::string_view core =
      word.text.substr(begin, word.text.find_last_not_of(extra) + 1 - begin);
  const bool isSecondHalf = word.role == Role::ItemValue || word.role == Role::MemberType;
  return core.front() == '}' || core.back() == '{' || core.back() == '}' ||
         (core == "=" && isSecondHalf);
}

/// Returns the rule that the word breaks because of its form.
const Rule& FormRule(Role role) {
  switch (role) {
    case Role::IncludePath:
      return rules::notAPath;
    case Role::ItemValue:
      return rules::notAValue;
    case Role::MemberType:
      return rules::notAType;
    default:
      return rules::notAName;
  }
}

bool LooksLikeName(const Word& word) {
  return IsIdentifier(word.text) && FindKeyword(word.text) == Keyword::None &&
         FindBuiltinType(word.text) == nullptr;
}

/// Replaces all findings from this word on.
void replaceFrom(std::size_t word, const Rule& rule, const Words& words,
                 std::vector<Finding>& findings) {
  findings.erase(std::remove_if(findings.begin(), findings.end(),
                                [&](const Finding& finding) { return finding.word >= word; }),
                 findings.end());
  findings.push_back({&rule, word, words[word].text});
}

/// A '{' that the parser has read as part of a list.
void explainOpening(const Words& words, std::size_t i, std::vector<Finding>& findings) {
  const auto isOneOf = [&](std::size_t word, std::initializer_list<std::string_view> texts) {
    return IsOpenList(words[word].role) &&
           std::find(texts.begin(), texts.end(), words[word].text) != texts.end();
  };
  if (isOneOf(i - 2, {"enum", "message", "service"})) {
    replaceFrom(i - 2, rules::missingEnd, words, findings);
  } else if (isOneOf(i - 1, {"request", "response"})) {
    replaceFrom(i - 1, rules::missingEnd, words, findings);
  } else {
    replaceFrom(i, FormRule(words[i].role), words, findings);
  }
}

/// A '}' in place of a type or value: that of the name before it is missing, or one further up. In
/// the latter case the first finding in the list shows where.
void explainClosing(const Words& words, std::size_t i, std::vector<Finding>& findings) {
  const Rule& missing =
      words[i].role == Role::MemberType ? rules::missingType : rules::missingValue;
  std::size_t begin = i;
  while (IsOpenList(words[begin - 1].role)) --begin;
  if (LooksLikeName(words[i - 1])) return findings.push_back({&missing, i - 1, words[i - 1].text});

  const auto first = std::find_if(findings.begin(), findings.end(),
                                  [&](const Finding& finding) { return finding.word >= begin; });
  if (first == findings.end()) return replaceFrom(i, FormRule(words[i].role), words, findings);
  const std::size_t word = first->word;
  if (!IsName(words[word].role)) return replaceFrom(word - 1, missing, words, findings);
  if (FindBuiltinType(words[word].text) != nullptr && word >= begin + 2) {
    return replaceFrom(word - 2, missing, words, findings);
  }
  replaceFrom(word, FormRule(words[word].role), words, findings);
}

}  // namespace

std::size_t WordsInStep(const Words& words, std::size_t count) {
  std::size_t i = 0;
  while (i < count && !(IsChecked(words[i].role) && IsOutOfStep(words[i]))) ++i;
  return i;
}

void explainStep(const Words& words, std::size_t word, std::vector<Finding>& findings) {
  const std::string_view text = words[word].text;
  if (IsOpenList(words[word].role) && text == "{") {
    explainOpening(words, word, findings);
  } else if (IsOpenList(words[word].role) && text == "}") {
    explainClosing(words, word, findings);
  } else {
    const bool isMissingName = text == "{" && words[word].role != Role::IncludePath;
    const Rule& rule = isMissingName ? rules::missingName : FormRule(words[word].role);
    findings.push_back({&rule, word, text});
  }
}

}  // namespace zentho
