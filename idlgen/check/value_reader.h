#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "check/value.h"
#include "check/value_tokens.h"

namespace zentho::idlgen {

/// What the tokens of a value are together.
struct ValueReading {
  bool isValue = false;                 ///< Otherwise, no compiler accepts it.
  bool isUnchecked = false;             ///< Whether the warnings are incomplete.
  std::optional<ValueFault> typeError;  ///< About a type that cannot be used there.
  std::vector<ValueFault> warnings;
};

/// Reads tokens that are each valid.
ValueReading ReadValue(const std::vector<ValueToken>& tokens, const NameLookup& kindOf,
                       bool hasIntegerMacros);

}  // namespace zentho::idlgen
