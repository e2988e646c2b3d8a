#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zentho::idlgen {

/// Returns how the rule of a target begins in a makefile: with its name, escaped, and a colon.
std::string RuleBeginning(std::string_view target);

/// Returns the dependencies of a target, in the form in which gcc's -MD -MP writes them for make:
/// one rule, and an empty one for each file, so that the file can be deleted.
std::string Depfile(std::string_view target, const std::vector<std::string>& files);

}  // namespace zentho::idlgen
