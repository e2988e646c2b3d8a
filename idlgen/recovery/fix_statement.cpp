#include <algorithm>
#include <string_view>
#include <utility>

#include "check/literals.h"
#include "findings/meant_line.h"
#include "recovery/fixes.h"
#include "recovery/separators.h"
#include "recovery/symptoms.h"
#include "schema/statements.h"
#include "words/cpp_words.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

// Outside of lists, the grammar expects one kind of word, and there is a function for each. It
// tries causes in this order: a brace, or a keyword, which shows that something is missing before
// it; the form of the word; what the rest of its line looks like; a similar keyword. If nothing is
// found, the rest of the line is left out, with the block that it opens.

/// A word that is not what the grammar expects outside of a list. Makes fixes for it.
class Unexpected {
 public:
  Unexpected(const LocatedWords& fileWords, std::size_t i)
      : words(fileWords),
        word(i),
        before(i > 0 ? i - 1 : noWord),
        lineEnd(LineEnd(fileWords, i)),
        text(fileWords.text(i)),
        roleBefore(i > 0 ? fileWords.role(i - 1) : Role::Statement) {}

  [[nodiscard]] bool isOnLineOfWordBefore() const { return AreOnOneLine(words, before, word); }
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

  /// Returns the keyword of the statement that the word before stands in.
  [[nodiscard]] std::size_t keyword() const { return KeywordOf(words, before); }

  /// Returns the lines from that keyword on.
  [[nodiscard]] LineRange statement() const {
    return {words.places[keyword()].lineNumber, lastLine};
  }

  /// Returns the rest of the line, with the block that it opens, up to a brace that closes what is
  /// open before it.
  [[nodiscard]] WordRange rest() const;

