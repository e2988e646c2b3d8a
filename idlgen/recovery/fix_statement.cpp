#include "recovery/fix_statement.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "recovery/fix_form.h"
#include "recovery/symptoms.h"
#include "schema/statements.h"
#include "words/cpp_words.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns a name in place of a missing one, which is none of the file's.
std::string InventedName(std::size_t word) {
  return "_" + std::to_string(word);
}

/// A word that is not what the grammar wants outside of a list, and the line that it begins.
class Stray {
 public:
  Stray(const LocatedWords& fileWords, std::size_t i)
      : words(fileWords),
        word(i),
        end(LineEnd(fileWords, i)),
        text(fileWords.text(i)),
        before(i > 0 ? fileWords.role(i - 1) : Role::Statement) {}

  [[nodiscard]] Finding finding(const Rule& rule, std::string advice = {}) const {
    return FindingAt(rule, words, word, std::move(advice));
  }
  [[nodiscard]] WordRange itself() const { return {word, word + 1}; }

  /// Returns the rest of the line, with the block that it opens, up to a brace that closes what is
  /// open before it.
  [[nodiscard]] WordRange rest() const {
    const std::size_t brace = OpeningBrace(words, word);
    if (brace != noWord && brace >= end) return {word, ClosingBrace(words, brace) + 1};
    std::size_t i = word;
    while (i < end && BraceOf(words.text(i)) != '}') {
      i = words.text(i) == "{" ? ClosingBrace(words, i) + 1 : i + 1;
    }
    return {word, std::max(i, word + 1)};
  }

  [[nodiscard]] bool isOnLineOfWordBefore() const { return AreOnOneLine(words, word - 1, word); }
  [[nodiscard]] bool isClosing() const { return BraceOf(text) == '}'; }
  [[nodiscard]] bool beginsStatement() const { return FindStatement(text) != Statement::None; }
  [[nodiscard]] bool isBefore(std::string_view next) const {
    return word + 1 < words.size() && words.text(word + 1) == next;
  }

  [[nodiscard]] bool isClosed() const;
  [[nodiscard]] Texts laterDeclaration(std::size_t brace) const;
  [[nodiscard]] std::string_view meantKeyword() const;
  [[nodiscard]] const Rule& openingRule() const;

  const LocatedWords& words;
  const std::size_t word;
  const std::size_t end;  ///< Of the line.
  const std::string_view text;
  const Role before;  ///< The role of the word before it.

 private:
  [[nodiscard]] bool declares(std::string_view keyword, std::size_t brace) const;
};

/// Returns whether a list that begins with the word has an end before other braces.
bool Stray::isClosed() const {
  std::size_t i = word;
  while (i < words.size() && BraceOf(words.text(i)) == '\0' &&
         FindStatement(words.text(i)) == Statement::None) {
    ++i;
  }
  return i < words.size() && BraceOf(words.text(i)) == '}';
}

/// Returns what a line is read as that declares something after other words, as in
/// `public message P {` or `type P struct {`, or nothing.
Texts Stray::laterDeclaration(std::size_t brace) const {
  for (std::size_t i = word + 1; brace != noWord && i < brace; ++i) {
    const std::string_view keyword = KeywordFor(words.text(i));
    if (!declares(keyword, brace)) continue;
    const std::size_t name = i + 1 < brace ? i + 1 : i - 1;
    return {std::string(keyword), std::string(words.text(name))};
  }
  return {};
}

/// Returns the keyword that the word stands for, if the rest of the line fits, or nothing.
std::string_view Stray::meantKeyword() const {
  const std::string_view keyword = SimilarKeyword(text);
  const std::size_t brace = OpeningBrace(words, word);
  const bool fits = IsDeclaration(FindStatement(keyword))
                        ? brace != noWord && brace > word + 1 && declares(keyword, brace)
                        : end == word + 2 || brace == word + 2;  // As in `module a {`.
  return fits ? keyword : std::string_view();
}

