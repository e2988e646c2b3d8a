#include "words/word_forms.h"

#include <algorithm>
#include <cstddef>

#include "schema/builtin_types.h"
#include "words/characters.h"
#include "words/cpp_words.h"

namespace zentho::idlgen {
namespace {

/// Returns whether the word is a name, or names with dots between them and perhaps before them.
bool IsDotted(std::string_view word) {
  const std::vector<std::string_view> parts = Components(word);
  const std::ptrdiff_t skipped = parts.size() > 1 && parts.front().empty() ? 1 : 0;
  return std::all_of(parts.begin() + skipped, parts.end(), IsIdentifier);
}

}  // namespace

bool IsNumber(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char byte) {
    return IsDigit(static_cast<unsigned char>(byte));
  });
}

std::size_t NameSize(std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const Character next = FirstCharacter(rest);
    if (!next.valid || !IsNameCharacter(next.code)) break;
    rest.remove_prefix(next.size);
  }
  return text.size() - rest.size();
}

bool IsIdentifier(std::string_view word) {
  const bool isNumber = !word.empty() && IsDigit(static_cast<unsigned char>(word.front()));
  return !word.empty() && !isNumber && NameSize(word) == word.size();
}

std::string_view NameIn(std::string_view word) {
  const auto isPart = [](char byte) {
    return (byte & 0x80) != 0 || IsNameCharacter(static_cast<unsigned char>(byte));
  };
  const auto* const begin = std::find_if(word.begin(), word.end(), isPart);
  const auto* const end = std::find_if_not(begin, word.end(), isPart);
  return word.substr(static_cast<std::size_t>(begin - word.begin()),
                     static_cast<std::size_t>(end - begin));
}

bool IsPunctuation(std::string_view word) {
  return NameIn(word).empty();
}

std::string MeantName(std::string_view word) {
  std::string name;
  std::size_t size = 0;  // Up to the last character of a name.
  while (!word.empty()) {
    const Character character = FirstCharacter(word);
    const bool isName = character.valid && IsNameCharacter(character.code);
    const bool mayBegin = isName && !IsDigit(character.code);
    if (mayBegin || !name.empty()) name += word.substr(0, character.size);
    if (isName) size = name.size();
    word.remove_prefix(character.size);
  }
  name.resize(size);
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

std::optional<std::string_view> ElementType(std::string_view type) {
  while (type.size() >= 2 && type.front() == '[' && type.back() == ']') {
    type = type.substr(1, type.size() - 2);
  }
  if (type.find_first_of("[]") != std::string_view::npos) return std::nullopt;
  return type;
}

std::vector<std::string_view> Components(std::string_view path) {
  std::vector<std::string_view> parts;
  for (std::size_t dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.')) {
    parts.push_back(path.substr(0, dot));
    path.remove_prefix(dot + 1);
  }
  parts.push_back(path);
  return parts;
}

// type = name [ "<" [ argument { "," argument } ] ">" [ type that begins with a dot ] ]
// argument = number | type
// Is read without recursion, because lines may be long.
bool IsTemplate(std::string_view type) {
  const auto take = [&type](char sign) {
    const bool isNext = !type.empty() && type.front() == sign;
    if (isNext) type.remove_prefix(1);
    return isNext;
  };
  std::size_t depth = 0;  // Of the lists that are open.
  while (true) {
    const std::string_view name = type.substr(0, type.find_first_of("<>,"));
    type.remove_prefix(name.size());
    const bool isNumber = depth > 0 && IsNumber(name);
    if (!isNumber && !IsDotted(name)) return false;
    if (!isNumber && take('<')) {
      ++depth;
      if (type.substr(0, 1) != ">") continue;  // The first argument follows.
    }
    while (take('>')) {
      if (depth-- == 0) return false;
    }
    if (type.empty()) return depth == 0;
    const bool isArgumentNext = depth > 0 && take(',');
    if (!isArgumentNext && type.front() != '.') return false;
  }
}

char BraceOf(std::string_view word) {
  const std::size_t begin = word.find_first_not_of(foreignSeparators);
  if (begin == std::string_view::npos) return '\0';
  const std::size_t end = word.find_last_not_of(foreignSeparators) + 1;
  if (word[begin] == '}' || word[end - 1] == '}') return '}';
  return word[end - 1] == '{' ? '{' : '\0';
}

bool IsTypeForm(std::string_view word) {
  const std::optional<std::string_view> element = ElementType(word);
  if (!element.has_value()) return false;
  if (element->find('<') != std::string_view::npos) return IsTemplate(*element);
  return IsDotted(*element);
}

bool LooksLikeType(std::string_view word) {
  const std::size_t begin = std::min(word.find_first_not_of('['), word.size());
  const std::string_view element = word.substr(begin, word.find_first_of("[]", begin) - begin);
  return FindBuiltinType(element) != nullptr || FindKeyword(element) == Keyword::Type;
}

std::vector<std::string_view> TemplateNames(std::string_view type) {
  std::vector<std::string_view> names;
  while (!type.empty()) {
    const std::size_t size = std::min(type.find_first_of("<>,"), type.size());
    const std::string_view name = type.substr(0, size);
    const bool isOther =
        name.empty() || name.front() == '.' || IsNumber(name) || Components(name).front() == "std";
    if (!isOther) names.push_back(name);
    type.remove_prefix(std::min(size + 1, type.size()));
  }
  return names;
}

IncludeForm FormOfInclude(std::string_view word) {
  const char opening = word.front();
  const char closing = opening == '<' ? '>' : '"';
  const bool terminated = word.size() > 1 && word.back() == closing;
  std::string_view path = word.substr(1, word.size() - (terminated ? 2 : 1));
  const bool hasCode = path.find("/*") != std::string_view::npos ||
                       path.find("//") != std::string_view::npos ||
                       path.find_first_of("\"\\{};,") != std::string_view::npos;
  if (hasCode || HasControlCharacter(word)) return IncludeForm::Invalid;
  if (opening != '"' && opening != '<') return IncludeForm::Unquoted;
  if (!terminated) return IncludeForm::Unterminated;
  const std::size_t dot = path.rfind('.');
  if (dot == 0) return IncludeForm::Invalid;  // It has no name.
  const bool hasExtension = dot != std::string_view::npos && dot + 1 < path.size() &&
                            path.find('/', dot) == std::string_view::npos;
  return hasExtension ? IncludeForm::Path : IncludeForm::NoExtension;
}

}  // namespace zentho::idlgen
