#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// The least of the framework's serialization that a generated header needs, so that the headers can
// be compiled and tried where the framework is not installed. The encoding is our own.

namespace zentho {

/// Bytes that are written at the end and read from the front.
class BytesBuffer {
 public:
  /// Appends `size` bytes.
  void write(const void* bytes, std::size_t size) {
    content.append(static_cast<const char*>(bytes), size);
  }

  /// Reads the next `size` bytes into `bytes`. Throws std::out_of_range, and reads nothing, if
  /// there are fewer.
  void read(void* bytes, std::size_t size) {
    if (size > unread()) throw std::out_of_range("read past the end of a BytesBuffer");
    content.copy(static_cast<char*>(bytes), size, position);
    position += size;
  }

  /// The number of bytes written and not yet read.
  [[nodiscard]] std::size_t unread() const { return content.size() - position; }

 private:
  std::string content;
  std::size_t position = 0;
};

namespace detail {

template <typename T>
struct IsVector : std::false_type {};
template <typename T>
struct IsVector<std::vector<T>> : std::true_type {};

template <typename T>
inline constexpr bool isScalar = std::is_arithmetic_v<T> || std::is_enum_v<T>;

template <typename T>
inline constexpr bool isRecord =
    !isScalar<T> && !IsVector<T>::value && !std::is_same_v<T, std::string>;

/// Stands before each record of a vector. A record may have no members, and so no bytes of its own;
/// with the mark, a vector is never longer than the buffer that holds it.
inline constexpr std::uint8_t recordMark = 1;

/// Reads a length. Throws std::length_error for one that the rest of the buffer cannot hold.
inline std::size_t readLength(BytesBuffer& buffer) {
  std::uint64_t length = 0;
  buffer.read(&length, sizeof length);
  if (length > buffer.unread()) throw std::length_error("length beyond the end of a BytesBuffer");
  return static_cast<std::size_t>(length);
}

}  // namespace detail

/// Appends a value to the buffer: a number or an enum as its bytes in memory, a string or a vector
/// as its length and its elements. A generated header specialises it for each of its structs.
template <typename T>
void serialize(const T& data, BytesBuffer& buffer) {
  static_assert(!detail::isRecord<T>, "no generated header with this type has been included");
  if constexpr (detail::isScalar<T>) {
    buffer.write(&data, sizeof data);
  } else {
    const std::uint64_t length = data.size();
    buffer.write(&length, sizeof length);
    if constexpr (std::is_same_v<T, std::string>) {
      buffer.write(data.data(), data.size());
    } else {
      using Element = typename T::value_type;
      for (const Element& element : data) {
        if constexpr (detail::isRecord<Element>) serialize(detail::recordMark, buffer);
        serialize(element, buffer);
      }
    }
  }
}

/// Reads the value that `serialize` has appended. Throws a std::logic_error, by then having changed
/// no more than `data` and the buffer's position, if the bytes do not hold one.
template <typename T>
void deserialize(BytesBuffer& buffer, T& data) {
  static_assert(!detail::isRecord<T>, "no generated header with this type has been included");
  if constexpr (detail::isScalar<T>) {
    buffer.read(&data, sizeof data);
  } else {
    const std::size_t length = detail::readLength(buffer);
    if constexpr (std::is_same_v<T, std::string>) {
      data.resize(length);
      buffer.read(data.data(), length);
    } else {
      using Element = typename T::value_type;
      data.clear();
      for (std::size_t i = 0; i < length; ++i) {
        if constexpr (detail::isRecord<Element>) {
          std::uint8_t mark = 0;
          deserialize(buffer, mark);
          if (mark != detail::recordMark) throw std::invalid_argument("no record in a BytesBuffer");
        }
        Element element{};
        deserialize(buffer, element);
        data.push_back(std::move(element));
      }
    }
  }
}

}  // namespace zentho
