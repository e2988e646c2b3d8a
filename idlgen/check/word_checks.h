#pragma once

#include <cstddef>
#include <string_view>

#include "check/context.h"

namespace zentho::idlgen {

// The checks of paths and declared names. Values are in value.h, members in `MemberCheck`.

void checkIncludePath(Context& context, std::size_t i);
void checkNamespacePath(Context& context, std::size_t i);

/// Checks the name of an enum, a message, a service or an item.
void checkDeclaredName(Context& context, std::size_t i);

/// Reports a declared name that the header itself needs, or that hides one.
void checkHeaderName(Context& context, std::size_t i, std::string_view name);

/// The same for a name in the path of a namespace, by its level below the global one.
void checkNamespacePart(Context& context, std::size_t i, std::size_t level);

/// Returns whether the C++ type of a member needs the namespace of the C++ library.
bool NeedsStd(std::string_view type);

/// Checks what the files that are included declare, and whether they include this one.
void checkIncludes(Context& context);

}  // namespace zentho::idlgen
