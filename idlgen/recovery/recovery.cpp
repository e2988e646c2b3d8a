#include "recovery/recovery.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "check/check_file.h"
#include "recovery/next_fix.h"
#include "schema/schema.h"
#include "schema/statements.h"
#include "words/foreign_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// The number of fixes after which the rest of a file is not read any more.
constexpr std::size_t maxFixes = 20;

template <typename T>
auto At(std::vector<T>& list, std::size_t i) {
  return list.begin() + static_cast<std::ptrdiff_t>(i);
}

template <typename T>
void replace(std::vector<T>& list, WordRange range, const std::vector<T>& values) {
  const auto rest = list.erase(At(list, range.first), At(list, range.end));
  list.insert(rest, values.begin(), values.end());
}

}  // namespace

Recovery::Recovery(SourceFile& sourceFile) : file(sourceFile), words(sourceFile.words) {
  locate(file);
  lacksBraces = OpenBraces(words) > 0;
  dropCarriageReturns();
  dropTabs();
}

const Examined& Recovery::run(Declarations& declarations) {
  for (;; ++fixes) {
    std::optional<Fix> fix = FixWords(file);
    if (!fix.has_value()) fix = check(declarations);
    if (!fix.has_value()) return examined;
    if (fixes == maxFixes) break;
    tell(*fix);
    apply(*fix);
  }
  declare(declarations);
  examined.findings.clear();
  examined.isComplete = false;
  return examined;
}

/// Checks the words. Returns the fix that the findings suggest, or nothing.
std::optional<Fix> Recovery::check(Declarations& declarations) {
  declare(declarations);
  examined.findings = CheckFile(declarations, declarations.fileOf(file));
  return FixFindings(words, examined.findings);
}

/// Shows the words to other files, if they have changed.
void Recovery::declare(Declarations& declarations) {
  if (!std::exchange(isDeclared, true)) declarations.update(file);
}

/// If most lines end with CR LF, says so once, and reads their last words without the CR.
void Recovery::dropCarriageReturns() {
  std::size_t lines = 0;
  std::vector<std::size_t> returns;  // A word of each line that ends with a CR.
  std::vector<std::size_t> ends;     // The words that end with it. It may be part of a comment.
  for (std::size_t i = 0; i < words.size(); i = LineEnd(words, i)) {
    const std::size_t last = LineEnd(words, i) - 1;
    if (words.text(last).back() == '\r') ends.push_back(last);
    if (words.text(i) == "\r") continue;  // There is no word in this line.
    ++lines;
    if (words.places[i].line.back() == '\r') returns.push_back(i);
  }
  if (ends.empty() || (lines > 0 && returns.size() * 2 <= lines)) return;
  Place place = words.places[returns.empty() ? ends.front() : returns.front()];
  place.offset = place.line.size() - 1;
  say({Severity::Error, {file.path, place, 1, std::string(rules::carriageReturns.sentence)}});
  for (const std::size_t i : ends) words.texts[i].remove_suffix(1);
  splitWords(' ');  // Drops those that are empty now.
}

/// If there are tabs beside or between words, says so once, and reads them as blanks.
void Recovery::dropTabs() {
  const auto hasTab = [](std::string_view word) {
    return word.find('\t') != std::string_view::npos;
  };
  const auto first = std::find_if(words.texts.begin(), words.texts.end(), hasTab);
  if (first == words.texts.end()) return;
  Place place = words.places[static_cast<std::size_t>(first - words.texts.begin())];
  place.offset += first->find('\t');
  say({Severity::Error, {file.path, place, 1, std::string(rules::tabs.sentence)}});
  splitWords('\t');
}

/// Reads the parts of words between separators, which may be none, in place of the words.
void Recovery::splitWords(char separator) {
  LocatedWords parts;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string_view text = words.text(i);
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t end = std::min(text.find(separator, begin), text.size());
      if (end > begin) {
        parts.texts.push_back(text.substr(begin, end - begin));
        parts.places.push_back(words.places[i]);
        parts.places.back().offset += begin;
      }
      begin = end + 1;
    }
  }
  words = std::move(parts);
  parse();
}

void Recovery::say(Diagnostic diagnostic) {
  examined.diagnostics.push_back(std::move(diagnostic));
}

