/// \file
/// The C runtime's strtod knows neither hexadecimal numbers nor infinities, asks for the locale
/// and does not round every number right. The results here are those of other platforms' strtod.
#include <kyr/text/numeric_p.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <system_error>

namespace Kyr::Numeric {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

constexpr unsigned lower(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 'A' && code <= 'Z' ? code + 32U : code;
}

/// \return noDigit for what is no digit of any base up to 16
constexpr unsigned valueOf(char byte) {
  const unsigned code = lower(byte);
  return code - '0' < 10 ? code - '0' : code - 'a' < 6 ? code - 'a' + 10 : noDigit;
}

/// Reads "e-12" or "p-12" and the like.
/// \return 0 where there is no exponent; what is beyond every text's length is cut off
std::int64_t readExponent(const char* at) {
  if (*at == '\0') {
    return 0;
  }
  ++at;
  const bool negative = *at == '-';
  at += *at == '-' || *at == '+' ? 1 : 0;
  std::int64_t exponent = 0;
  constexpr std::int64_t enough = std::int64_t(1) << 40;
  for (; valueOf(*at) < 10 && exponent < enough; ++at) {
    exponent = exponent * 10 + valueOf(*at);
  }
  return negative ? -exponent : exponent;
}

/// Rounds mantissa times two to the power of exponent to the nearest double, ties to even.
/// \param more whether the number is a little larger than that
double compose(std::uint64_t mantissa, bool more, std::int64_t exponent) {
  if (mantissa == 0) {
    return 0;
  }
  for (; mantissa >> 63 == 0; mantissa <<= 1) {
    --exponent;
  }
  constexpr std::int64_t lowestBit = -1074;
  const std::int64_t last = std::max<std::int64_t>(exponent + 11, lowestBit);
  const std::int64_t drop = last - exponent;
  if (last > 1023) {
    return infinity;
  }
  if (drop > 64) {
    return 0;
  }
  const std::uint64_t kept = drop == 64 ? 0 : mantissa >> drop;
  const std::uint64_t lost = mantissa << (64 - drop);
  constexpr std::uint64_t half = std::uint64_t(1) << 63;
  const bool up = lost > half || (lost == half && (more || kept % 2 == 1));
  return std::ldexp(static_cast<double>(kept + (up ? 1 : 0)), static_cast<int>(last));
}

/// \param at behind the "0x"
double readHexadecimal(const char* at) {
  std::uint64_t mantissa = 0;
  std::int64_t exponent = 0;
  bool more = false;
  int behindPoint = 0;
  for (; valueOf(*at) != noDigit || *at == '.'; ++at) {
    if (*at == '.') {
      behindPoint = 4;
    } else if (mantissa >> 60 == 0) {
      mantissa = mantissa * 16 + valueOf(*at);
      exponent -= behindPoint;
    } else {
      more = more || *at != '0';
      exponent += 4 - behindPoint;
    }
  }
  return compose(mantissa, more, exponent + readExponent(at));
}

/// The significant digits of a number, as many as can matter to a double.
struct Digits {
  /// A double has fewer, and so has the middle between two.
  static constexpr std::size_t most = 800;
  std::array<char, most + 32> text;  ///< with room for one more digit and an exponent
  std::size_t count = 0;
  std::int64_t exponent = 0;  ///< of ten, by which the digits' whole number is multiplied
};

Digits readDigits(const char** at) {
  Digits digits;
  bool more = false;
  int behindPoint = 0;
  for (; valueOf(**at) < 10 || **at == '.'; ++*at) {
    if (**at == '.') {
      behindPoint = 1;
    } else if (digits.count < Digits::most) {
      if (digits.count > 0 || **at != '0') {
        digits.text[digits.count++] = **at;
      }
      digits.exponent -= behindPoint;
    } else {
      more = more || **at != '0';
      digits.exponent += 1 - behindPoint;
    }
  }
  if (more) {
    digits.text[digits.count++] = '1';  // stands for all that was left out
    --digits.exponent;
  }
  return digits;
}

double readDecimal(const char* at) {
  Digits digits = readDigits(&at);
  const std::int64_t exponent = digits.exponent + readExponent(at);
  const std::int64_t first = exponent + static_cast<std::int64_t>(digits.count);
  if (digits.count == 0 || first < -400) {
    return 0;
  }
  if (first > 400) {
    return infinity;
  }
  char* const begin = digits.text.data();
  begin[digits.count] = 'e';
  const char* const end =
      std::to_chars(begin + digits.count + 1, begin + digits.text.size(), exponent).ptr;
  double value = 0;
  if (std::from_chars(begin, end, value).ec == std::errc()) {
    return value;
  }
  return first > 0 ? infinity : 0;
}

/// A NaN that carries the number in its brackets, as far as it fits.
/// \param at behind "nan"
double readNaN(const char* at) {
  constexpr std::uint64_t payloadBits = (std::uint64_t(1) << 51) - 1;
  const double plain = std::numeric_limits<double>::quiet_NaN();
  std::uint64_t bits = 0;
  std::memcpy(&bits, &plain, sizeof(bits));
  if (*at == '(') {
    char* end = nullptr;
    const std::uint64_t payload = std::strtoull(at + 1, &end, 0);
    bits |= *end == ')' ? payload & payloadBits : 0;
  }
  double value = 0;
  std::memcpy(&value, &bits, sizeof(value));
  return value;
}

}  // namespace

double parseRareDouble(const char* text) noexcept {
  switch (lower(*text)) {
    case 'i':
      return infinity;
    case 'n':
      return readNaN(text + 3);
    default:
      return lower(text[0]) == '0' && lower(text[1]) == 'x' ? readHexadecimal(text + 2)
                                                            : readDecimal(text);
  }
}

}  // namespace Kyr::Numeric
