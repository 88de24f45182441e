#include <kyr/text/numeric_p.h>

#include <QtAlgorithms>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

namespace Kyr::Numeric {

namespace {

constexpr auto powersOfTen = [] {
  std::array<std::uint64_t, 20> powers = {1};
  for (std::size_t i = 1; i < powers.size(); ++i) {
    powers[i] = powers[i - 1] * 10;
  }
  return powers;
}();
constexpr int largestPower = 19;

constexpr std::uint64_t powerOfTen(int power) {
  return powersOfTen[static_cast<std::size_t>(power)];
}

/// Most significant digits that the quick way makes; all of them fit 64 bits.
constexpr int quickDigits = 17;

/// A positive number below 2^52 and not tiny: mantissa divided by two to the power of shift.
struct Binary {
  std::uint64_t mantissa;
  int shift;  ///< 1 to 127

  /// Lower bound of the decimal exponent, too low by one at most.
  int exponentBound() const {
    // 78913 / 2^18 is log10(2); the arithmetic shift rounds towards minus infinity.
    return ((52 - shift) * 78913) >> 18;
  }
};

std::optional<Binary> binaryOf(double magnitude) {
  static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == 8);
  std::uint64_t bits = 0;
  std::memcpy(&bits, &magnitude, sizeof(bits));
  constexpr std::uint64_t hiddenBit = std::uint64_t(1) << 52;
  const int shift = 1075 - static_cast<int>(bits >> 52);
  if (shift < 1 || shift > 127) {
    return std::nullopt;
  }
  return Binary{(bits & (hiddenBit - 1)) | hiddenBit, shift};
}

/// A truncated number, and its lost fraction as far as rounding needs it.
struct Truncated {
  std::uint64_t whole;
  std::uint64_t fraction;  ///< of 2^64
  bool more;               ///< the fraction goes on below that

  /// Rounds to nearest, ties to even, as the C library does.
  std::uint64_t rounded() const {
    constexpr std::uint64_t half = std::uint64_t(1) << 63;
    const bool up = fraction > half || (fraction == half && (more || whole % 2 == 1));
    return whole + (up ? 1 : 0);
  }
};

struct Wide {
  std::uint64_t high;
  std::uint64_t low;
};

/// The product in 128 bits, for which there is no portable type.
Wide multiply(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t mask = 0xffffffffU;
  const std::uint64_t lowLow = (a & mask) * (b & mask);
  const std::uint64_t lowHigh = (a & mask) * (b >> 32);
  const std::uint64_t highLow = (a >> 32) * (b & mask);
  const std::uint64_t middle = (lowLow >> 32) + (lowHigh & mask) + (highLow & mask);
  return {(a >> 32) * (b >> 32) + (lowHigh >> 32) + (highLow >> 32) + (middle >> 32),
          (middle << 32) | (lowLow & mask)};
}

/// Multiplies by a power of ten.
/// \return nothing when the result exceeds 64 bits
std::optional<Truncated> scaleUp(Binary number, int power) {
  const Wide product = multiply(number.mantissa, powerOfTen(power));
  const int shift = number.shift;
  if (shift < 64) {
    if (product.high >> shift != 0) {
      return std::nullopt;
    }
    return Truncated{(product.high << (64 - shift)) | (product.low >> shift),
                     product.low << (64 - shift), false};
  }
  if (shift == 64) {
    return Truncated{product.high, product.low, false};
  }
  return Truncated{product.high >> (shift - 64),
                   (product.high << (128 - shift)) | (product.low >> (shift - 64)),
                   product.low << (128 - shift) != 0};
}

/// Divides a number of at least that size by a power of ten, of 1 at least.
Truncated scaleDown(Binary number, int power) {
  const std::uint64_t whole = number.mantissa >> number.shift;
  const std::uint64_t lost = number.mantissa & ((std::uint64_t(1) << number.shift) - 1);
  const std::uint64_t divisor = powerOfTen(power);
  const std::uint64_t rest = whole % divisor;
  // Only the comparison with one half counts, so the fraction need not be divided out.
  constexpr std::uint64_t half = std::uint64_t(1) << 63;
  const std::uint64_t fraction = half - (rest < divisor / 2 ? 1 : 0) + (rest > divisor / 2 ? 1 : 0);
  return {whole / divisor, fraction, lost != 0};
}

/// Significant digits of a number and the decimal exponent of the first one.
struct Significant {
  std::uint64_t digits;
  int exponent;
};

std::optional<Significant> significantOf(Binary number, int count) {
  int exponent = number.exponentBound();
  std::optional<Truncated> scaled;
  do {
    const int power = count - 1 - exponent;
    if (power > largestPower) {
      return std::nullopt;
    }
    scaled = power < 0 ? scaleDown(number, -power) : scaleUp(number, power);
    ++exponent;
  } while (!scaled || scaled->whole >= powerOfTen(count));
  --exponent;
  const std::uint64_t digits = scaled->rounded();
  // Rounding nines up, as of 9.96, moves the first digit.
  return digits == powerOfTen(count) ? Significant{digits / 10, exponent + 1}
                                     : Significant{digits, exponent};
}

char* append(char* text, const char* from, const char* to) {
  return std::copy(from, to, text);
}

char* appendZeros(char* text, int count) {
  return std::fill_n(text, count, '0');
}

/// Writes digits with the point behind the first \a before of them; there is one digit at least.
char* appendPointed(char* text, const char* from, const char* to, int before) {
  if (before <= 0) {
    *text++ = '0';
    *text++ = '.';
    return append(appendZeros(text, -before), from, to);
  }
  if (to - from <= before) {
    return appendZeros(append(text, from, to), before - static_cast<int>(to - from));
  }
  text = append(text, from, from + before);
  *text++ = '.';
  return append(text, from + before, to);
}

char* appendExponent(char* text, int exponent) {
  // Two digits are enough here: larger exponents never come this way.
  const int magnitude = exponent < 0 ? -exponent : exponent;
  *text++ = 'e';
  *text++ = exponent < 0 ? '-' : '+';
  *text++ = static_cast<char>('0' + magnitude / 10);
  *text++ = static_cast<char>('0' + magnitude % 10);
  return text;
}

char* formatFixed(Binary number, int decimals, char* text) {
  const auto scaled = decimals > largestPower ? std::nullopt : scaleUp(number, decimals);
  if (!scaled) {
    return nullptr;
  }
  std::array<char, 24> digits;
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), scaled->rounded()).ptr;
  const int before = static_cast<int>(end - digits.data()) - decimals;
  return appendPointed(text, digits.data(), end, before);
}