/// Says what is wrong, unless something has been said about that line, or about its cause.
void Recovery::tell(const Fix& fix) {
  const std::size_t line = words.places[fix.finding.word].lineNumber;
  if (!hasTold(line, line) && !isConsequence(fix)) say(DiagnosticOf(file, fix.finding));
}

/// Returns whether what is wrong may only follow from what has been said before.
bool Recovery::isConsequence(const Fix& fix) const {
  std::size_t firstLine = 0;
  std::size_t lastLine = std::numeric_limits<std::size_t>::max();
  switch (fix.mayFollow) {
    case MayFollow::Nothing:
      return false;
    case MayFollow::AnyFault:
      if (lacksBraces) return false;
      break;
    case MayFollow::FaultInStatement:
      firstLine = words.places[KeywordOf(words, fix.finding.word)].lineNumber;
      break;
    case MayFollow::FaultInOther:
      firstLine = lastLine = words.places[fix.finding.others.front().word].lineNumber;
      break;
  }
  return hasTold(firstLine, lastLine);
}

/// Returns whether something has been said about one of these lines.
bool Recovery::hasTold(std::size_t firstLine, std::size_t lastLine) const {
  return std::any_of(examined.diagnostics.begin(), examined.diagnostics.end(),
                     [&](const Diagnostic& diagnostic) {
                       const std::size_t line = diagnostic.message.place.lineNumber;
                       return firstLine <= line && line <= lastLine;
                     });
}

/// Parses the words once more, with those that the fix reads in place of its range.
void Recovery::apply(const Fix& fix) {
  if (fix.replaced.first < fix.replaced.end) {
    examined.linesAtFault.push_back(words.places[fix.finding.word].lineNumber);
  }
  std::vector<std::string_view> read;
  for (const std::string& text : fix.texts) read.push_back(file.ownTexts.emplace_back(text));
  noteDropped(fix, read);
  // A text that stands in the rest of the line is shown there, and another one at the word before.
  const std::size_t at = std::min(fix.replaced.first, words.size() - 1);
  std::vector<Place> places;
  Place place = words.places[at];
  for (const std::string_view text : read) {
    const std::size_t found = place.code.find(text, place.offset);
    if (found != std::string_view::npos) place.offset = found;
    places.push_back(place);
  }
  replace(words.texts, fix.replaced, read);
  replace(words.places, fix.replaced, places);
  parse();
}

void Recovery::parse() {
  isDeclared = false;
  file.error.reset();
  Schema schema;
  try {
    Parser().parseSilently(words, schema);
  } catch (const ParseError& error) {
    file.error = error;
  }
}

/// Keeps the names that may be declared by the words that are not read: by members none, by items
/// the first and those before a colon, by a line of members that opens a block the one after its
/// keyword.
void Recovery::noteDropped(const Fix& fix, const std::vector<std::string_view>& read) {
  const auto [first, end] = fix.replaced;
  if (!fix.mayDeclare || first == end) return;
  const Role role = words.role(first);
  const bool isOfMembers = role == Role::MemberName || role == Role::MemberType;
  const bool isOfItems = role == Role::ItemName || role == Role::ItemValue;
  for (std::size_t i = first; i < end; ++i) {
    const bool isNamed = i > first && IsDeclaration(FindStatement(words.text(i - 1)));
    const bool isItem = i == first || IsBeforeColon(words, i);
    const bool mayDeclare = isOfMembers ? isNamed : !isOfItems || isItem;
    const bool isRead = std::find(read.begin(), read.end(), words.text(i)) != read.end();
    if (mayDeclare && !isRead) noteDropped(words.text(i), read.empty() && !IsInList(role));
  }
}

/// Keeps the names in a word that is not read.
void Recovery::noteDropped(std::string_view word, bool isWholeLine) {
  const Statement keyword = FindStatement(SimilarKeyword(word));
  if (isWholeLine && (keyword == Statement::Include || keyword == Statement::Namespace)) {
    file.dropped.mayDeclareAnything = true;
  }
  for (std::string_view name = NameIn(word); !name.empty(); name = NameIn(word)) {
    file.dropped.names.insert(name);
    word.remove_prefix(static_cast<std::size_t>(name.end() - word.begin()));
  }
}

}  // namespace zentho::idlgen
