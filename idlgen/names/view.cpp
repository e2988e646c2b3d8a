#include "names/view.h"

#include <algorithm>
#include <cstddef>

namespace zentho::idlgen {

View::View(const Declarations& allDeclarations, const CheckedFile& fileThatLooks)
    : declarations(allDeclarations),
      file(&fileThatLooks),
      sees(allDeclarations.allFiles().size()),
      seesNamespace(allDeclarations.countNamespaces()) {
  see(fileThatLooks);
  // No recursion, because a chain of files may be long. The user is on the list if it is included.
  std::size_t next = 0;
  while (next < included.size()) see(*included[next++]);
  isIncluded = sees[file->number] != 0;
  if (isIncluded) included.erase(std::find(included.begin(), included.end(), file));
  sees[file->number] = 1;
}

/// Sees the namespaces of a file, and puts the files that it includes on the list.
void View::see(const CheckedFile& other) {
  seenCount += other.end - other.begin;
  mayMissAll = mayMissAll || !other.isComplete;
  const SourceFile& source = *other.source;
  for (const PossibleNames* const words : {&source.dropped, &other.odd}) {
    mayMissAll = mayMissAll || words->mayDeclareAnything;
    if (!words->names.empty()) dropped.push_back(words);
  }
  for (const Namespace* const space : other.namespaces) seesNamespace[space->number] = 1;
  for (const Inclusion& inclusion : other.includes) {
    char& isSeen = sees[inclusion.file->number];
    if (isSeen != 0) continue;
    isSeen = 1;
    included.push_back(inclusion.file);
  }
}

/// Returns the declarations of a name, in their order, if many files that are not seen have it,
/// too.
std::vector<const Declaration*> View::seenOf(const Namespace& space, std::string_view name) const {
  std::vector<std::size_t> indexes;
  const auto append = [&](const CheckedFile& seen) {
    for (std::size_t i = seen.begin; i < seen.end; ++i) {
      const Declaration& declaration = declarations.list()[i];
      if (declaration.name == name && declaration.space == &space) indexes.push_back(i);
    }
  };
  append(*file);
  for (const CheckedFile* const other : included) append(*other);
  std::sort(indexes.begin(), indexes.end());
  std::vector<const Declaration*> found;
  found.reserve(indexes.size());
  for (const std::size_t i : indexes) found.push_back(&declarations.list()[i]);
  return found;
}

bool View::mayMiss(std::string_view name) const {
  return mayMissAll || std::any_of(dropped.begin(), dropped.end(), [&](const PossibleNames* words) {
           return words->names.count(name) > 0;
         });
}

std::vector<const CheckedFile*> View::filesThatIncludeUser() const {
  std::vector<const CheckedFile*> found;
  if (!isIncluded) return found;
  std::vector<char> leadsBack(sees.size());
  leadsBack[file->number] = 1;
  // Files mostly come after those that include them, so that one pass from the end finds them all.
  std::size_t before = 0;
  do {
    before = found.size();
    for (auto other = included.rbegin(); other != included.rend(); ++other) {
      const std::vector<Inclusion>& includes = (*other)->includes;
      const bool doesLead = std::any_of(includes.begin(), includes.end(), [&](const Inclusion& to) {
        return leadsBack[to.file->number] != 0;
      });
      if (!doesLead || leadsBack[(*other)->number] != 0) continue;
      leadsBack[(*other)->number] = 1;
      found.push_back(*other);
    }
  } while (found.size() > before);
  return found;
}

const CheckedFile* View::firstIn(const Namespace& space) const {
  const CheckedFile* first = nullptr;
  for (const CheckedFile* const other : included) {
    const std::vector<const Namespace*>& own = other->namespaces;
    const bool isIn = std::find(own.begin(), own.end(), &space) != own.end();
    if (isIn && (first == nullptr || other->number < first->number)) first = other;
  }
  return first;
}

const Namespace* View::inner(const Namespace& space, std::string_view name) const {
  const Namespace* const inner = space.inner(name);
  return inner != nullptr && has(*inner) ? inner : nullptr;
}

}  // namespace zentho::idlgen