char* formatSignificant(Binary number, bool general, int count, char* text) {
  const auto significant = count > quickDigits ? std::nullopt : significantOf(number, count);
  if (!significant) {
    return nullptr;
  }
  std::array<char, 24> digits;
  const char* end =
      std::to_chars(digits.data(), digits.data() + digits.size(), significant->digits).ptr;
  while (general && end[-1] == '0') {
    --end;
  }
  const int exponent = significant->exponent;
  if (general && exponent >= -4 && exponent < count) {
    return appendPointed(text, digits.data(), end, exponent + 1);
  }
  return appendExponent(appendPointed(text, digits.data(), end, 1), exponent);
}

/// Exact integer arithmetic for the numbers of daily life, at a fraction of the general cost.
/// \return null for all others
char* formatQuickly(double value, char format, int precision, char* text) {
  const auto number = binaryOf(value < 0 ? -value : value);
  if (!number) {
    return nullptr;
  }
  if (value < 0) {
    *text++ = '-';
  }
  switch (format) {
    case 'e':
      return formatSignificant(*number, false, precision + 1, text);
    case 'g':
      return formatSignificant(*number, true, std::max(precision, 1), text);
    default:
      return formatFixed(*number, precision, text);
  }
}

std::chars_format charsFormat(char format) {
  switch (format) {
    case 'e':
      return std::chars_format::scientific;
    case 'g':
      return std::chars_format::general;
    default:
      return std::chars_format::fixed;
  }
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

template <class Integer>
std::size_t formatAny(Integer value, int base, char* text) {
  char* const end = text + integerCapacity;
  const unsigned effective = effectiveBase(base);
  // The constant base lets the compiler choose the two-digits-at-a-time way.
  const auto written = effective == 10
                           ? std::to_chars(text, end, value)
                           : std::to_chars(text, end, value, static_cast<int>(effective));
  return static_cast<std::size_t>(written.ptr - text);
}

/// The eight digits of a number below 10^8, the first one in the lowest byte, without '0' added.
quint64 eightDigits(quint32 value) {
  // 10486 / 2^20 and 103 / 2^10 divide exactly in their ranges, by 100 and by 10.
  const quint64 fours = value / 10000 | quint64(value % 10000) << 32;
  const quint64 hundreds = fours * 10486 >> 20 & 0x0000007F0000007FU;
  const quint64 twos = hundreds | (fours - 100 * hundreds) << 16;
  const quint64 tens = twos * 103 >> 10 & 0x000F000F000F000FU;
  return tens | (twos - 10 * tens) << 8;
}

}  // namespace

std::size_t formatShort(quint32 magnitude, bool negative, char* text) {
  constexpr quint32 split = 100000000;
  const quint32 front = magnitude / split;
  const quint64 digits = eightDigits(magnitude % split);
  unsigned zeros = 0;  // before the first digit
  char* at = text;
  *at = '-';
  at += negative ? 1 : 0;
  if (front != 0) {
    *at = static_cast<char>('0' + front / 10);
    at += front >= 10 ? 1 : 0;
    *at++ = static_cast<char>('0' + front % 10);
  } else {
    zeros = std::min(qCountTrailingZeroBits(digits) / 8, 7U);
  }
  qToLittleEndian<quint64>((digits | 0x3030303030303030U) >> (8 * zeros), at);
  return static_cast<std::size_t>(at - text) + 8 - zeros;
}

std::size_t formatDouble(double value, char format, int precision, char* text) {
  const bool upperCase = format == 'F' || format == 'E' || format == 'G';
  const char lowerCase = upperCase ? static_cast<char>(format + 32) : format;
  const int digits = precision < 0 ? 6 : std::min(precision, 99);
  char* end = formatQuickly(value, lowerCase, digits, text);
  if (end == nullptr) {
    end = std::to_chars(text, text + doubleCapacity, value, charsFormat(lowerCase), digits).ptr;
  }
  if (upperCase) {
    std::transform(text, end, text, upper);
  }
  return static_cast<std::size_t>(end - text);
}

std::size_t formatInteger(qint64 value, int base, char* text) {
  return formatAny(value, base, text);
}

std::size_t formatInteger(quint64 value, int base, char* text) {
  return formatAny(value, base, text);
}

}  // namespace Kyr::Numeric
