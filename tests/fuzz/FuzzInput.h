#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

namespace mireval {

/// Takes values from the bytes that a fuzzer has made. All values are zero or empty once the bytes are used
/// up.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : m_bytes(data, size) {}

  bool isEmpty() const { return m_bytes.empty(); }

  template <typename Number>
  Number number() {
    Number value{};
    const auto bytes = take(sizeof value);
    std::memcpy(&value, bytes.data(), bytes.size());
    return value;
  }

  /// A number from 0 to `count` - 1, from one byte.
  std::size_t choice(std::size_t count) { return number<std::uint8_t>() % count; }

  /// The text up to the next zero byte, or up to the end.
  std::string text();

  /// The same as UTF-8 that sd-bus sends.
  std::string utf8Text();

  /// All bytes that are left.
  std::span<const std::uint8_t> rest() { return take(m_bytes.size()); }

 private:
  /// The next `count` bytes, or as many as there are.
  std::span<const std::uint8_t> take(std::size_t count);

  std::span<const std::uint8_t> m_bytes;
};

}  // namespace mireval