/// Returns whether the keyword begins a declaration, which the words after this brace fit.
bool Stray::declares(std::string_view keyword, std::size_t brace) const {
  const Statement statement = FindStatement(keyword);
  const bool hasRequest = brace + 1 < words.size() && words.text(brace + 1) == "request";
  return IsDeclaration(statement) && (statement != Statement::Service || hasRequest);
}

/// Returns the rule that a word between a name and its brace breaks.
const Rule& Stray::openingRule() const {
  const std::size_t name = word - 1;
  if (IsJoinedByColons(words, name)) return rules::colonsInName;
  if (before == Role::Part) return rules::partWithoutBraces;
  const bool isBase =
      IsIdentifier(words.text(name)) && (IsBeforeColon(words, name) || text == "extends");
  if (!isBase) return rules::afterName;
  if (before == Role::EnumName) return rules::underlyingType;
  return before == Role::ServiceName ? rules::baseOfService : rules::baseOfMessage;
}

/// More words on the line of a path: of an include, or of a namespace.
Fix AfterPath(const Stray& at) {
  if (at.before == Role::IncludePath) return Drop(at.finding(rules::afterIncludePath), at.rest());
  if (at.text == "{") return Drop(at.finding(rules::namespaceWithBraces), at.itself());
  std::string path(at.words.text(at.word - 1));
  std::size_t end = at.word;
  for (; end < at.end && IsJoinedByColons(at.words, end - 1); ++end) {
    path.append(".").append(at.words.text(end));
  }
  if (end == at.word) return Drop(at.finding(rules::afterNamespace), at.rest());
  return Replace(at.finding(rules::notAStatement, "write dots: " + Quoted(path)),
                 {at.word - 1, end}, {path});
}

/// A word in place of the keyword of a statement.
Fix AtStatement(const Stray& at) {
  const bool isAfterPath = at.before == Role::NamespacePath || at.before == Role::IncludePath;
  if (isAfterPath && (at.isOnLineOfWordBefore() || at.text == "{")) return AfterPath(at);
  if (at.isClosing()) return Drop(at.finding(rules::unopened), at.itself());
  if (at.text == "{") return Drop(at.finding(rules::unknownStatement), at.itself());
  if (auto form = FixForm(at.words, at.itself(), at.rest())) {
    return *std::move(form);
  }
  const std::size_t brace = OpeningBrace(at.words, at.word);
  if (Texts declaration = at.laterDeclaration(brace); !declaration.empty()) {
    return Replace(at.finding(rules::unknownStatement), {at.word, brace}, std::move(declaration));
  }
  if (const std::string_view similar = SimilarKeyword(at.text); !similar.empty()) {
    const std::string_view keyword = at.meantKeyword();
    Finding finding = at.finding(rules::notAStatement, DidYouMean(similar));
    return keyword.empty() ? Drop(std::move(finding), at.rest())
                           : Replace(std::move(finding), at.itself(), {std::string(keyword)});
  }
  return Drop(at.finding(rules::unknownStatement), at.rest());
}

/// A word between a name and its brace, which stands on the same line or below.
Fix BetweenNameAndBrace(const Stray& at, std::size_t brace) {
  const std::size_t name = at.word - 1;
  const bool isKeyword = FindKeyword(at.words.text(name)) != Keyword::None;
  if (isKeyword && brace > at.word) {  // As in `enum class E {`.
    return Drop(FindingAt(rules::extraWordOfName, at.words, name), {name, at.word});
  }
  const std::string nameOnly(NameIn(at.words.text(name)));
  Fix fix = Replace(at.finding(at.openingRule()), {name, brace},
                    {nameOnly.empty() ? InventedName(name) : nameOnly});
  fix.mayDeclare = false;
  return fix;
}

