#include "check/declarations.h"

#include <algorithm>

#include "check/word_forms.h"

namespace zentho {

void Declarations::add(const Words& words, const LeftOut& leftOut) {
  File file = {&words, &leftOut, {0}, false};
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.roles[i] == Role::IncludePath) file.hasInclude = true;
    if (words.roles[i] != Role::NamespacePath) continue;
    for (const std::string_view part : Components(words.texts[i])) {
      if (part.empty()) continue;
      const auto [found, isNew] =
          spaces[file.namespaces.back()].nested.emplace(part, spaces.size());
      file.namespaces.push_back(found->second);
      if (isNew) spaces.emplace_back();
    }
  }
  files.push_back(std::move(file));
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Role role = words.roles[i];
    const bool isDeclaration = role == Role::EnumName || role == Role::MessageName ||
                               role == Role::ServiceName || role == Role::ItemName;
    if (isDeclaration) declare(files.size() - 1, i, role);
  }
}

void Declarations::declare(std::size_t file, std::size_t word, Role role) {
  Namespace& space = spaces[files[file].namespaces.back()];
  const std::string_view name = files[file].words->texts[word];
  const auto [found, isNew] = space.names.emplace(name, declarations.size());
  if (!isNew) {
    std::size_t last = found->second;
    while (true) {
      const Declaration& other = declarations[last];
      if (other.file == file && other.isItem() == (role == Role::ItemName)) return;
      if (other.next == nothing) break;
      last = other.next;
    }
    declarations[last].next = declarations.size();
  }
  declarations.push_back({file, word, role, nothing});
}

std::size_t Declarations::firstIn(std::size_t space, std::string_view name) const {
  const auto found = spaces[space].names.find(name);
  return found == spaces[space].names.end() ? nothing : found->second;
}

std::size_t Declarations::nested(std::size_t space, std::string_view name) const {
  const auto found = spaces[space].nested.find(name);
  return found == spaces[space].nested.end() ? nothing : found->second;
}

std::size_t Declarations::record(std::size_t file, std::string_view name) const {
  return find(file, name, false);
}

std::size_t Declarations::item(std::size_t file, std::string_view name) const {
  return find(file, name, true);
}

std::size_t Declarations::find(std::size_t file, std::string_view name, bool isItem) const {
  std::size_t i = firstIn(files[file].namespaces.back(), name);
  while (i != nothing && !(declarations[i].file == file && declarations[i].isItem() == isItem)) {
    i = declarations[i].next;
  }
  return i == nothing ? noWord : declarations[i].word;
}

}  // namespace zentho
