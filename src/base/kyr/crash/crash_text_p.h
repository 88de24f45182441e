/// \file
/// Text that a crash handler puts together without the heap and without a locale.
#pragma once

#include <kyr/core/prog_error_p.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Kyr::Crash {

/// Writes to the descriptor of standard error or, on a thread that collects what it prints, there.
void printBytes(const char* bytes, std::size_t length) noexcept;

/// A short text in a buffer of its own; what does not fit is cut off.
class Text {
 public:
  Text& operator<<(const char* text) noexcept { return append(text, std::strlen(text)); }

  Text& append(const char* text, std::size_t length) noexcept {
    const std::size_t room = _characters.size() - 1 - _length;
    const std::size_t taken = length < room ? length : room;
    std::memcpy(_characters.data() + _length, text, taken);
    _length += taken;
    _characters[_length] = '\0';
    return *this;
  }

  /// A number with "0x" in front, in lower case.
  Text& hexadecimal(std::uint64_t number) noexcept {
    *this << "0x";
    return digits(number, 16);
  }

  Text& decimal(std::int64_t number) noexcept {
    if (number < 0) {
      *this << "-";
    }
    const auto bits = static_cast<std::uint64_t>(number);
    return digits(number < 0 ? 0 - bits : bits, 10);
  }

  /// A number that has no sign, in decimal.
  Text& count(std::uint64_t number) noexcept { return digits(number, 10); }

  /// Ends with a zero character.
  const char* data() const noexcept { return _characters.data(); }
  std::size_t length() const noexcept { return _length; }

  /// Prints it as printBytes() does.
  void print() const noexcept { printBytes(data(), length()); }

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

  std::array<char, 2048> _characters{};
  std::size_t _length = 0;
};

/// Prints a text as printBytes() does.
inline void print(const char* text) noexcept {
  printBytes(text, std::strlen(text));
}

}  // namespace Kyr::Crash
