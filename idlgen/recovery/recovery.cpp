#include "recovery/recovery.h"

#include <algorithm>
#include <utility>

#include "recovery/fix.h"
#include "recovery/out_of_step.h"
#include "schema/schema.h"
#include "schema/statements.h"
#include "words/foreign_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// The number of faults after which the rest of a file is not read any more.
constexpr std::size_t mostFaults = 20;

/// Returns the index of the first type or value of which "::" makes two words, or `count`.
std::size_t FirstCppName(const LocatedWords& file, std::size_t count) {
  std::size_t i = 0;
  while (i < count && !(IsSecondHalf(file.role(i)) && IsJoinedByColons(file, i))) ++i;
  return i;
}

template <typename T>
void replace(std::vector<T>& list, WordRange range, const std::vector<T>& values) {
  const auto at = [&](std::size_t i) { return list.begin() + static_cast<std::ptrdiff_t>(i); };
  const auto rest = list.erase(at(range.first), at(range.end));
  list.insert(rest, values.begin(), values.end());
}

/// Returns whether the word of a finding may be meant as something else than what the parser has
/// taken it for. A warning about a valid file must not make it an invalid one.
bool ShowsWrongRole(const Finding& finding) {
  return finding.rule->severity == Severity::Error || finding.rule == &rules::builtinTypeAsName ||
         finding.rule == &rules::notAnItem;
}

}  // namespace

Recovery::Recovery(std::string_view fileText, Words fileWords,
                   std::optional<ParseError> grammarError)
    : text(fileText), error(std::move(grammarError)) {
  file.words = std::move(fileWords);
  file.places = FindPlaces(text, file.words.texts);
  lacksBraces = OpenBraces(file) > 0;
  dropCarriageReturns();
}

void Recovery::run(const CheckWords& check) {
  for (;; ++faults) {
    const std::optional<Fix> fix = nextFix(check);
    if (!fix.has_value()) return;
    if (faults == mostFaults) break;
    tell(*fix);
    readInstead(*fix);
  }
  check(file.words, recovered.leftOut);  // Others look at the words that are read in the end.
  recovered.isComplete = false;
  recovered.findings.clear();
}

/// If most lines end with CR LF, says so once, and reads their last words without the CR.
void Recovery::dropCarriageReturns() {
  std::size_t lines = 0;
  std::vector<std::size_t> returns;  // A word of each line that ends with a CR.
  std::vector<std::size_t> ends;     // The words that end with it. It may be part of a comment.
  for (std::size_t i = 0; i < file.size(); i = LineEnd(file, i)) {
    const std::size_t last = LineEnd(file, i) - 1;
    if (file.text(last).back() == '\r') ends.push_back(last);
    if (file.text(i) == "\r") continue;  // There is no word in this line.
    ++lines;
    if (file.places[i].line.back() == '\r') returns.push_back(i);
  }
  if (ends.empty() || (lines > 0 && returns.size() * 2 <= lines)) return;
  const Place& place = file.places[returns.empty() ? ends.front() : returns.front()];
  const Spot spot = {{place.lineNumber, place.line, place.code, place.line.size() - 1}, 1};
  recovered.diagnostics.push_back(
      {Severity::Error, spot, Sentence(rules::carriageReturns.sentence, "", "")});
  for (const std::size_t i : ends) file.words.texts[i].remove_suffix(1);
  std::vector<Place> places;
  for (std::size_t i = 0; i < file.size(); ++i) {
    if (!file.text(i).empty()) places.push_back(file.places[i]);
  }
  file.places = std::move(places);
  std::vector<std::string_view>& words = file.words.texts;
  words.erase(std::remove(words.begin(), words.end(), ""), words.end());
  parse();
}

void Recovery::parse() {
  error.reset();
  Schema schema;
  try {
    Parser().parseSilently(file.words, schema);
  } catch (const ParseError& parseError) {
    error = parseError;
  }
}

/// Returns the fix of the first word that the parser refuses or that has not the role that it is
/// meant for, or nothing. Checks the words if there is no such word.
std::optional<Fix> Recovery::nextFix(const CheckWords& check) {
  const bool isAtEnd = error.has_value() && error->kind == ParseError::Kind::EndOfFile;
  const std::size_t count = error.has_value() && !isAtEnd ? error->tokensRead - 1 : file.size();
  const std::size_t fault = std::min(WordsInStep(file.words, count), FirstCppName(file, count));
  if (fault < count) return fixOfWord(fault);
  if (isAtEnd) return fixOfEnd();
  if (error.has_value()) return fixOfWord(fault);
  recovered.findings = check(file.words, recovered.leftOut);
  return fixOfFindings();
}

Fix Recovery::fixOfWord(std::size_t word) const {
  const bool isSecondNamespace = error.has_value() &&
                                 error->kind == ParseError::Kind::SecondNamespace &&
                                 error->tokensRead - 1 == word;
  if (isSecondNamespace) {
    const std::vector<Role>& roles = file.words.roles;
    const auto first = std::find(roles.begin(), roles.end(), Role::NamespacePath);
    Fix fix{&rules::secondNamespace, word, "", "", {word, std::min(word + 2, file.size())}};
    fix.other = static_cast<std::size_t>(first - roles.begin());
    fix.mayFollow = MayFollow::FaultInOther;
    fix.mayDeclare = false;
    return fix;
  }
  return IsInList(file.role(word)) ? FixList(file, word) : FixStatement(file, word);
}

/// Returns the fix of a statement that the file ends in.
Fix Recovery::fixOfEnd() const {
  const std::size_t last = file.size() - 1;
  if (IsInList(file.role(last)) && HasWrongLine(file, DeclaredTypes(file), last)) {
    return FixList(file, last);
  }
  return FixEnd(file);
}

