#include <algorithm>
#include <optional>
#include <utility>

#include "recovery/advice.h"
#include "recovery/fix.h"
#include "schema/statements.h"
#include "words/cpp_words.h"
#include "words/foreign_words.h"
#include "words/printable.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

constexpr std::string_view anyStatement =
    "a statement begins with include, namespace, enum, message or service";

/// A word that is not what the grammar wants outside of a list, with its line.
class Fault {
 public:
  Fault(const LocatedWords& located, std::size_t i)
      : file(located), word(i), end(LineEnd(located, i)) {}

  [[nodiscard]] Fix atStatement() const;
  [[nodiscard]] Fix atBrace() const;
  [[nodiscard]] Fix atPart() const;

  /// Returns the fix that leaves out the rest of the line, and the block that it opens.
  [[nodiscard]] Fix leaveOut(const Rule& rule, std::string_view advice) const {
    return {&rule, word, file.text(word), std::string(advice), rest()};
  }

 private:
  /// Returns the rest of the line up to a brace that closes what is open before it.
  [[nodiscard]] WordRange rest() const {
    const std::size_t brace = OpeningBrace(file, word);
    if (brace != noWord && brace >= end) return {word, ClosingBrace(file, brace) + 1};
    std::size_t i = word;
    while (i < end && BraceOf(file.text(i)) != '}') {
      i = file.text(i) == "{" ? ClosingBrace(file, i) + 1 : i + 1;
    }
    return {word, std::max(i, word + 1)};
  }

  [[nodiscard]] bool isInLineOf(std::size_t other) const { return AreOnOneLine(file, word, other); }

  [[nodiscard]] bool beginsStatement(std::size_t i) const {
    return FindStatement(file.text(i)) != Statement::None;
  }

  void leaveOutBraces(Fix& fix) const;
  [[nodiscard]] bool isMissingName(std::size_t name) const;
  [[nodiscard]] Fix afterPath() const;
  [[nodiscard]] std::vector<std::string> laterDeclaration() const;
  [[nodiscard]] std::string_view meantKeyword() const;
  [[nodiscard]] bool declares(std::string_view keyword, std::size_t brace) const;
  [[nodiscard]] std::size_t endOfClosedList() const;
  [[nodiscard]] bool isClosed() const;
  [[nodiscard]] Fix atOpening() const;
  [[nodiscard]] std::string_view openingAdvice() const;

  const LocatedWords& file;
  std::size_t word;
  std::size_t end;
};

/// Leaves out a "{" and its "}", but not what stands between them.
void Fault::leaveOutBraces(Fix& fix) const {
  fix.replaced = {word, word + 1};
  const std::size_t closing = ClosingBrace(file, word);
  if (closing > word && BraceOf(file.text(closing)) == '}') fix.closing = closing;
}

/// Returns whether a word in place of a name is the keyword of the statement on the next line.
bool Fault::isMissingName(std::size_t name) const {
  return IsDeclaration(FindStatement(file.text(name))) && !AreOnOneLine(file, name - 1, name) &&
         name + 2 < file.size() && file.text(name + 2) == "{";
}

/// More words on the line of a path: of an include, or of a namespace.
Fix Fault::afterPath() const {
  const std::string_view text = file.text(word);
  Fix fix = leaveOut(rules::notAStatement, "a path is one word, without spaces");
  if (file.role(word - 1) == Role::IncludePath) return fix;
  fix.advice = "a namespace is one word";
  if (isMissingName(word - 1)) {
    const std::string_view keyword = file.text(word - 1);
    return {&rules::missingName, word - 1, keyword, {}, {word - 2, word - 1}};
  }
  if (text == "{") {
    fix.advice = "a namespace has no braces";
    leaveOutBraces(fix);
  } else if (IsJoinedByColons(file, word - 1)) {
    std::string path(file.text(word - 1));
    std::size_t last = word;
    while (last < end && IsJoinedByColons(file, last - 1)) {
      path += "." + std::string(file.text(last++));
    }
    fix.advice = "write dots: " + Quoted(path);
    fix.replaced = {word - 1, last};
    fix.texts = {path};
  }
  return fix;
}

/// Returns what a line is read as that declares something after other words, as in
/// `public message P {` or `type P struct {`, or nothing.
std::vector<std::string> Fault::laterDeclaration() const {
  const std::size_t brace = OpeningBrace(file, word);
  if (brace == noWord) return {};
  for (std::size_t i = word + 1; i < brace; ++i) {
    const std::string_view keyword = KeywordFor(file.text(i));
    if (!declares(keyword, brace)) continue;
    const std::size_t name = i + 1 < brace ? i + 1 : i - 1;
    return {std::string(keyword), std::string(file.text(name))};
  }
  return {};
}

