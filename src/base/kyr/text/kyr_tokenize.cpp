#include <kyr/text/KyrString.h>

#include <algorithm>
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

/// Appends what an escape stands for.
/// \param at the byte behind the backslash
/// \return the first byte behind the escape
const char* appendUnescaped(KString& text, const char* at, const char* end) {
  const char letter = *at++;
  if (letter != 'x') {
    const std::size_t index = letters.find(letter);
    if (index != std::string_view::npos) {
      text += escaped[index];
    }
    return at;
  }
  if (end - at < 2) {
    text.append("\\x", 2);
    return at;
  }
  text += static_cast<char>(KString(at, 2).toInt(nullptr, 16));
  return at + 2;
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
  KString text;
  text.reserve(s.size());
  const char* const end = s.data() + s.size();
  const char* at = s.data();
  while (at != end) {
    const char* const backslash = std::find(at, end, '\\');
    text.append(at, static_cast<std::size_t>(backslash - at));
    at = backslash;
    if (at != end && ++at != end) {
      at = appendUnescaped(text, at, end);
    }
  }
  return text;
}

}  // namespace Kyr
