/// \file
/// One event of a trace as text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Kyr {

/// Composes an event as an object of JSON, within fixed room and without the heap. Texts that are
/// too long are cut off at a character.
class TraceLine {
 public:
  static constexpr std::size_t capacity = 4096;

  /// Appends what is part of the syntax.
  TraceLine& add(const char* syntax) noexcept;
  TraceLine& add(std::uint64_t number) noexcept;
  /// Appends nanoseconds as microseconds.
  TraceLine& addTime(std::int64_t nanoseconds) noexcept;
  /// Appends a text in quotes. What is not UTF-8 becomes U+FFFD.
  TraceLine& addText(const char* text, std::size_t length) noexcept;
  TraceLine& addText(const char* text) noexcept;

  const char* data() const { return _bytes.data(); }
  std::size_t size() const { return _size; }

 private:
  void addEscaped(const char* character, std::size_t length) noexcept;
  void append(const char* bytes, std::size_t count) noexcept;

  std::array<char, capacity> _bytes;
  std::size_t _size = 0;
};

}  // namespace Kyr
