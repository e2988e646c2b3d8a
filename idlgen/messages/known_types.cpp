#include "messages/known_types.h"

#include <utility>

#include "schema/builtin_types.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

bool IsType(const Declaration& declaration) {
  return declaration.role == Role::EnumName || declaration.role == Role::MessageName;
}

std::string_view LastPart(std::string_view type) {
  return type.substr(type.rfind('.') + 1);
}

/// Returns any place of a member in the file.
Scope AnyScope(const Words& words) {
  Scope scope;
  for (std::size_t i = 0; i < words.size() && scope.record == noWord; ++i) {
    if (words.roles[i] == Role::MessageName || words.roles[i] == Role::ServiceName) {
      scope.record = i;
    }
  }
  return scope;
}

}  // namespace

KnownTypes::KnownTypes(FilesCheck& filesCheck, std::size_t userFile)
    : declarations(filesCheck.allDeclarations()),
      user(userFile),
      lookup(filesCheck.lookupFrom(userFile)),
      sight(filesCheck.lastSight()) {}

std::vector<std::size_t> KnownTypes::filesThatDeclare(std::string_view type) const {
  const std::vector<std::string_view> parts = Components(type);
  const bool isPart = parts.size() > 1 && (parts.back() == "Request" || parts.back() == "Response");
  const std::size_t last = parts.size() - (isPart ? 2 : 1);
  const std::vector<std::size_t>& namespaces = declarations.file(user).namespaces;
  std::vector<std::size_t> files;
  for (std::size_t level = namespaces.size(); level-- > 0;) {
    std::size_t space = namespaces[level];
    for (std::size_t i = 0; i < last && space != nothing; ++i) {
      space = declarations.nested(space, parts[i]);
    }
    if (space == nothing) continue;
    std::size_t i = declarations.firstIn(space, parts[last]);
    for (; i != nothing; i = declarations[i].next) {
      const Declaration& found = declarations[i];
      const bool isMeant = isPart ? found.role == Role::ServiceName : IsType(found);
      if (isMeant && found.file != nothing && !sight.hasFile(found.file)) {
        files.push_back(found.file);
      }
    }
  }
  return files;
}

std::string KnownTypes::mostSimilar(std::string_view type) const {
  // Of a path, the last part counts, and of several types with that name, the whole path.
  const bool isPath = type.find('.') != std::string_view::npos;
  SimilarWord last(LastPart(type));
  for (const BuiltinType& row : builtinTypes) {
    if (!isPath) last.compare(row.keyword);
  }
  std::vector<std::size_t> seenTypes;
  for (std::size_t i = 0; i < declarations.count(); ++i) {
    const Declaration& declaration = declarations[i];
    const bool isSeen = declaration.file != nothing && sight.hasFile(declaration.file);
    if (!isSeen || !IsType(declaration)) continue;
    seenTypes.push_back(i);
    last.compare(textOf(declaration));
  }
  if (FindBuiltinType(last.found()) != nullptr) return std::string(last.found());
  constexpr std::size_t limit = 20;
  std::vector<std::string> sameNames;
  for (const std::size_t i : seenTypes) {
    if (textOf(declarations[i]) != last.found() || sameNames.size() == limit) continue;
    std::string name = nameOf(declarations[i]);
    if (name != type) sameNames.push_back(std::move(name));
  }
  SimilarWord whole(type);
  for (const std::string& name : sameNames) whole.compare(name);
  if (!whole.found().empty()) return std::string(whole.found());
  return sameNames.empty() ? std::string() : sameNames.front();
}

std::string_view KnownTypes::textOf(const Declaration& declaration) const {
  return declarations.file(declaration.file).words->texts[declaration.word];
}

/// Returns the shortest name by which the user finds the type.
std::string KnownTypes::nameOf(const Declaration& declaration) const {
  const Declarations::File& file = declarations.file(declaration.file);
  std::string name(file.words->texts[declaration.word]);
  if (declaration.file == user) return name;
  const Scope scope = AnyScope(*declarations.file(user).words);
  const std::vector<std::string_view>& spaces = file.namespaceNames;
  for (std::size_t level = spaces.size() + 1; level-- > 0;) {
    const Found found = lookup.findType(name, scope);
    if (found.declaration != nothing && &declarations[found.declaration] == &declaration) {
      return name;
    }
    if (level > 0) name.insert(0, std::string(spaces[level - 1]) + ".");
  }
  return "." + name;
}

}  // namespace zentho::idlgen