/// Returns the fix of the first list with a finding in or below a line that cannot be read in
/// pairs: all words after that line have a wrong role.
std::optional<Fix> Recovery::fixOfFindings() const {
  const TypeNames types = DeclaredTypes(file);
  std::vector<std::size_t> doubtful;  // The words of lists whose role may be wrong.
  for (const Finding& finding : recovered.findings) {
    if (ShowsWrongRole(finding) && IsInList(file.role(finding.word))) {
      doubtful.push_back(finding.word);
    }
  }
  auto next = doubtful.begin();
  while (next != doubtful.end()) {
    std::size_t listEnd = *next;
    while (IsInList(file.role(listEnd))) ++listEnd;
    const auto end = std::lower_bound(next, doubtful.end(), listEnd);
    const std::vector<std::size_t> ofList(next, end);
    if (HasWrongLine(file, types, ofList.back())) return FixList(file, ofList.back());
    const std::size_t mixed = FirstInMixedLine(file, types, ofList);
    if (mixed != noWord) return FixList(file, mixed);
    next = end;
  }
  return std::nullopt;
}

/// Says what is wrong, unless something has been said about that line, or about its cause.
void Recovery::tell(const Fix& fix) {
  const Spot spot = SpotOf(file, fix.word);
  const auto isOfLine = [&](const Diagnostic& diagnostic) {
    return diagnostic.spot.place.lineNumber == spot.place.lineNumber;
  };
  std::vector<Diagnostic>& diagnostics = recovered.diagnostics;
  if (isConsequence(fix) || std::any_of(diagnostics.begin(), diagnostics.end(), isOfLine)) return;
  Diagnostic diagnostic{Severity::Error, spot, Sentence(fix.rule->sentence, fix.text, fix.advice)};
  if (fix.other != noWord) {
    diagnostic.notes.push_back(
        {{}, SpotOf(file, fix.other), Sentence(fix.rule->note, "", "", file.text(fix.other))});
  }
  diagnostics.push_back(std::move(diagnostic));
}

/// Returns whether what is wrong may only follow from what has been said before.
bool Recovery::isConsequence(const Fix& fix) const {
  const std::vector<Diagnostic>& diagnostics = recovered.diagnostics;
  switch (fix.mayFollow) {
    case MayFollow::Nothing:
      return false;
    case MayFollow::AnyFault:
      return !diagnostics.empty() && !lacksBraces;
    case MayFollow::FaultInStatement:
    case MayFollow::FaultInOther:
      break;
  }
  const bool isInOther = fix.mayFollow == MayFollow::FaultInOther;
  std::size_t keyword = fix.word;
  while (keyword > 0 && file.role(keyword) != Role::Statement) --keyword;
  const std::size_t first = file.places[isInOther ? fix.other : keyword].lineNumber;
  return std::any_of(diagnostics.begin(), diagnostics.end(), [&](const Diagnostic& diagnostic) {
    const std::size_t line = diagnostic.spot.place.lineNumber;
    return isInOther ? line == first : line >= first;
  });
}

/// Parses the words once more, with those that the fix reads in place of its range.
void Recovery::readInstead(const Fix& fix) {
  if (fix.replaced.first < fix.replaced.end) {
    recovered.linesAtFault.push_back(file.places[fix.word].lineNumber);
  }

  if (fix.closing != noWord) {
    replace(file.words.texts, {fix.closing, fix.closing + 1}, {});
    replace(file.places, {fix.closing, fix.closing + 1}, {});
  }
  std::vector<std::string_view> read;
  for (const std::string& word : fix.texts) read.push_back(texts.emplace_back(word));
  const std::size_t leftOutEnd = mayDeclare(fix) ? fix.replaced.end : fix.replaced.first;
  for (std::size_t i = fix.replaced.first; i < leftOutEnd; ++i) {
    const bool isRead = std::find(read.begin(), read.end(), file.text(i)) != read.end();
    if (!isRead) leaveOut(file.text(i), read.empty());
  }
  const std::size_t at = std::min(fix.replaced.first, file.size() - 1);
  std::vector<Place> places;
  std::size_t offset = file.places[at].offset;
  for (const std::string_view word : read) {
    Place place = file.places[at];
    const std::size_t found = place.code.find(word, offset);
    if (found != std::string_view::npos) offset = found;
    place.offset = offset;
    places.push_back(place);
  }
  replace(file.words.texts, fix.replaced, read);
  replace(file.places, fix.replaced, places);
  parse();
}

/// Returns whether names among the words that are not read may be declared there: not in a line of
/// members, unless it opens a block.
bool Recovery::mayDeclare(const Fix& fix) const {
  if (!fix.mayDeclare || fix.replaced.first == fix.replaced.end) return false;
  const Role role = file.role(fix.replaced.first);
  if (role != Role::MemberName && role != Role::MemberType) return true;
  const std::vector<std::string_view>& words = file.words.texts;
  const auto at = [&](std::size_t i) { return words.begin() + static_cast<std::ptrdiff_t>(i); };
  return std::any_of(at(fix.replaced.first), at(fix.replaced.end),
                     [](std::string_view word) { return BraceOf(word) != '\0'; });
}

/// Keeps the names in a word that is not read, which may be declared there.
void Recovery::leaveOut(std::string_view word, bool isWholeLine) {
  const Statement keyword = FindStatement(SimilarKeyword(word));
  if (isWholeLine && (keyword == Statement::Include || keyword == Statement::Namespace)) {
    recovered.leftOut.mayDeclareAnything = true;
  }
  for (std::string_view name = NameIn(word); !name.empty(); name = NameIn(word)) {
    recovered.leftOut.names.insert(name);
    word.remove_prefix(static_cast<std::size_t>(name.end() - word.begin()));
  }
}

}  // namespace zentho::idlgen
