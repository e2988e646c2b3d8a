#include "names/view.h"

#include <algorithm>
#include <cstddef>

namespace zentho::idlgen {

View::View(const Declarations& allDeclarations, const CheckedFile& fileThatLooks)
    : declarations(allDeclarations),
      seen({&fileThatLooks}),
      sees(allDeclarations.allFiles().size()),
      seesNamespace(allDeclarations.countNamespaces()) {
  sees[fileThatLooks.number] = 1;
  // No recursion, because a chain of files may be long. The list grows in the loop.
  for (std::size_t next = 0; next < seen.size(); ++next) {
    const CheckedFile& file = *seen[next];
    declaredCount += file.end - file.begin;
    mayMissAll = mayMissAll || file.unread.mayDeclareAnything;
    if (!file.unread.names.empty()) unread.push_back(&file.unread);
    for (const Namespace* const space : file.namespaces) seesNamespace[space->number] = 1;
    for (const Inclusion& inclusion : file.includes) {
      char& isSeen = sees[inclusion.file->number];
      if (isSeen == 0) seen.push_back(inclusion.file);
      isSeen = 1;
    }
  }
}

bool View::mayMiss(std::string_view name) const {
  return mayMissAll ||
         std::any_of(unread.begin(), unread.end(), [&](const PossibleNames* possible) {
           return possible->names.count(name) > 0;
         });
}

const CheckedFile* View::firstIn(const Namespace& space) const {
  const CheckedFile* first = nullptr;
  for (const CheckedFile* const file : seen) {
    const std::vector<const Namespace*>& own = file->namespaces;
    const bool isIn = file != &user() && std::find(own.begin(), own.end(), &space) != own.end();
    if (isIn && (first == nullptr || file->number < first->number)) first = file;
  }
  return first;
}

const Namespace* View::inner(const Namespace& space, std::string_view name) const {
  const Namespace* const inner = space.inner(name);
  return inner != nullptr && has(*inner) ? inner : nullptr;
}

Chain View::declared() const {
  std::vector<const CheckedFile*> files = seen;
  std::sort(files.begin(), files.end(),
            [](const CheckedFile* a, const CheckedFile* b) { return a->begin < b->begin; });
  Chain declared;
  for (const CheckedFile* const file : files) {
    for (std::size_t i = file->begin; i < file->end; ++i) {
      declared.push_back(&declarations.list()[i]);
    }
  }
  return declared;
}

const Declaration* View::find(const Namespace& space, std::string_view name,
                              const std::function<bool(const Declaration&)>& holds) const {
  const Chain& chain = space.chain(name);
  if (chain.size() <= declaredCount) {
    const auto found = std::find_if(chain.begin(), chain.end(), [&](const Declaration* next) {
      return has(next->file) && holds(*next);
    });
    return found == chain.end() ? nullptr : *found;
  }
  // Most of the chain is in files that are not seen: all that is seen is less.
  for (const Declaration* const next : declared()) {
    if (next->name == name && next->space == &space && holds(*next)) return next;
  }
  return nullptr;
}

}  // namespace zentho::idlgen