/// A word in place of the "{" after a name.
Fix AtOpening(const Stray& at) {
  const std::size_t name = at.word - 1;
  const bool isPart = at.before == Role::Part;
  if (!at.isOnLineOfWordBefore()) {
    const bool isService = at.before == Role::ServiceName && at.text == "request";
    Finding finding = FindingAt(rules::missingOpening, at.words, name);
    return isPart || isService || at.isClosed() ? Insert(std::move(finding), at.word, {"{"})
                                                : Drop(std::move(finding), {name - 1, at.word});
  }
  const std::size_t brace = OpeningBrace(at.words, at.word);
  if (brace != noWord) return BetweenNameAndBrace(at, brace);
  Finding finding = at.finding(at.openingRule());
  if (!isPart) return Drop(std::move(finding), {name - 1, at.end});
  Fix fix = Replace(std::move(finding), at.itself(), {"{", "}"});
  fix.mayDeclare = false;
  return fix;
}

/// A word in place of a brace.
Fix AtBrace(const Stray& at) {
  if (at.before != Role::Brace) return AtOpening(at);
  if (at.beginsStatement()) return Insert(at.finding(rules::missingClosing), at.word, {"}"});
  if (at.isClosing()) {
    Finding finding = at.finding(rules::notAnEnd);
    finding.advice = SymptomOf(at.words, finding).advice;
    return Replace(std::move(finding), at.itself(), {"}"});
  }
  Fix fix = Drop(at.finding(rules::afterResponse), at.rest());
  if (at.text == "request") fix.mayFollow = MayFollow::FaultInStatement;
  return fix;
}

/// A word in place of `request` or `response`.
Fix AtPart(const Stray& at) {
  const bool isRequest = at.words.role(at.word - 2) == Role::ServiceName;
  const std::string part = isRequest ? "request" : "response";
  const Rule& missing = isRequest ? rules::missingRequest : rules::missingResponse;
  const Texts emptyPart = {part, "{", "}"};
  Texts emptyParts = emptyPart;
  if (isRequest) emptyParts.insert(emptyParts.end(), {"response", "{", "}"});
  SimilarWord similar(at.text);
  similar.compare(part);
  const bool isOtherPart = at.text == "request" || at.text == "response";

  if (at.text == "}" && at.isBefore(part)) {
    return Drop(at.finding(missing), at.itself());
  }
  if (!similar.found().empty() && !isOtherPart) {
    const Rule& rule = isRequest ? rules::notARequest : rules::notAResponse;
    return Replace(at.finding(rule, DidYouMean(part)), at.itself(), {part});
  }
  if (at.text == "}") {
    Fix fix = Insert(at.finding(missing), at.word, emptyParts);
    fix.mayFollow = MayFollow::FaultInStatement;
    return fix;
  }
  if (at.text == "response") {
    return Insert(at.finding(rules::responseFirst), at.word, emptyPart);
  }
  if (at.beginsStatement()) {
    emptyParts.emplace_back("}");
    return Insert(at.finding(rules::missingClosing), at.word, emptyParts);
  }
  return Drop(at.finding(missing), at.rest());
}

/// A word that is glued to a brace, or a brace in place of a name.
Fix AtName(const Stray& at) {
  if (at.text == "{")
    return Insert(at.finding(rules::missingName), at.word, {InventedName(at.word)});
  Finding finding = at.finding(FormRule(at.words.role(at.word)));
  if (at.isClosing()) return Drop(std::move(finding), {at.word - 1, at.word});
  return Drop(std::move(finding), at.rest());
}

}  // namespace

Fix FixStatement(const LocatedWords& words, std::size_t word) {
  if (std::optional<Fix> fix = FixCharacters(words, {word, LineEnd(words, word)})) {
    return *std::move(fix);
  }
  const Stray stray(words, word);
  switch (words.role(word)) {
    case Role::Statement:
      return AtStatement(stray);
    case Role::Brace:
      return AtBrace(stray);
    case Role::Part:
      return AtPart(stray);
    case Role::IncludePath:
    case Role::NamespacePath:
    case Role::EnumName:
    case Role::MessageName:
    case Role::ServiceName:
    case Role::ItemName:
    case Role::ItemValue:
    case Role::MemberName:
    case Role::MemberType:
    case Role::Unread:
      break;
  }
  return AtName(stray);
}

}  // namespace zentho::idlgen
