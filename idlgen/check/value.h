#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "findings/rules.h"

namespace zentho::idlgen {

/// What a name is to the value of an item.
enum class NameKind : std::uint8_t {
  Item,       ///< An item above.
  EnumType,   ///< An enum above.
  OtherType,  ///< A type that is not complete before the enum, such as a message.
  Unknown,
  Elsewhere  ///< Unknown, but another file may declare it.
};

using NameLookup = std::function<NameKind(std::string_view name)>;

/// What is wrong with a value. Refers to the word.
struct ValueFault {
  const Rule* rule;
  std::string_view text;  ///< The part at fault, or the whole word.
  std::string advice;     ///< What to write instead, or empty.
};

/// Reads the value of an item: literals and names with operators, parentheses and casts. Evaluates
/// nothing. Returns one error, or warnings in the order of the text. `kindOf` tells what a name is.
/// `hasIntegerMacros` says whether the header includes <cstdint>.
std::vector<ValueFault> CheckValue(std::string_view word, const NameLookup& kindOf,
                                   bool hasIntegerMacros);

}  // namespace zentho::idlgen
