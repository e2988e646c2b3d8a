#include "names/declarations.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "names/cycles.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

const Chain& Namespace::chain(std::string_view wanted) const {
  static const Chain none;
  const auto found = chains.find(wanted);
  return found == chains.end() ? none : found->second;
}

const Namespace* Namespace::inner(std::string_view wanted) const {
  const auto found = nested.find(wanted);
  return found == nested.end() ? nullptr : found->second;
}

Declarations::Declarations(const std::vector<SourceFile*>& sources) {
  spaces.push_back({{}, 0});
  for (SourceFile* const source : sources) {
    fileOfSource.emplace(source, &files.emplace_back(CheckedFile{source, files.size()}));
    declareAll(files.back());
  }
  for (CheckedFile& file : files) findIncludes(file);
}

void Declarations::update(const SourceFile& source) {
  CheckedFile& file = *fileOfSource.at(&source);
  for (std::size_t i = file.begin; i < file.end; ++i) declarations[i].file = nullptr;
  file = {file.source, file.number};
  declareAll(file);
  findIncludes(file);
  knownClashes.reset();
  knownCycles.clear();
}

void Declarations::declareAll(CheckedFile& file) {
  const Words& words = file.words();
  file.unread = file.source->dropped;
  file.begin = declarations.size();
  Namespace& space = enterNamespace(file);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Role role = words.role(i);
    if (IsRecordName(role) || role == Role::ItemName) declare(space, file, i);
  }
  file.end = declarations.size();
}

/// Finds the namespaces of the file. Returns the innermost one.
Namespace& Declarations::enterNamespace(CheckedFile& file) {
  const Words& words = file.words();
  Namespace* space = &spaces.front();
  file.namespaces = {space};
  file.namespaceWord = FirstWithRole(words, Role::NamespacePath);
  if (file.namespaceWord == noWord) return *space;
  std::string_view path = words.text(file.namespaceWord);
  if (path.find('/') != std::string_view::npos) {
    std::string& dotted = meantNames.emplace_back(path);
    std::replace(dotted.begin(), dotted.end(), '/', '.');
    path = dotted;
  }
  for (const std::string_view part : Components(path)) {
    if (MeantName(part).empty()) continue;
    const std::string_view name = declaredName(part);
    file.unread.mayDeclareAnything = file.unread.mayDeclareAnything || name.empty();
    Namespace*& inner = space->nested[name];
    if (inner == nullptr) inner = &spaces.emplace_back(Namespace{name, spaces.size()});
    space = inner;
    file.namespaces.push_back(space);
  }
  return *space;
}

/// Returns the name that a word declares, or nothing if it cannot be read as one.
std::string_view Declarations::declaredName(std::string_view word) {
  if (IsIdentifier(word)) return word;
  std::string name = MeantName(word);
  if (!IsIdentifier(name)) return {};
  return meantNames.emplace_back(std::move(name));
}

void Declarations::declare(Namespace& space, CheckedFile& file, std::size_t word) {
  const Role role = file.words().role(word);
  const std::string_view name = declaredName(file.words().text(word));
  const bool isItem = role == Role::ItemName;
  if (name.empty()) {
    // Only a value can mean an item.
    if (isItem) file.unread.names.insert(NameIn(file.words().text(word)));
    file.unread.mayDeclareAnything = file.unread.mayDeclareAnything || !isItem;
    return;
  }
  Chain& chain = space.chains[name];
  // Those of one file follow each other.
  for (auto last = chain.rbegin(); last != chain.rend() && (*last)->file == &file; ++last) {
    if ((*last)->isItem() == isItem) return;
  }
  chain.push_back(&declarations.emplace_back(Declaration{name, role, &file, word, &space}));
}

/// Finds the includes among the words. One that leads to no file that is checked may bring names.
void Declarations::findIncludes(CheckedFile& file) {
  const Words& words = file.words();
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.role(i) != Role::IncludePath) continue;
    const auto include = file.source->includes.find(words.text(i));
    const bool isFound = include != file.source->includes.end();
    const auto found = fileOfSource.find(isFound ? include->second.file : nullptr);
    if (found != fileOfSource.end()) {
      file.includes.push_back({i, found->second});
    } else {
      file.unread.mayDeclareAnything = true;
    }
  }
}

const Declaration* Declarations::declaredAt(const CheckedFile& file, std::size_t word) const {
  const auto begin = declarations.begin();
  const auto end = begin + static_cast<std::ptrdiff_t>(file.end);
  const auto found = std::lower_bound(
      begin + static_cast<std::ptrdiff_t>(file.begin), end, word,
      [](const Declaration& declaration, std::size_t i) { return declaration.word < i; });
  return found == end || found->word != word ? nullptr : &*found;
}

bool Declarations::areInCycle(const CheckedFile& a, const CheckedFile& b) const {
  if (knownCycles.empty()) knownCycles = CyclesOf(files);
  return knownCycles[a.number] == knownCycles[b.number];
}

const std::vector<Clash>& Declarations::clashes() const {
  if (knownClashes.has_value()) return *knownClashes;
  std::vector<Clash>& clashes = knownClashes.emplace();
  for (const Declaration& declaration : declarations) {
    const Chain& chain = declaration.space->chain(declaration.name);
    if (chain.front() != &declaration) continue;
    const Namespace* const inner = declaration.space->inner(declaration.name);
    if (chain.size() > 1 || inner != nullptr) clashes.push_back({&chain, inner});
  }
  return clashes;
}

}  // namespace zentho::idlgen
