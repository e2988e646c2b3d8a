#include "messages/known_types.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "names/type_lookup.h"
#include "schema/builtin_types.h"
#include "words/foreign_words.h"
#include "words/similar.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
namespace {

/// Returns the name of a type that is most similar to the last part of this one, or nothing. It may
/// be built in, unless this one is a path.
std::string_view SimilarName(std::string_view type, const std::vector<const Declaration*>& seen) {
  const std::size_t lastDot = type.rfind('.');
  SimilarWord name(type.substr(lastDot + 1));
  for (const BuiltinType& row : builtinTypes) {
    if (lastDot == std::string_view::npos) name.compare(row.keyword);
  }
  for (const Declaration* const other : seen) name.compare(other->name);
  return name.found();
}

}  // namespace

KnownTypes::KnownTypes(const Declarations& declarations, const CheckedFile& user)
    : view(declarations, user), lookup(view) {}

std::vector<const CheckedFile*> KnownTypes::filesThatDeclare(std::string_view type) const {
  const std::vector<std::string_view> parts = Components(type);
  const bool isPart = parts.size() > 1 && IsPartName(parts.back());
  const std::size_t last = parts.size() - (isPart ? 2 : 1);
  const std::vector<const Namespace*>& namespaces = view.user().namespaces;
  std::vector<const CheckedFile*> files;
  for (auto outer = namespaces.rbegin(); outer != namespaces.rend(); ++outer) {
    const Namespace* space = *outer;
    for (std::size_t i = 0; i < last && space != nullptr; ++i) space = space->inner(parts[i]);
    if (space == nullptr) continue;
    for (const Declaration* const found : space->chain(parts[last])) {
      const bool isMeant = isPart ? found->role == Role::ServiceName : IsTypeName(found->role);
      const bool isHidden = found->file != nullptr && !view.has(found->file);
      if (isMeant && isHidden) files.push_back(found->file);
    }
  }
  return files;
}

std::string KnownTypes::mostSimilar(std::string_view type,
                                    const std::vector<const Declaration*>& seenTypes) const {
  const std::string_view foreign = TypeFor(type);
  if (!foreign.empty()) return std::string(foreign);
  const std::string_view last = SimilarName(type, seenTypes);
  if (FindBuiltinType(last) != nullptr) return std::string(last);
  // Of several types with that name, the whole path counts.
  constexpr std::size_t limit = 20;
  std::vector<std::string> sameNames;
  for (const Declaration* const seen : seenTypes) {
    if (seen->name != last || sameNames.size() == limit) continue;
    std::string name = nameOf(*seen);
    if (name != type) sameNames.push_back(std::move(name));
  }
  SimilarWord whole(type);
  for (const std::string& name : sameNames) whole.compare(name);
  if (!whole.found().empty()) return std::string(whole.found());
  return sameNames.empty() ? std::string() : sameNames.front();
}

std::vector<const Declaration*> KnownTypes::typesInView() const {
  std::vector<const Declaration*> seen;
  for (const Declaration* const declared : view.declared()) {
    if (IsTypeName(declared->role)) seen.push_back(declared);
  }
  return seen;
}

/// Returns the shortest name by which the user finds the type.
std::string KnownTypes::nameOf(const Declaration& declaration) const {
  std::string name(declaration.name);
  if (declaration.file == &view.user()) return name;
  // The file has members, one of which has the name's type.
  const std::vector<Role>& roles = view.user().words().roles;
  const auto record = std::find_if(roles.begin(), roles.end(), HasMembers);
  const Scope scope = {static_cast<std::size_t>(record - roles.begin())};
  const TypeLookup typeLookup(lookup, scope);
  const std::vector<const Namespace*>& spaces = declaration.file->namespaces;
  for (auto space = spaces.rbegin(); space != spaces.rend(); ++space) {
    if (typeLookup.find(name).declaration == &declaration) return name;
    name.insert(0, std::string((*space)->name) + ".");
  }
  return name;  // It begins with a dot.
}

}  // namespace zentho::idlgen
