#include "check/sight.h"

#include <algorithm>

namespace zentho {

bool Sight::hasNamespace(std::size_t space) const {
  const std::vector<std::size_t>& own = declarations.file(user).namespaces;
  return std::find(own.begin(), own.end(), space) != own.end() ||
         (space < spaceMarks.size() && spaceMarks[space] == looks);
}

}  // namespace zentho
