#include "Fuzz.h"

#include <kyr/text/KyrString.h>

namespace KyrFuzz {

namespace {

bool isPlain(char byte) {
  return byte >= 0x21 && byte <= 0x7E;
}

void checkRoundTrip(const Kyr::KString& text, bool markEmpty) {
  const Kyr::KString token = Kyr::tokenize(text, markEmpty);
  expect(std::all_of(token.begin(), token.end(), isPlain), "a token is printable, without blanks");
  expect(!token.empty() || (text.empty() && !markEmpty), "a token can be seen");
  expect(Kyr::untokenize(token, markEmpty) == text, "a token leads back");
}

}  // namespace

void harness(Choices input) {
  const bool markEmpty = input.yes();
  const Kyr::KString text{std::string(input.rest())};
  checkRoundTrip(text, markEmpty);
  checkRoundTrip(Kyr::untokenize(text, markEmpty), markEmpty);
}

}  // namespace KyrFuzz
