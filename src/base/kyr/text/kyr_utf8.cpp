#include <kyr/text/utf8_p.h>

#include <array>

namespace Kyr {

namespace {

bool continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

char32_t Utf8::take(const char*& text, const char* end) noexcept {
  const auto first = static_cast<unsigned char>(*text++);
  if (first < 0x80) {
    return first;
  }
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  char32_t character = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i, ++text) {
    if (text == end || !continues(*text)) {
      return none;
    }
    character = character << 6U | (static_cast<unsigned char>(*text) & 0x3FU);
  }
  constexpr std::array<char32_t, 4> smallest{0, 0x80, 0x800, 0x10000};
  const bool isValid = first >= 0xC2 && first <= 0xF4 && character <= 0x10FFFF &&
                       character >= smallest[more] && (character < 0xD800 || character > 0xDFFF);
  return isValid ? character : none;
}

std::size_t Utf8::lengthOfStart(const char* text, std::size_t length, std::size_t most) noexcept {
  if (length <= most) {
    return length;
  }
  while (most > 0 && continues(text[most])) {
    --most;
  }
  return most;
}

}  // namespace Kyr
