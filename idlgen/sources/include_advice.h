#pragma once

#include <deque>
#include <string>

#include "sources/include_search.h"
#include "sources/source_file.h"
#include "sources/source_tree.h"

namespace zentho::idlgen {

/// Notes at the includes of each named file which ones are not found, and what to do about them:
/// its own, and those of files that they bring and that are not named. Returns whether there are
/// any.
bool noteMissingIncludes(std::deque<SourceFile>& files, PathCache& cache, IncludeSearch& search);

/// Returns the shortest path by which a file in `directory` can include the one at `path`, or
/// nothing.
std::string ShortestPath(const std::string& directory, const std::string& path, PathCache& cache,
                         IncludeSearch& search);

}  // namespace zentho::idlgen
