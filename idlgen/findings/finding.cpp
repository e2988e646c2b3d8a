#include "findings/finding.h"

#include <algorithm>

namespace zentho::idlgen {

void sort(std::vector<Finding>& findings) {
  const auto isBefore = [](const Finding& a, const Finding& b) { return a.word < b.word; };
  if (!std::is_sorted(findings.begin(), findings.end(), isBefore)) {
    std::stable_sort(findings.begin(), findings.end(), isBefore);
  }
}

}  // namespace zentho::idlgen
