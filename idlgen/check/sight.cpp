#include "check/sight.h"

#include <algorithm>

namespace zentho {

void Sight::lookFrom(std::size_t file, const std::vector<std::vector<std::size_t>>& includes) {
  user = file;
  seen.clear();
  fileMarks.resize(includes.size(), nothing);
  spaceMarks.resize(declarations.countNamespaces(), nothing);
  fileMarks[file] = file;
  std::vector<std::size_t> pending = includes[file];
  while (!pending.empty()) {
    const std::size_t next = pending.back();
    pending.pop_back();
    if (fileMarks[next] == file) continue;
    fileMarks[next] = file;
    seen.push_back(next);
    for (const std::size_t space : declarations.file(next).namespaces) spaceMarks[space] = file;
    pending.insert(pending.end(), includes[next].begin(), includes[next].end());
  }
  std::sort(seen.begin(), seen.end());
}

bool Sight::hasNamespace(std::size_t space) const {
  const std::vector<std::size_t>& own = declarations.file(user).namespaces;
  return std::find(own.begin(), own.end(), space) != own.end() ||
         (space < spaceMarks.size() && spaceMarks[space] == user);
}

}  // namespace zentho
