#include "names/declarations.h"

#include <algorithm>

#include "words/word_forms.h"

namespace zentho::idlgen {

void Declarations::add(const Words& words, const LeftOut& leftOut) {
  files.push_back({&words, &leftOut});
  declareAll(files.size() - 1);
}

void Declarations::replace(std::size_t file, const Words& words, const LeftOut& leftOut) {
  for (Declaration& declaration : declarations) {
    if (declaration.file == file) declaration.file = nothing;
  }
  files[file] = {&words, &leftOut};
  declareAll(file);
}

void Declarations::declareAll(std::size_t file) {
  File& own = files[file];
  own.namespaces = {0};
  const Words& words = *own.words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.roles[i] == Role::IncludePath) own.hasInclude = true;
    if (words.roles[i] != Role::NamespacePath) continue;
    own.namespaceWord = i;
    for (const std::string_view part : Components(words.texts[i])) {
      if (part.empty()) continue;
      const auto [found, isNew] = spaces[own.namespaces.back()].nested.emplace(part, spaces.size());
      own.namespaces.push_back(found->second);
      own.namespaceNames.push_back(part);
      if (isNew) spaces.emplace_back();
    }
  }
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Role role = words.roles[i];
    if (IsRecordName(role) || role == Role::ItemName) declare(file, i, role);
    if (IsRecordName(role) && !IsIdentifier(words.texts[i])) {
      own.namesInOthers.insert(NameIn(words.texts[i]));
    }
  }
}

std::vector<Clash> Declarations::clashes() const {
  std::vector<Clash> clashes;
  for (std::size_t space = 0; space < spaces.size(); ++space) {
    for (const auto& [name, first] : spaces[space].names) {
      const std::size_t inside = nested(space, name);
      if (declarations[first].next != nothing || inside != nothing) {
        clashes.push_back({first, inside});
      }
    }
  }
  const auto isBefore = [](const Clash& a, const Clash& b) {
    return a.declaration < b.declaration;
  };
  std::sort(clashes.begin(), clashes.end(), isBefore);
  return clashes;
}

bool Declarations::hasItem(std::string_view name) const {
  for (std::size_t space = 0; space < spaces.size(); ++space) {
    std::size_t i = firstIn(space, name);
    while (i != nothing && !(declarations[i].isItem() && declarations[i].file != nothing)) {
      i = declarations[i].next;
    }
    if (i != nothing) return true;
  }
  return false;
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

}  // namespace zentho::idlgen
