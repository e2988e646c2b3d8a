#pragma once

#include <cstddef>
#include <list>
#include <vector>

#include "names/declarations.h"

namespace zentho::idlgen {

/// Finds the strongly connected components of the includes. Returns a number for each file, which
/// files share that include each other, also through others.
std::vector<std::size_t> CyclesOf(const std::list<CheckedFile>& files);

}  // namespace zentho::idlgen
