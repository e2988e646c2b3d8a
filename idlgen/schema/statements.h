#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zentho::idlgen {

/// The statements of the language.
enum class Statement : std::uint8_t { Include, Namespace, Enum, Message, Service, None };

/// The keywords that begin them, in the same order.
inline constexpr std::array<std::string_view, 5> statementKeywords = {"include", "namespace",
                                                                      "enum", "message", "service"};
static_assert(statementKeywords.size() == static_cast<std::size_t>(Statement::None));

/// Returns the statement that begins with this keyword, or `None`.
inline Statement FindStatement(std::string_view keyword) {
  const auto* const found = std::find(statementKeywords.begin(), statementKeywords.end(), keyword);
  return static_cast<Statement>(found - statementKeywords.begin());
}

/// Returns whether the statement declares a name, with braces after it.
inline bool IsDeclaration(Statement statement) {
  return statement == Statement::Enum || statement == Statement::Message ||
         statement == Statement::Service;
}

}  // namespace zentho::idlgen
