#include <kyr/trace/trace_line_p.h>

#include <kyr/text/utf8_p.h>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace Kyr {

namespace {

/// What one text may take; two of them and the rest of an event fit into a line.
constexpr std::size_t textCapacity = 1500;
constexpr std::size_t longestEscaped = 6;
constexpr char hexadecimal[] = "0123456789abcdef";

}  // namespace

void TraceLine::append(const char* bytes, std::size_t count) noexcept {
  const std::size_t fitting = std::min(count, capacity - _size);
  std::memcpy(_bytes.data() + _size, bytes, fitting);
  _size += fitting;
}

TraceLine& TraceLine::add(const char* syntax) noexcept {
  append(syntax, std::strlen(syntax));
  return *this;
}

TraceLine& TraceLine::add(std::uint64_t number) noexcept {
  char digits[20];
  const auto result = std::to_chars(digits, digits + sizeof digits, number);
  append(digits, static_cast<std::size_t>(result.ptr - digits));
  return *this;
}

TraceLine& TraceLine::addTime(std::int64_t nanoseconds) noexcept {
  constexpr unsigned thousand = 1000;
  const auto time = static_cast<std::uint64_t>(std::max<std::int64_t>(nanoseconds, 0));
  const std::uint64_t rest = time % thousand;
  const char decimals[] = {'.', static_cast<char>('0' + rest / 100),
                           static_cast<char>('0' + rest / 10 % 10),
                           static_cast<char>('0' + rest % 10)};
  add(time / thousand);
  append(decimals, sizeof decimals);
  return *this;
}

void TraceLine::addEscaped(const char* character, std::size_t length) noexcept {
  const auto first = static_cast<unsigned char>(*character);
  if (first == '"' || first == '\\') {
    append("\\", 1);
    append(character, 1);
  } else if (first < ' ') {
    const char escaped[] = {'\\', 'u', '0', '0', hexadecimal[first / 16], hexadecimal[first % 16]};
    append(escaped, sizeof escaped);
  } else {
    append(character, length);
  }
}

TraceLine& TraceLine::addText(const char* text, std::size_t length) noexcept {
  const char* const end = text + length;
  append("\"", 1);
  const std::size_t last = _size + textCapacity - longestEscaped;
  while (text != end && _size < last) {
    const char* const character = text;
    if (Utf8::take(text, end) == Utf8::none) {
      add("\xEF\xBF\xBD");
    } else {
      addEscaped(character, static_cast<std::size_t>(text - character));
    }
  }
  append("\"", 1);
  return *this;
}

TraceLine& TraceLine::addText(const char* text) noexcept {
  return text ? addText(text, std::strlen(text)) : addText("", 0);
}

}  // namespace Kyr
