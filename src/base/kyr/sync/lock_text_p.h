/// \file
/// Text that the lock doctor puts together without the heap.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Kyr::LockBooks {

/// Text in a buffer of its own; what does not fit is cut off.
class Text {
 public:
  Text& operator<<(const char* text) noexcept { return append(text, std::strlen(text)); }
  Text& count(std::uint64_t number) noexcept { return digits(number, 10); }
  /// With "0x" in front, in lower case.
  Text& hexadecimal(std::uint64_t number) noexcept { return (*this << "0x").digits(number, 16); }
  Text& append(const char* text, std::size_t length) noexcept {
    const std::size_t room = _characters.size() - 1 - _length;
    const std::size_t taken = length < room ? length : room;
    std::memcpy(_characters.data() + _length, text, taken);
    _length += taken;
    _characters[_length] = '\0';
    return *this;
  }

  /// Ends with a zero character.
  const char* data() const noexcept { return _characters.data(); }
  std::size_t length() const noexcept { return _length; }

 private:
  Text& digits(std::uint64_t number, unsigned base) noexcept {
    std::array<char, 20> reversed{};
    std::size_t first = reversed.size();
    do {
      reversed[--first] = "0123456789abcdef"[number % base];
      number /= base;
    } while (number > 0);
    return append(reversed.data() + first, reversed.size() - first);
  }

  std::array<char, 4000> _characters{};
  std::size_t _length = 0;
};

}  // namespace Kyr::LockBooks
