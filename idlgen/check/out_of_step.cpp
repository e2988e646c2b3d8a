#include "check/out_of_step.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "check/cpp_words.h"
#include "check/forms.h"
#include "check/places.h"
#include "schema/builtin_types.h"

namespace zentho {
namespace {

bool IsSecondHalf(Role role) {
  return role == Role::ItemValue || role == Role::MemberType;
}

bool IsOpenList(Role role) {
  return role == Role::ItemName || role == Role::MemberName || IsSecondHalf(role);
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
  return core.front() == '}' || core.back() == '{' || core.back() == '}' ||
         (core == "=" && IsSecondHalf(word.role));
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

void removeFrom(std::size_t word, std::vector<Finding>& findings) {
  findings.erase(std::remove_if(findings.begin(), findings.end(),
                                [&](const Finding& finding) { return finding.word >= word; }),
                 findings.end());
}

/// Replaces all findings from this word on.
void replaceFrom(std::size_t word, const Rule& rule, const Words& words,
                 std::vector<Finding>& findings) {
  removeFrom(word, findings);
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
    replaceFrom(i - 1, rules::missingEndOfPart, words, findings);
  } else {
    replaceFrom(i, FormRule(words[i].role), words, findings);
  }
}

/// The words of a list that is not complete, with the lines that they stand in.
class List {
 public:
  List(std::string_view text, const Words& fileWords, std::size_t listBegin, std::size_t listEnd)
      : words(fileWords), begin(listBegin), end(listEnd) {
    visitPlaces(text, words, end, [&](std::size_t word, const Place& place) {
      if (word >= begin) places.push_back(place);
    });
    for (std::size_t i = 0; i < begin; ++i) {
      const Role role = words.roles[i];
      if (role == Role::EnumName || role == Role::MessageName) types.insert(words.texts[i]);
    }
  }

  /// What is wrong with a line, and the index of its first word.
  struct OddLine {
    std::size_t first;
    Finding finding;
  };

  /// Returns the first line that does not consist of pairs, if there is one.
  [[nodiscard]] std::optional<OddLine> oddLine() const {
    std::size_t first = begin;
    while (first < end) {
      const std::size_t next = lineEnd(first);
      if ((next - first) % 2 == 1) {
        const bool goesOn = next < end && looksLikeSecondHalf(next);
        if (!goesOn) return OddLine{first, explain(first, next - 1)};
        first = next + 1;
      } else {
        first = next;
      }
    }
    return std::nullopt;
  }

 private:
  [[nodiscard]] bool isOfEnum() const { return words.roles[end] == Role::ItemValue; }

  [[nodiscard]] std::size_t lineNumber(std::size_t i) const { return places[i - begin].lineNumber; }

  [[nodiscard]] std::size_t lineEnd(std::size_t i) const {
    std::size_t next = i + 1;
    while (next < end && lineNumber(next) == lineNumber(i)) ++next;
    return next;
  }

  [[nodiscard]] bool isFollowedByColon(std::size_t i) const {
    const std::string_view behind = Behind(places[i - begin], words.texts[i]);
    const std::size_t next = behind.find_first_not_of(' ');
    return next != std::string_view::npos && behind[next] == ':';
  }

  /// Returns whether the word is rather a type or a value than a name.
  [[nodiscard]] bool looksLikeSecondHalf(std::size_t i) const {
    if (!LooksLikeName(words[i])) return true;
    return !isOfEnum() && types.count(words.texts[i]) > 0 && !isFollowedByColon(i);
  }

  [[nodiscard]] Finding explain(std::size_t first, std::size_t last) const {
    const auto finding = [&](const Rule& rule, std::size_t word) {
      return Finding{&rule, word, words.texts[word]};
    };
    const Rule& missing = isOfEnum() ? rules::missingValue : rules::missingType;
    for (std::size_t i = first; i < last; i += 2) {
      if (isFollowedByColon(i) && isFollowedByColon(i + 1)) return finding(missing, i);
    }
    const bool isName = isFollowedByColon(last) || !looksLikeSecondHalf(last);
    if (isName) return finding(missing, last);
    if (first == last) return finding(rules::nameless, last);
    return finding(isOfEnum() ? rules::extraWordOfValue : rules::extraWordOfType, last);
  }

  const Words& words;
  std::size_t begin;
  std::size_t end;
  std::vector<Place> places;                   ///< Of the words from `begin` on.
  std::unordered_set<std::string_view> types;  ///< Declared above the list.
};

/// A '}' in place of a type or value: a word is missing before it or too many, perhaps further up.
void explainClosing(std::string_view text, const Words& words, std::size_t i,
                    std::vector<Finding>& findings) {
  std::size_t begin = i;
  while (IsOpenList(words[begin - 1].role)) --begin;
  const std::optional<List::OddLine> cause = List(text, words, begin, i).oddLine();
  if (cause.has_value()) {
    removeFrom(cause->first, findings);
    findings.push_back(cause->finding);
  } else {
    replaceFrom(i, FormRule(words[i].role), words, findings);
  }
}

/// Returns the first type or value of which "::" makes two words, or `count`.
std::size_t FirstCppName(std::string_view text, const Words& words, std::size_t count) {
  constexpr std::string_view colons = "::";
  if (text.find(colons) == std::string_view::npos) return count;
  std::size_t first = count;
  visitPlaces(text, words, count, [&](std::size_t word, const Place& place) {
    const std::string_view behind = Behind(place, words.texts[word]).substr(0, 3);
    const bool isGlued =
        behind.size() == 3 && behind.substr(0, 2) == colons && behind.find_last_of(" :\t\r") != 2;
    if (isGlued && IsSecondHalf(words.roles[word])) first = std::min(first, word);
  });
  return first;
}

}  // namespace

std::size_t WordsInStep(std::string_view text, const Words& words, std::size_t count) {
  const std::size_t end = FirstCppName(text, words, count);
  std::size_t i = 0;
  while (i < end && !(IsChecked(words[i].role) && IsOutOfStep(words[i]))) ++i;
  return i;
}

void explainStep(std::string_view text, const Words& words, std::size_t word,
                 std::vector<Finding>& findings) {
  const Word last = words[word];
  if (IsOpenList(last.role) && last.text == "{") {
    explainOpening(words, word, findings);
  } else if (IsOpenList(last.role) && last.text == "}") {
    explainClosing(text, words, word, findings);
  } else if (IsOutOfStep(last)) {
    const bool isMissingName = last.text == "{" && last.role != Role::IncludePath;
    const Rule& rule = isMissingName ? rules::missingName : FormRule(last.role);
    findings.push_back({&rule, word, last.text});
  } else {
    const Rule& rule = last.role == Role::ItemValue ? rules::colonsInValue : rules::colonsInType;
    findings.push_back({&rule, word, last.text});
  }
}

}  // namespace zentho
