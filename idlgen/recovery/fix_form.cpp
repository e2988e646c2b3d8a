#include <algorithm>
#include <utility>

#include "recovery/fixes.h"
#include "recovery/separators.h"
#include "recovery/symptoms.h"
#include "words/characters.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns the words of a range with the roles that they would have in a line without mistakes. In
/// a list, these alternate, beginning with that of the first word, but the last of several words is
/// never a name.
std::vector<MeantWord> WithRoles(const LocatedWords& words, WordRange range) {
  const Role first = words.role(range.first);
  std::vector<MeantWord> meant = {{range.first, words.text(range.first), first}};
  const bool isEnum = IsOfEnum(first);
  bool isName = IsTypeOrValue(first);  // Of the next word.
  for (std::size_t i = range.first + 1; i < range.end; ++i, isName = !isName) {
    // After a pair, "=" begins a default value.
    const bool isDefault = i >= range.first + 2 && words.text(i) == "=";
    Role role = isEnum ? Role::ItemValue : Role::MemberType;
    if ((isName && i + 1 < range.end) || isDefault) {
      role = isEnum ? Role::ItemName : Role::MemberName;
    }
    meant.push_back({i, words.text(i), IsInList(first) ? role : Role::Statement});
  }
  return meant;
}

/// Returns where a comment of another language begins in the word, or its size.
std::size_t CommentBegin(std::string_view word) {
  const std::size_t begin =
      std::min({word.find("/*"), word.find("//"), word.find("*/"), word.find("(*")});
  return std::min(word.substr(0, 2) == "--" ? 0 : begin, word.size());
}

/// Returns the index after the last word of the comment that begins in this one.
std::size_t CommentEnd(const LocatedWords& words, std::size_t i) {
  const std::string_view comment = words.text(i).substr(CommentBegin(words.text(i)));
  const bool isBlock = comment.substr(0, 2) == "/*";
  const bool isClosed = isBlock && comment.find("*/", 2) != std::string_view::npos;
  if (isClosed || comment.substr(0, 2) == "*/") return i + 1;
  for (std::size_t end = i + 1; isBlock && end < words.size(); ++end) {
    if (words.text(end).find("*/") != std::string_view::npos) return end + 1;
  }
  return LineEnd(words, i);
}

/// Returns the fix that reads a brace and what stands beside it as words of their own, without
/// separators.
Fix SplitAtBraces(Finding finding) {
  Texts texts;
  for (std::string_view part : Parts(finding.text, ";,")) {
    while (!part.empty()) {
      const std::size_t brace = part.find_first_of("{}");
      texts.emplace_back(part.substr(0, brace == 0 ? 1 : brace));
      part.remove_prefix(texts.back().size());
    }
  }
  const WordRange word = {finding.word, finding.word + 1};
  return Replace(std::move(finding), word, std::move(texts));
}

/// Returns what words with a CR or a byte order mark are read as.
Texts WithoutOddCharacters(const LocatedWords& words, WordRange range) {
  Texts parts;
  for (std::size_t i = range.first; i < range.end; ++i) {
    std::string_view word = words.text(i);
    if (word.substr(0, byteOrderMark.size()) == byteOrderMark) {
      word.remove_prefix(byteOrderMark.size());
    }
    for (const std::string_view part : Parts(word, "\r")) parts.emplace_back(part);
  }
  return parts;
}

/// Returns the fix that reads the range without what one of its words shows.
Fix WithoutSymptom(const LocatedWords& words, Finding finding, WordRange range) {
  const std::size_t i = finding.word;
  const std::string_view word = finding.text;
  const std::size_t comment = CommentBegin(word);
  if (comment < word.size()) {
    Texts before = comment > 0 ? Texts{std::string(word.substr(0, comment))} : Texts{};
    return Replace(std::move(finding), {i, CommentEnd(words, i)}, std::move(before));
  }
  if (BraceOf(word) != '\0' && word.find('\r') == std::string_view::npos) {
    return SplitAtBraces(std::move(finding));
  }
  return Replace(std::move(finding), range, WithoutOddCharacters(words, range));
}

}  // namespace

std::optional<Fix> FixCharacters(const LocatedWords& words, WordRange range) {
  const std::vector<MeantWord> meant = WithRoles(words, range);
  if (std::optional<Finding> finding = FindSymptom(SymptomKind::Characters, meant)) {
    const std::size_t next = finding->word + 1;
    std::string_view text = finding->text;
    const bool isBeforeEnd = next < words.size() && words.text(next).front() == '}';
    if (text.back() == '}' && isBeforeEnd && OpenBraces(words) < 0) {
      finding->advice = {R"(one "}" is too many)"};
      text.remove_suffix(1);
      return Replace(*std::move(finding), {next - 1, next}, {std::string(text)});
    }
    return WithoutSymptom(words, *std::move(finding), range);
  }
  if (!IsInList(meant.front().role)) return std::nullopt;
  for (const auto& [i, text, role] : meant) {
    if (!IsJoinedByColons(words, i)) continue;
    const Rule& rule = IsOfEnum(role) ? rules::colonsInValue : rules::colonsInType;
    return Drop(FindingAt(rule, words, i), range);
  }
  return std::nullopt;
}

std::optional<Fix> FixForm(const LocatedWords& words, WordRange range, WordRange line) {
  std::optional<Finding> finding = FindSymptom(SymptomKind::Forms, WithRoles(words, range));
  if (!finding.has_value()) return std::nullopt;
  const bool hasBrace = BraceOf(finding->text) != '\0';  // As in `};`.
  return hasBrace ? SplitAtBraces(*std::move(finding)) : Drop(*std::move(finding), line);
}

}  // namespace zentho::idlgen