  const LocatedWords& words;
  const std::size_t word;
  const std::size_t before;  ///< The word before, such as the name before a "{".
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

/// Returns a name in place of a missing one, so that the parser can go on: one that hardly any file
/// has.
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

/// Returns the keyword that is meant by the word, or nothing.
std::string_view MeantKeyword(const Unexpected& at, std::size_t brace) {
  const std::string_view keyword = SimilarKeyword(at.text);
  // interface Button { label: string }
  const bool hasMembers =
      brace != noWord && brace + 1 < at.words.size() && IsBeforeColon(at.words, brace + 1);
  return keyword == "service" && hasMembers ? "message" : keyword;
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
  return isAfterName && FindStatement(at.words.text(at.before)) != Statement::None &&
         !AreOnOneLine(at.words, at.keyword(), at.before);
}

/// Returns the rule that a word between a name and its brace breaks.
const Rule& OpeningRule(const Unexpected& at) {
  if (IsJoinedByColons(at.words, at.before)) return rules::colonsInName;
  if (at.roleBefore == Role::Part) return rules::partWithoutBraces;
  const bool isBase = IsIdentifier(at.words.text(at.before)) &&
                      (IsBeforeColon(at.words, at.before) || at.text == "extends");
  if (!isBase) return rules::afterName;
  if (at.roleBefore == Role::EnumName) return rules::underlyingType;
  return at.roleBefore == Role::ServiceName ? rules::baseOfService : rules::baseOfMessage;
}

/// Returns the name in this word, or another one.
std::string NameOnly(const Unexpected& at, std::size_t word) {
  const std::string_view name = NameIn(at.words.text(word));
  return name.empty() ? InventedName(word) : std::string(name);
}

/// More words on the line of a path: of an include, or of a namespace.
Fix AfterPath(const Unexpected& at) {
  std::string path(at.words.text(at.before));
  // namespace = a.b
  if (path == "=") {
    return Drop(FindingAt(FormRule(at.roleBefore), at.words, at.before, {R"(delete the "=")"}),
                {at.before, at.word});
  }
  // include "a.idl" "b.idl"
  if (at.roleBefore == Role::IncludePath) {
    const Rule& rule =
        IsBeforeColon(at.words, at.before) ? rules::unknownPath : rules::afterIncludePath;
    return WithUnknownName(at.dropRest(rule));
  }
  // namespace a {
  if (at.text == "{") return at.drop(rules::namespaceWithBraces);
  // namespace a::b
  std::size_t end = at.word;
  for (; end < at.lineEnd && IsBeforeColon(at.words, end - 1); ++end) {
    path.append(".").append(at.words.text(end));
  }
  if (end > at.word) {
    path.resize(path.find_last_not_of(foreignSeparators) + 1);
    return Replace(at.finding(rules::notAStatement, {"write dots: " + Quoted(path)}),
                   {at.before, end}, {path});
  }
  // namespace a b
  return WithUnknownName(at.dropRest(rules::afterNamespace));
}

/// A word in place of the keyword of a statement.
Fix AtStatement(const Unexpected& at) {
  const bool isAfterPath =
      at.roleBefore == Role::NamespacePath || at.roleBefore == Role::IncludePath;
  const bool isOfPath = isAfterPath && (at.isOnLineOfWordBefore() || at.text == "{");
  if (isOfPath && !IsSeparator(at.text)) return AfterPath(at);
  if (at.isClosing()) return at.drop(rules::unopened);
  if (at.text == "{") return at.drop(rules::unknownStatement);
  if (auto form = FixForm(at.words, {at.word, at.word + 1}, at.rest())) return *std::move(form);
  // x: int8
  if (BeginsMember(at)) {
    return WithUnknownName(
        at.insert(rules::membersOutside, {"message", InventedName(at.word), "{"}));
  }
  // A: 0
  if (BeginsItem(at)) {
    return WithUnknownName(at.insert(rules::itemsOutside, {"enum", InventedName(at.word), "{"}));
  }
  // public message P {
  const std::size_t brace = OpeningBrace(at.words, at.word);
  if (Texts declaration = LaterDeclaration(at, brace); !declaration.empty()) {
    const std::string meant = declaration[0] + " " + declaration[1];
    return Replace(at.finding(rules::notAStatement, {DidYouMean(meant)}), {at.word, brace},
                   std::move(declaration));
  }
  // mesage P {
  const std::string_view keyword = MeantKeyword(at, brace);
  if (keyword.empty()) return at.dropRest(rules::unknownStatement);
  // use a::b
  const bool isPathUnknown =
      keyword == "include" && (at.lineEnd == at.word + 1 ||
                               FormOfInclude(at.words.text(at.word + 1)) == IncludeForm::Unquoted);
  if (isPathUnknown) return at.dropRest(rules::unknownPath);
  const bool hasSemicolon = at.words.text(at.lineEnd - 1).back() == ';';
  Advice advice = {DidYouMean(keyword, hasSemicolon ? R"(, without the ";")" : "")};
  return FitsLine(keyword, at, brace)
             ? at.replace(rules::notAStatement, {std::string(keyword)}, std::move(advice))
             : at.dropRest(rules::notAStatement, std::move(advice));
}

/// A word between a name and its brace, which stands on the same line or below.
Fix BetweenNameAndBrace(const Unexpected& at, std::size_t brace) {
  // enum class E {
  const std::string_view name = at.words.text(at.before);
  const bool isKeyword = FindKeyword(name) != Keyword::None || !KeywordFor(name).empty();
  if (isKeyword && brace > at.word) {
    return Drop(FindingAt(rules::extraWordOfName, at.words, at.before), {at.before, at.word});
  }
  // message D : B {
  return Replace(at.finding(OpeningRule(at)), {at.before, brace}, {NameOnly(at, at.before)});
}

/// A word on a line below the name after which a "{" is missing.
Fix BelowName(const Unexpected& at) {
  Finding finding = FindingAt(rules::missingOpening, at.words, at.before);
  const bool isClosed = IsListClosed(at.words, at.word);
  const bool isService = at.roleBefore == Role::ServiceName && at.text == "request";
  const bool isList = at.roleBefore == Role::Part || BeginsMember(at) || BeginsItem(at);
  if (!isClosed && !isService && !isList) return Drop(std::move(finding), {at.keyword(), at.word});
  if (!isClosed && !isService) finding.advice = {"members stand in braces"};
  // The name may have a bracket, as in `message M(`.
  return Replace(std::move(finding), {at.before, at.word}, {NameOnly(at, at.before), "{"});
}

/// A word in place of the "{" after a name.
Fix AtOpening(const Unexpected& at) {
  if (!at.isOnLineOfWordBefore()) return BelowName(at);
  const std::size_t brace = OpeningBrace(at.words, at.word);
  if (brace != noWord) return BetweenNameAndBrace(at, brace);
  // enum E (
  if (IsPunctuation(at.text)) return at.replace(OpeningRule(at), {"{"});
  // request Query
  if (at.roleBefore == Role::Part) return at.replace(OpeningRule(at), {"{", "}"});
  // message M : B
  return Drop(at.finding(OpeningRule(at)), {at.keyword(), at.lineEnd});
}

/// A word in place of the "}" after a service.
Fix AtClosing(const Unexpected& at) {
  if (at.beginsStatement()) {
    return at.insert(rules::missingClosing, {"}"}, CausesOfMissingBrace(at.words));
  }
  // };
  if (at.isClosing()) {
    return at.replace(rules::notAnEnd, {"}"},
                      SymptomOf(at.words, at.finding(rules::notAnEnd)).advice);
  }
  // A second request, if the first one was read as the response.
  Fix fix = at.dropRest(rules::afterResponse);
  if (at.text == "request") fix.causes = at.statement();
  return fix;
}

/// A word in place of `request` or `response`.
Fix AtPart(const Unexpected& at) {
  const bool isRequest = at.word == at.keyword() + 3;  // After the name and a "{".
  const std::string part = isRequest ? "request" : "response";
  const Rule& missing = isRequest ? rules::missingRequest : rules::missingResponse;
  const Rule& misspelt = isRequest ? rules::notARequest : rules::notAResponse;
  const std::size_t next = at.word + 1;
  const auto isNext = [&](std::string_view text) {
    return next < at.words.size() && at.words.text(next) == text;
  };
  Texts rest = MissingEnd(at.words, at.word);

  if (IsSeparator(at.text) || (at.text == "}" && isNext(part))) return at.drop(missing);
  // service S { }
  if (at.text == "}") {
    rest.pop_back();  // It is there.
    return at.insert(missing, std::move(rest), at.statement());
  }
  if (at.text == "response") return at.insert(rules::responseFirst, {part, "{", "}"});
  // The next statement.
  if (at.beginsStatement()) {
    return at.insert(rules::missingClosing, std::move(rest), CausesOfMissingBrace(at.words));
  }
  // service S { x: int8
  if (BeginsMember(at)) return at.insert(missing, {part, "{"});
  // req {
  const bool isMisspelt =
      IsIdentifier(at.text) && (isNext("{") || SimilarWord(at.text).compare(part));
  return isMisspelt ? at.replace(misspelt, {part}, {DidYouMean(part)}) : at.dropRest(missing);
}

/// A word that is glued to a brace, or a brace in place of a name.
Fix AtName(const Unexpected& at) {
  if (at.text == "{") {
    return WithUnknownName(at.insert(rules::missingName, {InventedName(at.word)}));
  }
  const Rule& rule = FormRule(at.words.role(at.word));
  return Drop(at.finding(rule), {at.before, at.isClosing() ? at.word : at.rest().end});
}

}  // namespace

Fix FixStatement(const LocatedWords& words, std::size_t word) {
  if (auto fix = FixCharacters(words, {word, LineEnd(words, word)})) return *std::move(fix);
  const Unexpected at(words, word);
  const Role role = words.role(word);
  if (IsAfterBareKeyword(at)) {
    return Drop(FindingAt(rules::bareKeyword, words, at.keyword()), {at.keyword(), at.before});
  }
  if (role == Role::Statement) return AtStatement(at);
  if (role == Role::Part) return AtPart(at);
  if (role != Role::Brace) return AtName(at);
  return at.roleBefore == Role::Brace ? AtClosing(at) : AtOpening(at);
}

}  // namespace zentho::idlgen
