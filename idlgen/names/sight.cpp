#include "names/sight.h"

#include <algorithm>

namespace zentho::idlgen {

void Sight::lookFrom(std::size_t file, const Includes& includes) {
  user = file;
  ++looks;
  seen.clear();
  fileMarks.resize(includes.size(), 0);
  spaceMarks.resize(declarations.countNamespaces(), 0);
  fileMarks[file] = looks;
  FollowIncludes(file, includes, [this](std::size_t included) {
    if (fileMarks[included] == looks) return false;
    fileMarks[included] = looks;
    seen.push_back(included);
    for (const std::size_t space : declarations.file(included).namespaces) {
      spaceMarks[space] = looks;
    }
    return true;
  });
}

bool Sight::hasNamespace(std::size_t space) const {
  const std::vector<std::size_t>& own = declarations.file(user).namespaces;
  return std::find(own.begin(), own.end(), space) != own.end() ||
         (space < spaceMarks.size() && spaceMarks[space] == looks);
}

}  // namespace zentho::idlgen
