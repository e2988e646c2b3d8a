#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// The part of the framework's serialization that generated headers use, to try them without the
// framework. The encoding is not the framework's.

namespace zentho {

/// A queue of bytes: writes append at the end, reads start at the front.
class BytesBuffer {
 public:
  /// Appends `size` bytes.
  void write(const void* bytes, std::size_t size) {
    content.append(static_cast<const char*>(bytes), size);
  }

  /// Reads the next `size` bytes. Throws std::out_of_range if there are fewer, and reads none then.
  void read(void* bytes, std::size_t size) {
    if (size > unread()) throw std::out_of_range("read past the end of a BytesBuffer");
    content.copy(static_cast<char*>(bytes), size, position);
    position += size;
  }

  /// Returns the number of bytes that have been written but not read.
  [[nodiscard]] std::size_t unread() const { return content.size() - position; }

 private:
  std::string content;
  std::size_t position = 0;
};

namespace stub_internal {

template <typename T>
struct IsVector : std::false_type {};
template <typename T>
struct IsVector<std::vector<T>> : std::true_type {};

template <typename T>
inline constexpr bool isScalar = std::is_arithmetic_v<T> || std::is_enum_v<T>;

template <typename T>
inline constexpr bool isRecord =
    !isScalar<T> && !IsVector<T>::value && !std::is_same_v<T, std::string>;

}  // namespace stub_internal

/// Appends a value to the buffer: a number or an enum as its bytes in memory, a string or a vector
/// as its length and its elements. Generated headers specialize this for their structs.
template <typename T>
void serialize(const T& data, BytesBuffer& buffer) {
  static_assert(!stub_internal::isRecord<T>,
                "no generated header with this type has been included");
  if constexpr (stub_internal::isScalar<T>) {
    buffer.write(&data, sizeof data);
  } else {
    serialize(std::uint64_t{data.size()}, buffer);
    for (const typename T::value_type& element : data) serialize(element, buffer);
  }
}

/// Reads a value that `serialize` has appended. Throws std::out_of_range if the buffer ends before
/// it. On failure, `data` and the read position are unspecified.
template <typename T>
void deserialize(BytesBuffer& buffer, T& data) {
  static_assert(!stub_internal::isRecord<T>,
                "no generated header with this type has been included");
  if constexpr (stub_internal::isScalar<T>) {
    buffer.read(&data, sizeof data);
  } else {
    std::uint64_t length = 0;
    deserialize(buffer, length);
    data.clear();
    for (std::uint64_t i = 0; i < length; ++i) {
      typename T::value_type element{};
      deserialize(buffer, element);
      data.push_back(std::move(element));
    }
  }
}

}  // namespace zentho