/// Returns the keyword that the word stands for, if the rest of the line fits, or nothing.
std::string_view Fault::meantKeyword() const {
  const std::string_view keyword = SimilarKeyword(file.text(word));
  const std::size_t brace = OpeningBrace(file, word);
  const bool fits = IsDeclaration(FindStatement(keyword))
                        ? brace != noWord && brace > word + 1 && declares(keyword, brace)
                        : end == word + 2 || brace == word + 2;  // As in `module a {`.
  return fits ? keyword : std::string_view();
}

/// Returns whether the keyword begins a declaration, which the words after this brace fit.
bool Fault::declares(std::string_view keyword, std::size_t brace) const {
  const Statement statement = FindStatement(keyword);
  const bool hasRequest = brace + 1 < file.size() && file.text(brace + 1) == "request";
  return IsDeclaration(statement) && (statement != Statement::Service || hasRequest);
}

/// If lines of pairs follow up to a brace, which belong to a list that has been closed too early,
/// returns the index after that brace, or `noWord`.
std::size_t Fault::endOfClosedList() const {
  std::size_t i = word;
  while (i < file.size() && !beginsStatement(i) && file.text(i) != "{") {
    if (file.text(i).front() == '}') return i == word ? noWord : i + 1;
    const std::size_t next = LineEnd(file, i);
    if ((next - i) % 2 == 1 || !IsIdentifier(file.text(i)) || file.text(i + 1) == "=") break;
    i = next;
  }
  return noWord;
}

Fix Fault::atStatement() const {
  const std::string_view text = file.text(word);
  const Role before = word > 0 ? file.role(word - 1) : Role::Statement;
  const bool isAfterPath = before == Role::NamespacePath || before == Role::IncludePath;
  if (isAfterPath && (isInLineOf(word - 1) || text == "{")) return afterPath();
  Fix fix = leaveOut(rules::notAStatement, anyStatement);
  if (BraceOf(text) == '}') {
    fix.advice = R"(there is no "{" for it)";
    fix.replaced = {word, word + 1};
    return fix;
  }
  if (text == "{") {
    leaveOutBraces(fix);
    return fix;
  }
  if (std::optional<Fix> form = FixForm(file, Signs::Forms, {word, word + 1}, fix.replaced)) {
    return *std::move(form);
  }
  if (std::vector<std::string> declaration = laterDeclaration(); !declaration.empty()) {
    fix.replaced = {word, OpeningBrace(file, word)};
    fix.texts = std::move(declaration);
  } else if (const std::string_view similar = SimilarKeyword(text); !similar.empty()) {
    fix.advice = DidYouMean(similar);
    const std::string_view keyword = meantKeyword();
    if (keyword.empty()) return fix;
    fix.replaced = {word, word + 1};
    fix.texts = {std::string(keyword)};
  } else if (const std::size_t listEnd = endOfClosedList(); listEnd != noWord) {
    fix.advice = R"(is a "}" too many above it?)";
    fix.replaced = {word, listEnd};
  }
  return fix;
}

/// Returns what to do about a word between a name and its brace.
std::string_view Fault::openingAdvice() const {
  const std::string_view text = file.text(word);
  const Role name = file.role(word - 1);
  if (IsJoinedByColons(file, word - 1)) return "a name is one word, without colons";
  if (name == Role::Part) return "a request or response is members in braces";
  const bool isBase =
      IsIdentifier(file.text(word - 1)) && (IsBeforeColon(file, word - 1) || text == "extends");
  if (isBase && name == Role::EnumName) return "the underlying type of an enum cannot be chosen";
  if (isBase) return name == Role::ServiceName ? "services have no base" : "messages have no base";
  return "only a name stands before it";
}

/// Returns whether a list that begins with the word has an end before other braces.
bool Fault::isClosed() const {
  std::size_t i = word;
  while (i < file.size() && BraceOf(file.text(i)) == '\0' && !beginsStatement(i)) ++i;
  return i < file.size() && BraceOf(file.text(i)) == '}';
}

