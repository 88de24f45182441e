#include <kyr/text/KyrString.h>

#include <array>
#include <string_view>

namespace Kyr {

namespace {

/// Bytes with a letter of their own behind the backslash, and their letters.
constexpr std::string_view escaped = "\a\b\t\n\v\f\r \\";
constexpr std::string_view letters = "abtnvfr_\\";

/// Whether the "C" locale's isprint is true; the process's locale must not change files.
constexpr bool isPrintable(unsigned code) {
  return code >= ' ' && code <= '~';
}

/// How a byte is written.
struct Token {
  std::array<char, 4> text = {};
  unsigned char size = 1;
};

constexpr Token tokenOf(unsigned code) {
  constexpr std::string_view digits = "0123456789abcdef";
  const char byte = static_cast<char>(static_cast<unsigned char>(code));
  const std::size_t index = escaped.find(byte);
  if (index != std::string_view::npos) {
    return {{'\\', letters[index]}, 2};
  }
  if (isPrintable(code)) {
    return {{byte}, 1};
  }
  return {{'\\', 'x', digits[code / 16], digits[code % 16]}, 4};
}

constexpr std::array<Token, 256> makeTokens() {
  std::array<Token, 256> made = {};
  for (unsigned code = 0; code < made.size(); ++code) {
    made[code] = tokenOf(code);
  }
  return made;
}

constexpr std::array<Token, 256> tokens = makeTokens();

const Token& token(char byte) {
  return tokens[static_cast<unsigned char>(byte)];
}

/// The value that no digit has; no byte has it in its high half.
constexpr unsigned noDigit = 0x100;

/// The values of the digits that tokenize() writes. A table, as digits of either kind come at
/// random, and a branch that cannot be foreseen costs more than all the rest of a byte.
constexpr std::array<unsigned short, 256> digitValues = [] {
  std::array<unsigned short, 256> values = {};
  for (unsigned code = 0; code < values.size(); ++code) {
    const bool isLetter = code - 'a' < 6;
    values[code] = static_cast<unsigned short>(code - '0' < 10 ? code - '0'
                                               : isLetter      ? code - 'a' + 10
                                                               : noDigit);
  }
  return values;
}();

unsigned digitOf(char byte) {
  return digitValues[static_cast<unsigned char>(byte)];
}

/// The byte of two hexadecimal digits, or of whatever else KString::toInt() makes a number of.
char byteOf(const char* pair) {
  const unsigned value = digitOf(pair[0]) << 4 | digitOf(pair[1]);
  return value < noDigit ? static_cast<char>(value)
                         : static_cast<char>(KString(pair, 2).toInt(nullptr, 16));
}

/// Writes what an escape stands for, which is never longer.
/// \param at the byte behind the backslash; receives the first byte behind the escape
/// \return the place behind what was written
char* unescape(const char** at, const char* end, char* target) {
  const char letter = *(*at)++;
  if (letter != 'x') {
    const std::size_t index = letters.find(letter);
    if (index != std::string_view::npos) {
      *target++ = escaped[index];
    }
  } else if (end - *at < 2) {
    *target++ = '\\';
    *target++ = 'x';
  } else {
    *target++ = byteOf(*at);
    *at += 2;
  }
  return target;
}

}  // namespace

KString tokenize(const KString& s, bool markEmpty) {
  if (s.empty() && markEmpty) {
    return "\\";
  }
  std::size_t size = 0;
  for (const char byte : s) {
    size += token(byte).size;
  }
  KString result(size, '\0');
  char* target = result.data();
  for (const char byte : s) {
    const Token& written = token(byte);
    for (unsigned i = 0; i < written.size; ++i) {
      *target++ = written.text[i];
    }
  }
  return result;
}

KString untokenize(const KString& s, bool markEmpty) {
  if (markEmpty && s == "\\") {
    return {};
  }
  // Collects pieces of the result, as a token may be four times as long as what it stands for.
  std::array<char, 4096> piece;
  const char* const full = piece.data() + piece.size() - 1;  // an escape gives two bytes at most
  KString text;
  const char* const end = s.data() + s.size();
  for (const char* at = s.data(); at != end;) {
    char* target = piece.data();
    while (at != end && target < full) {
      if (*at != '\\') {
        *target++ = *at++;
      } else if (++at != end) {
        target = unescape(&at, end, target);
      }
    }
    text.append(piece.data(), static_cast<std::size_t>(target - piece.data()));
  }
  return text;
}

}  // namespace Kyr
