#include "check/sight.h"

#include <algorithm>

namespace zentho {

void Sight::lookFrom(std::size_t file, const std::vector<std::vector<Inclusion>>& includes) {
  user = file;
  ++looks;
  seen.clear();
  fileMarks.resize(includes.size(), 0);
  spaceMarks.resize(declarations.countNamespaces(), 0);
  fileMarks[file] = looks;
  std::vector<std::size_t> pending = {file};
  while (!pending.empty()) {
    const std::size_t next = pending.back();
    pending.pop_back();
    for (const Inclusion& inclusion : includes[next]) {
      if (fileMarks[inclusion.file] == looks) continue;
      fileMarks[inclusion.file] = looks;
      seen.push_back(inclusion.file);
      pending.push_back(inclusion.file);
      for (const std::size_t space : declarations.file(inclusion.file).namespaces) {
        spaceMarks[space] = looks;
      }
    }
  }
}

bool Sight::hasNamespace(std::size_t space) const {
  const std::vector<std::size_t>& own = declarations.file(user).namespaces;
  return std::find(own.begin(), own.end(), space) != own.end() ||
         (space < spaceMarks.size() && spaceMarks[space] == looks);
}

}  // namespace zentho
