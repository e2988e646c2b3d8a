#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace zentho::idlgen {

/// Makes an array of as many rows as are given.
template <typename Row, std::size_t Size>
// NOLINTNEXTLINE(modernize-avoid-c-arrays)
constexpr std::array<Row, Size> Table(const Row (&rows)[Size]) {
  std::array<Row, Size> table{};
  for (std::size_t i = 0; i < Size; ++i) table[i] = rows[i];
  return table;
}

/// Returns whether the value is one of the rows.
template <typename Row, std::size_t Size, typename Value>
bool Contains(const std::array<Row, Size>& table, const Value& value) {
  return std::find(table.begin(), table.end(), value) != table.end();
}

}  // namespace zentho::idlgen
