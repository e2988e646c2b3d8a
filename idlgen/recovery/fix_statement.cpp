#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "check/literals.h"
#include "recovery/fixes.h"
#include "recovery/separators.h"
#include "recovery/symptoms.h"
#include "schema/statements.h"
#include "words/cpp_words.h"
#include "words/foreign_words.h"
#include "words/meant_line.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// A word that is not what the grammar expects outside of a list. Makes fixes for it.
class Unexpected {
 public:
  Unexpected(const LocatedWords& fileWords, std::size_t i)
      : words(fileWords),
        word(i),
        lineEnd(LineEnd(fileWords, i)),
        text(fileWords.text(i)),
        roleBefore(i > 0 ? fileWords.role(i - 1) : Role::Statement) {}

  [[nodiscard]] bool isOnLineOfWordBefore() const { return AreOnOneLine(words, word - 1, word); }
  [[nodiscard]] bool isClosing() const { return BraceOf(text) == '}'; }
  [[nodiscard]] bool beginsStatement() const { return FindStatement(text) != Statement::None; }

  [[nodiscard]] Finding finding(const Rule& rule, Advice advice = {}) const {
    return FindingAt(rule, words, word, std::move(advice));
  }
  [[nodiscard]] Fix drop(const Rule& rule) const { return Drop(finding(rule), {word, word + 1}); }
  [[nodiscard]] Fix dropRest(const Rule& rule, Advice advice = {}) const {
    return Drop(finding(rule, std::move(advice)), rest());
  }
  [[nodiscard]] Fix replace(const Rule& rule, Texts texts, Advice advice = {}) const {
    return Replace(finding(rule, std::move(advice)), {word, word + 1}, std::move(texts));
  }
  [[nodiscard]] Fix insert(const Rule& rule, Texts texts, LineRange causes = {}) const {
    return Insert(finding(rule), word, std::move(texts), causes);
  }

  /// Returns the lines from the keyword of the statement on.
  [[nodiscard]] LineRange statement() const {
    return {words.places[KeywordOf(words, word)].lineNumber, lastLine};
  }

  /// Returns the rest of the line, with the block that it opens, up to a brace that closes what is
  /// open before it.
  [[nodiscard]] WordRange rest() const;

  const LocatedWords& words;
  const std::size_t word;
  const std::size_t lineEnd;
  const std::string_view text;
  const Role roleBefore;
};

WordRange Unexpected::rest() const {
  const std::size_t brace = OpeningBrace(words, word);
  if (brace != noWord && brace >= lineEnd) return {word, ClosingBrace(words, brace) + 1};
  std::size_t i = word;
  while (i < lineEnd && BraceOf(words.text(i)) != '}') {
    i = words.text(i) == "{" ? ClosingBrace(words, i) + 1 : i + 1;
  }
  return {word, std::max(i, word + 1)};
}

/// Returns a name in place of a missing one, so that the parser can go on. It is none of the
/// file's.
std::string InventedName(std::size_t word) {
  return "_" + std::to_string(word);
}

/// Returns a fix after which any name may be declared, since the right one is not known.
Fix WithUnknownName(Fix fix) {
  fix.mayDeclareAnything = true;
  return fix;
}

/// Returns whether a list that begins with this word has an end before other braces.
bool IsListClosed(const Words& words, std::size_t i) {
  const bool isOther = FindStatement(words.text(i)) != Statement::None;
  while (i < words.size() && BraceOf(words.text(i)) == '\0') ++i;
  return !isOther && i < words.size() && BraceOf(words.text(i)) == '}';
}

/// Returns whether the word begins a line with a member.
bool BeginsMember(const Unexpected& at) {
  const bool isPair = IsBeforeColon(at.words, at.word) && at.lineEnd == at.word + 2;
  const bool isType = LooksLikeType(at.text) || !TypeFor(at.text).empty() ||
                      at.text.find('/') != std::string_view::npos;
  return (isPair && IsTypeForm(at.words.text(at.lineEnd - 1))) ||
         ((isPair || isType) && !MeantLine(at.words, at.word).empty());
}

/// Returns whether the word begins a line with an item, as in `A: 0`.
bool BeginsItem(const Unexpected& at) {
  return IsBeforeColon(at.words, at.word) && at.lineEnd == at.word + 2 &&
         BeginsNumber(at.words.text(at.word + 1));
}

/// Returns whether the keyword begins a declaration, which the words after this brace fit.
bool FitsBrace(std::string_view keyword, const Words& words, std::size_t brace) {
  const Statement statement = FindStatement(keyword);
  const bool hasRequest = brace + 1 < words.size() && words.text(brace + 1) == "request";
  return IsDeclaration(statement) && (statement != Statement::Service || hasRequest);
}

/// Returns what a line is read as that declares something after other words, as in
/// `public message P {` or `type P struct {`, or nothing.
Texts LaterDeclaration(const Unexpected& at, std::size_t brace) {
  for (std::size_t i = at.word + 1; brace != noWord && i < brace; ++i) {
    const std::string_view keyword = KeywordFor(at.words.text(i));
    if (!FitsBrace(keyword, at.words, brace)) continue;
    const std::size_t name = i + 1 < brace ? i + 1 : i - 1;
    return {std::string(keyword), std::string(at.words.text(name))};
  }
  return {};
}