/// A word in place of the "{" after a name.
Fix Fault::atOpening() const {
  const std::size_t name = word - 1;
  const bool isPart = file.role(name) == Role::Part;
  Fix fix{&rules::missingOpening, name, file.text(name), {}, {word, word}, {"{"}};
  if (isMissingName(name)) {
    return {&rules::missingName, name, file.text(name), {}, {name - 1, name}};
  }
  if (!isInLineOf(name)) {
    const bool isService = file.role(name) == Role::ServiceName && file.text(word) == "request";
    if (isPart || isService || isClosed()) return fix;
    fix.replaced = {name - 1, word};
    fix.texts = {};
    return fix;
  }
  fix = {&rules::notAnOpening, word, file.text(word), std::string(openingAdvice()), {word, end}};
  fix.mayDeclare = false;
  const std::size_t brace = OpeningBrace(file, word);
  const bool isKeyword = FindKeyword(file.text(name)) != Keyword::None;
  if (brace != noWord && isKeyword && brace > word) {  // As in `enum class E {`.
    fix = {&rules::extraWordOfName, name, file.text(name), {}, {name, word}};
  } else if (brace != noWord) {
    fix.replaced = {name, brace};
    const std::string_view nameOnly = NameIn(file.text(name));
    fix.texts = {nameOnly.empty() ? "_" : std::string(nameOnly)};
  } else if (isPart) {
    fix.replaced.end = word + 1;
    fix.texts = {"{", "}"};
  } else {
    fix.replaced.first = name - 1;
    fix.mayDeclare = true;
  }
  return fix;
}

Fix Fault::atBrace() const {
  const Role before = file.role(word - 1);
  if (before != Role::Brace) return atOpening();
  Fix fix = leaveOut(rules::missingEndOfService, "");
  if (beginsStatement(word)) {
    fix.replaced = {word, word};
    fix.texts = {"}"};
  } else if (BraceOf(file.text(word)) == '}') {
    fix.rule = &rules::notAnEnd;
    fix.advice = FormAdvice(file.text(word), Role::Statement);
    fix.replaced = {word, word + 1};
    fix.texts = {"}"};
  } else {
    fix.rule = &rules::notAnEnd;
    if (file.text(word) == "request") fix.mayFollow = MayFollow::FaultInStatement;
    fix.advice = "a service has one request and one response, in this order";
  }
  return fix;
}

/// A word in place of `request` or `response`.
Fix Fault::atPart() const {
  const std::string_view text = file.text(word);
  const bool isRequest = file.role(word - 2) == Role::ServiceName;
  const std::string part = isRequest ? "request" : "response";
  Fix fix = leaveOut(isRequest ? rules::notARequest : rules::notAResponse,
                     "a service has a request and a response, in this order");
  SimilarWord similar(text);
  similar.compare(part);
  if (text == "}" && word + 1 < file.size() && file.text(word + 1) == part) {
    fix.replaced = {word, word + 1};
  } else if (!similar.found().empty() && text != "request" && text != "response") {
    fix.advice = DidYouMean(part);
    fix.replaced = {word, word + 1};
    fix.texts = {part};
  } else if (text == "}" || text == "response") {
    fix.replaced = {word, word};
    fix.texts = {part, "{", "}"};
    if (text == "}") fix.mayFollow = MayFollow::FaultInStatement;
    if (text == "}" && isRequest) fix.texts.insert(fix.texts.end(), {"response", "{", "}"});
    if (text == "response") fix.advice = "a service begins with its request";
  } else if (beginsStatement(word)) {
    fix.rule = &rules::missingEndOfService;
    fix.advice = {};
    fix.replaced = {word, word};
    fix.texts = {part, "{", "}", "}"};
    if (isRequest) fix.texts.insert(fix.texts.begin() + 3, {"response", "{", "}"});
  }
  return fix;
}

/// A word that is glued to a brace, or a brace in place of a name.
Fix FixName(const LocatedWords& file, std::size_t word) {
  const std::string_view text = file.text(word);
  Fix fix = Fault(file, word).leaveOut(FormRule(file.role(word)), "");
  if (text == "{") {
    fix.rule = &rules::missingName;
    fix.replaced = {word, word};
    fix.texts = {"_"};
  } else if (BraceOf(text) == '}') {
    fix.replaced = {word - 1, word};
  }
  return fix;
}

}  // namespace

Fix FixStatement(const LocatedWords& file, std::size_t word) {
  if (std::optional<Fix> fix = FixCharacters(file, {word, LineEnd(file, word)})) {
    return *std::move(fix);
  }
  const Fault fault(file, word);
  switch (file.role(word)) {
    case Role::Statement:
      return fault.atStatement();
    case Role::Brace:
      return fault.atBrace();
    case Role::Part:
      return fault.atPart();
    default:
      return FixName(file, word);
  }
}

}  // namespace zentho::idlgen
