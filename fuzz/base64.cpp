#include "Fuzz.h"

#include <kyr/text/KyrBase64.h>

namespace KyrFuzz {

namespace {

/// The documented reading: groups of four, in which all that is no digit counts as "=".
std::string literally(std::string_view text) {
  constexpr std::string_view digits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); at += 4) {
    unsigned bits = 0;
    std::size_t missing = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
      const std::size_t digit = i < text.size() ? digits.find(text[i]) : std::string::npos;
      missing += digit == std::string::npos ? 1 : 0;
      bits = bits << 6U | (digit == std::string::npos ? 0U : static_cast<unsigned>(digit));
    }
    const char group[] = {static_cast<char>(bits >> 16U), static_cast<char>(bits >> 8U),
                          static_cast<char>(bits)};
    bytes.append(group, missing < 3 ? 3 - missing : 1);
  }
  return bytes;
}

}  // namespace

void harness(Choices input) {
  const std::string_view bytes = input.rest();
  const QByteArray array = arrayOf(bytes);
  const QByteArray encoded = Kyr::Base64::encode(array);
  expect(encoded == array.toBase64(), "Qt writes the same Base64");
  expect(Kyr::Base64::decode(encoded) == array, "Base64 leads back");
  const std::string expected = literally(bytes);
  expect(Kyr::Base64::decode(array) == arrayOf(expected), "any text reads as documented");

  Kyr::StructVector<unsigned char> vector = vectorOf(bytes);
  Kyr::Base64::decode(vector, &vector);
  expect(viewOf(vector) == std::string(bytes) + expected, "decode appends, also to its input");
  vector = vectorOf(bytes);
  Kyr::Base64::encode(vector, &vector);
  expect(viewOf(vector) == std::string(bytes) + encoded.toStdString(), "encode appends");
}

}  // namespace KyrFuzz