/// Returns whether the rest of the line fits the keyword, which is read in place of the word.
bool FitsLine(std::string_view keyword, const Unexpected& at, std::size_t brace) {
  if (IsDeclaration(FindStatement(keyword))) {
    return brace != noWord && brace > at.word + 1 && FitsBrace(keyword, at.words, brace);
  }
  return at.lineEnd == at.word + 2 || brace == at.word + 2;  // As in `module a {`.
}

/// Returns whether the word before is a keyword that begins the line below another one, whose path
/// or name is missing.
bool IsAfterBareKeyword(const Unexpected& at) {
  const bool isAfterName = at.roleBefore == Role::IncludePath ||
                           at.roleBefore == Role::NamespacePath || IsRecordName(at.roleBefore);
  return isAfterName && FindStatement(at.words.text(at.word - 1)) != Statement::None &&
         !AreOnOneLine(at.words, at.word - 2, at.word - 1);
}

/// Returns the rule that a word between a name and its brace breaks.
const Rule& OpeningRule(const Unexpected& at) {
  const std::size_t name = at.word - 1;
  if (IsJoinedByColons(at.words, name)) return rules::colonsInName;
  if (at.roleBefore == Role::Part) return rules::partWithoutBraces;
  const bool isBase =
      IsIdentifier(at.words.text(name)) && (IsBeforeColon(at.words, name) || at.text == "extends");
  if (!isBase) return rules::afterName;
  if (at.roleBefore == Role::EnumName) return rules::underlyingType;
  return at.roleBefore == Role::ServiceName ? rules::baseOfService : rules::baseOfMessage;
}

/// More words on the line of a path: of an include, or of a namespace.
Fix AfterPath(const Unexpected& at) {
  const std::size_t before = at.word - 1;
  std::string path(at.words.text(before));
  if (path == "=") {
    return Drop(FindingAt(FormRule(at.roleBefore), at.words, before, {R"(delete the "=")"}),
                {before, at.word});
  }
  if (at.roleBefore == Role::IncludePath) {
    return WithUnknownName(at.dropRest(rules::afterIncludePath));
  }
  if (at.text == "{") return at.drop(rules::namespaceWithBraces);
  std::size_t end = at.word;
  for (; end < at.lineEnd && IsBeforeColon(at.words, end - 1); ++end) {
    path.append(".").append(at.words.text(end));
  }
  if (end == at.word) return WithUnknownName(at.dropRest(rules::afterNamespace));
  path.resize(path.find_last_not_of(foreignSeparators) + 1);
  return Replace(at.finding(rules::notAStatement, {"write dots: " + Quoted(path)}), {before, end},
                 {path});
}

/// A word in place of the keyword of a statement.
Fix AtStatement(const Unexpected& at) {
  const bool isAfterPath =
      at.roleBefore == Role::NamespacePath || at.roleBefore == Role::IncludePath;
  const bool isSeparator = Parts(at.text, foreignSeparators).empty();
  if (isAfterPath && !isSeparator && (at.isOnLineOfWordBefore() || at.text == "{"))
    return AfterPath(at);
  if (at.isClosing()) return at.drop(rules::unopened);
  if (at.text == "{") return at.drop(rules::unknownStatement);
  if (auto form = FixForm(at.words, {at.word, at.word + 1}, at.rest())) return *std::move(form);
  const bool isMember = BeginsMember(at);
  if (isMember || BeginsItem(at)) {
    const Rule& rule = isMember ? rules::membersOutside : rules::itemsOutside;
    const std::string keyword = isMember ? "message" : "enum";
    return WithUnknownName(at.insert(rule, {keyword, InventedName(at.word), "{"}));
  }
  const std::size_t brace = OpeningBrace(at.words, at.word);
  if (Texts declaration = LaterDeclaration(at, brace); !declaration.empty()) {
    return Replace(at.finding(rules::unknownStatement), {at.word, brace}, std::move(declaration));
  }
  std::string_view keyword = SimilarKeyword(at.text);
  // As in `interface Button { label: string }`.
  const bool hasMembers = keyword == "service" && brace != noWord && brace + 1 < at.words.size() &&
                          IsBeforeColon(at.words, brace + 1);
  if (hasMembers) keyword = "message";
  if (keyword.empty()) return at.dropRest(rules::unknownStatement);
  const bool hasSemicolon = at.words.text(at.lineEnd - 1).back() == ';';
  Advice advice = {DidYouMean(keyword, hasSemicolon ? R"(, without the ";")" : "")};
  return FitsLine(keyword, at, brace)
             ? at.replace(rules::notAStatement, {std::string(keyword)}, std::move(advice))
             : at.dropRest(rules::notAStatement, std::move(advice));
}

/// Returns the name in this word, or another one.
std::string NameOnly(const Unexpected& at, std::size_t word) {
  const std::string_view name = NameIn(at.words.text(word));
  return name.empty() ? InventedName(word) : std::string(name);
}

