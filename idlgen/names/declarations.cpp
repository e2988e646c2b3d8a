#include "names/declarations.h"

#include <algorithm>

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
    fileOfSource.emplace(source, &files.emplace_back(File{source, files.size()}));
    declareAll(files.back());
  }
  for (File& file : files) findIncludes(file);
}

void Declarations::update(const SourceFile& source) {
  File& file = *fileOfSource.at(&source);
  for (std::size_t i = file.begin; i < file.end; ++i) declarations[i].file = nullptr;
  file = {file.source, file.number};
  declareAll(file);
  findIncludes(file);
  knownClashes.reset();
}

void Declarations::declareAll(File& file) {
  const Words& words = file.words();
  file.begin = declarations.size();
  Namespace& space = enterNamespace(file);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Role role = words.role(i);
    if (IsRecordName(role) || role == Role::ItemName) declare(space, file, i);
    if (IsRecordName(role) && !IsIdentifier(words.text(i))) {
      file.namesInOthers.insert(NameIn(words.text(i)));
    }
  }
  file.end = declarations.size();
}

/// Finds the namespaces of the file. Returns the innermost one.
Namespace& Declarations::enterNamespace(File& file) {
  const Words& words = file.words();
  Namespace* space = &spaces.front();
  file.namespaces = {space};
  const auto path = std::find(words.roles.begin(), words.roles.end(), Role::NamespacePath);
  if (path == words.roles.end()) return *space;
  file.namespaceWord = static_cast<std::size_t>(path - words.roles.begin());
  for (const std::string_view part : Components(words.text(file.namespaceWord))) {
    if (part.empty()) continue;
    Namespace*& inner = space->nested[part];
    if (inner == nullptr) inner = &spaces.emplace_back(Namespace{part, spaces.size()});
    space = inner;
    file.namespaces.push_back(space);
  }
  return *space;
}

void Declarations::declare(Namespace& space, const File& file, std::size_t word) {
  const std::string_view name = file.words().text(word);
  const Role role = file.words().role(word);
  Chain& chain = space.chains[name];
  Declaration*& lastOfKind = role == Role::ItemName ? chain.lastItem : chain.lastRecord;
  if (lastOfKind != nullptr && lastOfKind->file == &file) return;
  Declaration& declaration =
      declarations.emplace_back(Declaration{name, role, &file, word, &space});
  (chain.first == nullptr ? chain.first : chain.last->next) = &declaration;
  chain.last = lastOfKind = &declaration;
  ++chain.size;
}

/// Finds the includes among the words, and whether all of them lead to files that are checked.
void Declarations::findIncludes(File& file) {
  file.completeness = file.source->isDamaged ? Completeness::Damaged : Completeness::Complete;
  const Words& words = file.words();
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words.role(i) != Role::IncludePath) continue;
    file.hasInclude = true;
    const auto include = file.source->includes.find(words.text(i));
    const bool isFound = include != file.source->includes.end();
    const auto found = fileOfSource.find(isFound ? include->second.file : nullptr);
    if (found != fileOfSource.end()) {
      file.includes.push_back({i, found->second});
    } else {
      file.completeness = Completeness::Incomplete;
    }
  }
}

bool Declarations::hasItem(std::string_view name) const {
  return std::any_of(spaces.begin(), spaces.end(), [&](const Namespace& space) {
    return FirstThat(space.chain(name).first, [](const Declaration& declaration) {
             return declaration.isItem() && declaration.file != nullptr;
           }) != nullptr;
  });
}

const std::vector<Clash>& Declarations::clashes() const {
  if (knownClashes.has_value()) return *knownClashes;
  std::vector<Clash>& clashes = knownClashes.emplace();
  for (const Declaration& declaration : declarations) {
    if (declaration.space->chain(declaration.name).first != &declaration) continue;
    const Namespace* const inner = declaration.space->inner(declaration.name);
    if (declaration.next != nullptr || inner != nullptr) clashes.push_back({&declaration, inner});
  }
  return clashes;
}

}  // namespace zentho::idlgen
