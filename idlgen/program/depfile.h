#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zentho::idlgen {

/// Returns the dependencies of a target, in the form in which gcc's -MD -MP writes them for make:
/// one rule, and an empty one for each file, so that the file can be deleted.
std::string Depfile(std::string_view target, const std::vector<std::string>& files);

/// Returns whether a file begins as one that `Depfile` has made for this target, by whatever path:
/// a build directory may have been moved, or be reached through a link.
bool IsDepfile(std::string_view beginning, std::string_view target);

}  // namespace zentho::idlgen