/// A word between a name and its brace, which stands on the same line or below.
Fix BetweenNameAndBrace(const Unexpected& at, std::size_t brace) {
  const std::size_t name = at.word - 1;
  const std::string_view nameText = at.words.text(name);
  const bool isKeyword = FindKeyword(nameText) != Keyword::None || !KeywordFor(nameText).empty();
  if (isKeyword && brace > at.word) {  // As in `enum class E {`.
    return Drop(FindingAt(rules::extraWordOfName, at.words, name), {name, at.word});
  }
  return Replace(at.finding(OpeningRule(at)), {name, brace}, {NameOnly(at, name)});
}

/// A word in place of the "{" after a name, which is missing if the word is on a line below.
Fix AtOpening(const Unexpected& at) {
  const std::size_t name = at.word - 1;
  const bool isAfterPart = at.roleBefore == Role::Part;
  if (!at.isOnLineOfWordBefore()) {
    const bool isService = at.roleBefore == Role::ServiceName && at.text == "request";
    const bool isClosed = IsListClosed(at.words, at.word);
    const bool hasList = isAfterPart || isService || isClosed || BeginsMember(at) || BeginsItem(at);
    Finding finding = FindingAt(rules::missingOpening, at.words, name);
    if (!hasList) return Drop(std::move(finding), {name - 1, at.word});
    if (!isClosed && !isService) finding.advice = {"members stand in braces"};
    // As in `message M (`, whose bracket may be glued to the name.
    return Replace(std::move(finding), {name, at.word}, {NameOnly(at, name), "{"});
  }
  const std::size_t brace = OpeningBrace(at.words, at.word);
  if (brace != noWord) return BetweenNameAndBrace(at, brace);
  if (IsPunctuation(at.text)) return at.replace(OpeningRule(at), {"{"});  // As in `enum E (`.
  if (!isAfterPart) return Drop(at.finding(OpeningRule(at)), {name - 1, at.lineEnd});
  return at.replace(OpeningRule(at), {"{", "}"});
}

/// A word in place of the "}" after a service.
Fix AtClosing(const Unexpected& at) {
  if (at.beginsStatement()) {
    return at.insert(rules::missingClosing, {"}"}, CausesOfMissingBrace(at.words));
  }
  if (at.isClosing()) {
    return at.replace(rules::notAnEnd, {"}"},
                      SymptomOf(at.words, at.finding(rules::notAnEnd)).advice);
  }
  Fix fix = at.dropRest(rules::afterResponse);
  if (at.text == "request") fix.causes = at.statement();
  return fix;
}

/// A word in place of `request` or `response`.
Fix AtPart(const Unexpected& at) {
  const bool isRequest = at.words.role(at.word - 2) == Role::ServiceName;
  const std::string part = isRequest ? "request" : "response";
  const Rule& missing = isRequest ? rules::missingRequest : rules::missingResponse;
  const Rule& misspelt = isRequest ? rules::notARequest : rules::notAResponse;
  const std::size_t next = at.word + 1;
  const bool isNext = next < at.words.size() && at.words.text(next) == part;
  Texts rest = MissingBraces(at.words, at.word);

  if (Parts(at.text, foreignSeparators).empty() || (at.text == "}" && isNext)) {
    return at.drop(missing);
  }
  if (at.text == "}") {
    rest.pop_back();  // It is there.
    return at.insert(missing, std::move(rest), at.statement());
  }
  if (at.text == "response") return at.insert(rules::responseFirst, {part, "{", "}"});
  if (at.beginsStatement()) {
    return at.insert(rules::missingClosing, std::move(rest), CausesOfMissingBrace(at.words));
  }
  if (BeginsMember(at)) return at.insert(missing, {part, "{"});
  const bool opensList = next < at.words.size() && at.words.text(next) == "{";
  const bool isMisspelt = opensList || SimilarWord(at.text).compare(part);
  return isMisspelt ? at.replace(misspelt, {part}, {DidYouMean(part)}) : at.dropRest(missing);
}

/// A word that is glued to a brace, or a brace in place of a name.
Fix AtName(const Unexpected& at) {
  if (at.text == "{") {
    return WithUnknownName(at.insert(rules::missingName, {InventedName(at.word)}));
  }
  const Rule& rule = FormRule(at.words.role(at.word));
  return Drop(at.finding(rule), {at.word - 1, at.isClosing() ? at.word : at.rest().end});
}

}  // namespace

Fix FixStatement(const LocatedWords& words, std::size_t word) {
  if (auto fix = FixCharacters(words, {word, LineEnd(words, word)})) return *std::move(fix);
  const Unexpected at(words, word);
  const Role role = words.role(word);
  if (IsAfterBareKeyword(at)) {
    return Drop(FindingAt(rules::bareKeyword, words, word - 2), {word - 2, word - 1});
  }
  if (role == Role::Statement) return AtStatement(at);
  if (role == Role::Part) return AtPart(at);
  if (role != Role::Brace) return AtName(at);
  return at.roleBefore == Role::Brace ? AtClosing(at) : AtOpening(at);
}

}  // namespace zentho::idlgen
