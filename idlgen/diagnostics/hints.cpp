#include "diagnostics/hints.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "check/characters.h"
#include "check/cpp_words.h"
#include "check/forms.h"
#include "diagnostics/printable.h"
#include "schema/builtin_types.h"

namespace zentho {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
constexpr std::string_view writeColon = R"(write a colon, as in "A: 1")";

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != npos;
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

std::string Quoted(std::string_view text) {
  return '"' + Shortened(text) + '"';
}

/// Returns what to do about characters that no word may contain.
std::string CharacterHint(std::string_view text) {
  if (Contains(text, "\r")) return "end lines with LF, not with CR LF";
  if (Contains(text, "\t")) return "use spaces instead of tabs";
  if (Contains(text, byteOrderMark)) return "save the file without a byte order mark";
  if (StartsWith(text, "//")) return R"(here, only "#" starts a comment)";
  if (StartsWith(text, "/*") || text == "*/") return R"(comments start with "#")";
  const char last = text.back();
  const bool isSeparator = last == ';' || last == ',';
  const std::string_view core = text.substr(0, text.size() - (isSeparator ? 1 : 0));
  if (core != "}" && (text.front() == '}' || (!core.empty() && core.back() == '}'))) {
    return R"(put spaces around "}")" +
           (isSeparator ? " and delete the " + Quoted({&last, 1}) : std::string());
  }
  if (text.size() > 1 && last == '{') return R"(put a space before "{")";
  if (isSeparator) return "delete the " + Quoted({&last, 1});
  return {};
}

std::string NameHint(std::string_view text, Role role) {
  const bool isItem = role == Role::ItemName;
  if (Contains(text, "=")) {
    return isItem ? std::string(writeColon) : "there are no default values";
  }
  if (role == Role::MemberName && FindKeyword(text) == Keyword::Type) {
    return R"(put the name first, as in "x: int8")";
  }
  if (!isItem && StartsWith(text, "--")) return R"(comments start with "#")";
  if (text == "enum" || text == "namespace") return R"(is a "}" missing above?)";
  if (Contains(text, "[")) return R"(the brackets are around the type, as in "[int8]")";
  if (isItem && text.find_first_not_of("+-*/%&|^<>!~?") == npos) {
    return "write the value as one word, without spaces";
  }
  if (Contains(text, "-")) return R"(write "_" instead of "-")";
  if (role != Role::NamespacePath && Contains(text, ".")) return "names contain no dots";
  if (text.front() >= '0' && text.front() <= '9') return "names begin with a letter";
  return {};
}

std::string TypeFormHint(std::string_view text) {
  if (text == "=") return "there are no default values";
  const auto opening = std::count(text.begin(), text.end(), '[');
  if (opening != std::count(text.begin(), text.end(), ']')) return "count the brackets";
  if (opening > 0 && text.find_first_not_of("[]") == npos) {
    return R"(the type of the elements is missing, as in "[int8]")";
  }
  if (opening > 0) return R"(the brackets are around the type, as in "[int8]")";
  if (Contains(text, "*") || Contains(text, "&")) return "there are no pointers and references";
  if (Contains(text, "/")) return "write a dot between names";
  if (Contains(text, "=")) return "there are no default values";
  return {};
}

/// Returns the first character that cannot be part of a name, if it is not one of ASCII.
std::string_view ForeignCharacter(std::string_view text) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    const bool isAscii = character.valid && character.code < 0x80;
    if (!isAscii && (!character.valid || !IsNameCharacter(character.code))) {
      return text.substr(0, character.size);
    }
    text.remove_prefix(character.size);
  }
  return {};
}

/// About a value that gets no advice from its check.
std::string ValueHint(std::string_view text) {
  const std::size_t sign = text.find('=');
  if (text == "=" || (sign != npos && IsIdentifier(text.substr(0, sign)))) {
    return std::string(writeColon);
  }
  const std::string_view foreign = ForeignCharacter(text);
  if (!foreign.empty() && !Contains(text, "'")) return "it contains " + Quoted(foreign);
  return "values are integers, items above, and expressions of them without spaces";
}

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
}

/// Returns how many letters must be inserted, deleted or replaced to get from one word to the
/// other, apart from their case.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (Lower(a[i - 1]) == Lower(b[j - 1]) ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

/// Looks for the word that is most similar to another one.
class Search {
 public:
  explicit Search(std::string_view wanted)
      : word(wanted), best(wanted.size() <= 40 ? wanted.size() / 3 + 1 : 0) {}

  void compare(std::string_view candidate) {
    if (candidate.size() + best <= word.size() || word.size() + best <= candidate.size()) return;
    const std::size_t distance = Distance(word, candidate);
    if (distance >= best) return;
    best = distance;
    similar = candidate;
  }

  /// Returns a question, or nothing if no word was similar.
  [[nodiscard]] std::string question() const {
    return similar.empty() ? std::string() : "did you mean " + Quoted(similar) + "?";
  }

 private:
  std::string_view word;
  std::size_t best;  ///< Only words with a smaller distance are similar.
  std::string_view similar;
};

bool IsAfterColons(const Place& place) {
  return place.offset >= 2 && place.line.substr(place.offset - 2, 2) == "::";
}

/// Returns the keyword that a word of another language stands for, or one that is similar.
std::string KeywordHint(std::string_view text) {
  constexpr std::array<std::array<std::string_view, 2>, 6> foreign = {{{"import", "include"},
                                                                       {"package", "namespace"},
                                                                       {"module", "namespace"},
                                                                       {"struct", "message"},
                                                                       {"class", "message"},
                                                                       {"interface", "service"}}};
  for (const auto& [word, keyword] : foreign) {
    if (text == word) return "did you mean " + Quoted(keyword) + "?";
  }
  Search search(text);
  for (const char* keyword : {"include", "namespace", "enum", "message", "service"}) {
    search.compare(keyword);
  }
  return search.question();
}

