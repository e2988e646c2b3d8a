#pragma once

#include <cstddef>
#include <string_view>

#include "check/context.h"

namespace zentho::idlgen {

/// Reports a declared name that the header itself needs, or that hides one. `i` is its word, of
/// which it may be a part.
void checkHeaderName(Context& check, std::size_t i, std::string_view name);

/// Does the same for a part of the path of a namespace, which is the first one if the level is 1.
void checkNamespacePart(Context& check, std::size_t i, std::size_t level);

}  // namespace zentho::idlgen
