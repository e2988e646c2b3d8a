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

/// Written before each record in a vector. A record without members would otherwise take no bytes;
/// with the mark, the element count never exceeds the number of bytes in the buffer.
inline constexpr std::uint8_t recordMark = 1;

/// Reads a length. Throws std::length_error if it exceeds the number of unread bytes.
inline std::size_t readLength(BytesBuffer& buffer) {
  std::uint64_t length = 0;
  buffer.read(&length, sizeof length);
  if (length > buffer.unread()) throw std::length_error("length beyond the end of a BytesBuffer");
  return static_cast<std::size_t>(length);
}

}  // namespace detail

/// Appends a value to the buffer: a number or an enum as its bytes in memory, a string or a vector
/// as its length and its elements. Generated headers specialize this for their structs.
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

/// Reads a value that `serialize` has appended. Throws std::logic_error if the bytes are not valid.
/// `data` and the buffer's position may have changed by then, nothing else.
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