std::string StatementHint(const Words& words, std::size_t i, const Place& place) {
  const std::string_view text = words[i].text;
  const Role before = i > 0 ? words[i - 1].role : Role::Statement;
  if (before == Role::NamespacePath && IsAfterColons(place)) {
    return "write dots: " + Quoted(std::string(words[i - 1].text) + "." + std::string(text));
  }
  if (before == Role::NamespacePath && text == "{") return "a namespace has no braces";
  if (before == Role::NamespacePath) return "a namespace is one word";
  if (before == Role::IncludePath) return "a path is one word, without spaces";
  if (text == "}") return R"(there is no "{" for it)";
  return "a statement begins with include, namespace, enum, message or service";
}

/// About a word in place of a brace.
std::string BraceHint(const Words& words, std::size_t i, const Place& place) {
  if (IsAfterColons(place)) return "a name is one word, without colons";
  if (words[i - 1].role == Role::Brace) return R"(a "}" is missing before it)";
  const bool isType = FindBuiltinType(words[i].text) != nullptr || IsCppType(words[i].text);
  if (words[i - 1].role == Role::EnumName && isType) {
    return "the underlying type of an enum cannot be chosen";
  }
  return R"(a "{" is missing before it)";
}

std::string PartHint(const Words& words, std::size_t i) {
  return words[i].text == "response" || words[i - 1].text == "{"
             ? "a service begins with its request"
             : "a service needs a request and a response, in this order";
}

/// About a type whose brackets are not balanced.
std::string BracketHint(std::string_view type) {
  if (type == "[") return R"(a type is one word, as in "[int8]")";
  const std::size_t last = type.rfind('[');
  const std::size_t closing = type.find(']', last);
  if (closing == npos) return R"(a "]" is missing at its end)";
  const std::string_view inside = type.substr(last + 1, closing - last - 1);
  const bool isSize = !inside.empty() && inside.find_first_not_of("0123456789") == npos;
  return isSize ? "there are no arrays of a fixed size"
                : R"(the brackets are around the type, as in "[int8]")";
}

}  // namespace

std::string FormHint(std::string_view text, const Word& word) {
  if (std::string hint = CharacterHint(text); !hint.empty()) return hint;
  const Role role = word.role;
  std::string hint;
  if (role == Role::MemberType) {
    hint = TypeFormHint(text);
  } else if (role == Role::ItemValue) {
    return text.size() == word.text.size() ? ValueHint(text) : std::string();
  } else if (role == Role::IncludePath) {
    return Contains(text, "//") ? R"(write one "/")" : "";
  } else {
    hint = NameHint(text, role);
  }
  const std::string_view foreign = ForeignCharacter(text);
  if (!hint.empty() || foreign.empty()) return hint;
  return "it contains " + Quoted(foreign);
}

std::string TypeHint(std::string_view type, std::size_t word, const Words& words) {
  const std::string_view name = words.texts[word - 1];
  const auto isDeclared = [&](std::string_view text) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      const Role role = words.roles[i];
      if ((role == Role::EnumName || role == Role::MessageName) && words.texts[i] == text) {
        return true;
      }
    }
    return false;
  };
  if (FindBuiltinType(name) != nullptr || isDeclared(name)) {
    return "put the name first, as in " + Quoted(std::string(type) + ": " + std::string(name));
  }
  Search search(type);
  for (const BuiltinType& builtin : builtinTypes) search.compare(builtin.keyword);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Role role = words.roles[i];
    if (role == Role::EnumName || role == Role::MessageName) search.compare(words.texts[i]);
  }
  return search.question();
}

std::string ItemHint(std::string_view text, const Word& word, const Place& place) {
  const std::size_t before = place.line.substr(0, place.offset).find_last_not_of(' ');
  const bool isMeant = before != npos && place.line[before] == ':';
  if (isMeant || text.size() != word.text.size()) return {};
  return R"(each item needs a value, as in "A: 0")";
}

std::string ColonsHint(const Word& word, const Place& place) {
  std::string_view name = place.line.substr(place.offset);
  name = name.substr(0, name.find_first_of(" ;,}#"));
  if (word.role == Role::ItemValue) {
    return "write only the item: " + Quoted(name.substr(name.rfind(':') + 1));
  }
  if (name == "std::string") return R"(write "string")";
  std::string path;
  for (const char letter : name) {
    if (letter != ':') path += letter;
    if (letter == ':' && path.back() != '.') path += '.';
  }
  return "write dots: " + Quoted(path);
}

std::string GrammarHint(const ParseError& error, const Words& words, const Place& place,
                        bool isFirst) {
  if (error.kind != ParseError::Kind::WrongFormat) return {};
  const std::size_t i = error.tokensRead - 1;
  std::string hint = CharacterHint(words[i].text);
  if (hint.empty() && words[i].role == Role::Statement) hint = KeywordHint(words[i].text);
  if (!hint.empty() || !isFirst) return hint;
  switch (words[i].role) {
    case Role::Statement:
      return StatementHint(words, i, place);
    case Role::Brace:
      return BraceHint(words, i, place);
    case Role::Part:
      return PartHint(words, i);
    case Role::MemberType:
      return BracketHint(words[i].text);
    default:
      return {};
  }
}

}  // namespace zentho
