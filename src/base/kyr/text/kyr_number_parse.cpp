#include <kyr/text/numeric_p.h>

#include <QVarLengthArray>

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace Kyr::Numeric {

namespace {

constexpr bool isDigit(unsigned code) {
  return code - '0' < 10;
}

constexpr unsigned toLower(unsigned code) {
  return code >= 'A' && code <= 'Z' ? code + 32 : code;
}

constexpr bool isHexDigit(unsigned code) {
  return isDigit(code) || toLower(code) - 'a' < 6;
}

/// The code of a byte or a UTF-16 unit.
constexpr unsigned code(char unit) {
  return static_cast<unsigned char>(unit);
}
constexpr unsigned code(ushort unit) {
  return unit;
}

/// A decimal number of a text: digits times ten to the power of exponent.
template <class Unit>
struct Decimal {
  const Unit* stop;          ///< behind the number
  std::uint64_t digits = 0;  ///< modulo 2^64; exact up to exactCount digits
  std::ptrdiff_t count = 0;  ///< digits, leading zeros included; 0 when there is no number
  std::ptrdiff_t exponent = 0;
};

constexpr std::ptrdiff_t exactCount = 19;

/// Larger exponents all count as this one; far beyond any double, far from overflowing.
constexpr std::ptrdiff_t largestExponent = 100000;

template <class Unit>
void readDigits(const Unit* end, Decimal<Unit>* decimal) {
  const Unit* at = decimal->stop;
  std::uint64_t digits = decimal->digits;
  for (; at != end && isDigit(code(*at)); ++at) {
    digits = digits * 10 + (code(*at) - '0');
  }
  decimal->digits = digits;
  decimal->count += at - decimal->stop;
  decimal->stop = at;
}

/// Reads an exponent with its letter; without digits behind it, the letter is no part of the
/// number.
template <class Unit>
inline void readExponent(const Unit* end, unsigned letter, Decimal<Unit>* decimal) {
  const Unit* at = decimal->stop;
  if (at == end || toLower(code(*at)) != letter) {
    return;
  }
  ++at;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) {
    ++at;
  }
  if (at == end || !isDigit(code(*at))) {
    return;
  }
  std::ptrdiff_t exponent = 0;
  for (; at != end && isDigit(code(*at)); ++at) {
    exponent =
        std::min(exponent * 10 + static_cast<std::ptrdiff_t>(code(*at) - '0'), largestExponent);
  }
  decimal->exponent += negative ? -exponent : exponent;
  decimal->stop = at;
}

template <class Unit>
Decimal<Unit> readDecimal(const Unit* begin, const Unit* end) {
  Decimal<Unit> decimal{begin};
  readDigits(end, &decimal);
  if (decimal.stop != end && *decimal.stop == '.') {
    const std::ptrdiff_t before = decimal.count;
    ++decimal.stop;
    readDigits(end, &decimal);
    decimal.exponent = before - decimal.count;
  }
  if (decimal.count == 0) {
    decimal.stop = begin;
  } else {
    readExponent(end, 'e', &decimal);
  }
  return decimal;
}

constexpr double powersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Converts a number whose digits and power of ten are doubles themselves: their product is rounded
/// once, by the processor. One that computes in wider registers rounds twice, and is not asked.
/// \return false where that is not exact
template <class Unit>
bool convertExactly(const Decimal<Unit>& decimal, double* value) {
  constexpr bool roundsOnce = FLT_EVAL_METHOD == 0;
  constexpr std::uint64_t largestDigits = std::uint64_t(1) << DBL_MANT_DIG;
  if (!roundsOnce || decimal.count > exactCount || decimal.digits > largestDigits ||
      decimal.exponent < -22 || decimal.exponent > 22) {
    return false;
  }
  const auto digits = static_cast<double>(static_cast<std::int64_t>(decimal.digits));
  *value = decimal.exponent < 0 ? digits / powersOfTen[-decimal.exponent]
                                : digits * powersOfTen[decimal.exponent];
  return true;
}

/// As convertExactly(), for a number with many zeros in front, which count as digits elsewhere.
/// Must be tried before the standard library's conversion, which rounds such a number twice where
/// it is built for wide registers.
template <class Unit>
bool convertPadded(const Unit* begin, Decimal<Unit> decimal, double* value) {
  const auto counts = [](Unit unit) { return unit != '0' && unit != '.'; };
  const Unit* const first = std::find_if(begin, decimal.stop, counts);
  decimal.count -= first - begin - std::count(begin, first, '.');
  return convertExactly(decimal, value);
}

double convertRare(const char* begin, const char* end) {
  return parseRareDouble(std::string(begin, end).c_str());
}

/// Any decimal number without sign. The standard library's conversion leaves out what rounds to
/// infinity or to zero and cuts off long exponents, so those are the C library's.
double convertDecimal(const char* begin, const char* end, bool usual) {
  double value = 0;
  if (usual && std::from_chars(begin, end, value).ec == std::errc()) {
    return value;
  }
  return convertRare(begin, end);
}

template <class Convert>
double withBytes(const char* begin, const char* end, Convert convert) {
  return convert(begin, end);
}

template <class Convert>
double withBytes(const ushort* begin, const ushort* end, Convert convert) {
  QVarLengthArray<char, 64> bytes(static_cast<int>(end - begin));
  std::transform(begin, end, bytes.begin(), [](ushort unit) { return static_cast<char>(unit); });
  return convert(bytes.data(), bytes.data() + bytes.size());
}

/// The end of a hexadecimal number behind its "0x"; \a begin when there is none.
template <class Unit>
const Unit* hexadecimalEnd(const Unit* begin, const Unit* end) {
  const auto isHex = [](Unit unit) { return isHexDigit(code(unit)); };
  Decimal<Unit> number{std::find_if_not(begin, end, isHex)};
  std::ptrdiff_t digits = number.stop - begin;
  if (number.stop != end && *number.stop == '.') {
    const Unit* fraction = number.stop + 1;
    number.stop = std::find_if_not(fraction, end, isHex);
    digits += number.stop - fraction;
  }
  if (digits == 0) {
    return begin;
  }
  readExponent(end, 'p', &number);
  return number.stop;
}

template <class Unit>
bool startsWith(const Unit* begin, const Unit* end, const char* lowerCase) {
  for (; *lowerCase != '\0'; ++begin, ++lowerCase) {
    if (begin == end || toLower(code(*begin)) != code(*lowerCase)) {
      return false;
    }
  }
  return true;
}

/// The end of "nan" and, where it is complete, of the bracket with letters and digits behind it.
template <class Unit>
const Unit* nanEnd(const Unit* begin, const Unit* end) {
  const Unit* const word = begin + 3;
  if (word == end || *word != '(') {
    return word;
  }
  const Unit* const close = std::find_if_not(word + 1, end, [](Unit unit) {
    return isDigit(code(unit)) || toLower(code(unit)) - 'a' < 26 || unit == '_';
  });
  return close != end && *close == ')' ? close + 1 : word;
}

/// The end of a hexadecimal number, an infinity or a NaN; \a begin for everything else.
template <class Unit>
const Unit* rareEnd(const Unit* begin, const Unit* end) {
  if (startsWith(begin, end, "0x")) {
    const Unit* const digits = begin + 2;
    const Unit* const stop = hexadecimalEnd(digits, end);
    return stop == digits ? begin : stop;
  }
  if (startsWith(begin, end, "infinity")) {
    return begin + 8;
  }
  if (startsWith(begin, end, "inf")) {
    return begin + 3;
  }
  return startsWith(begin, end, "nan") ? nanEnd(begin, end) : begin;
}

template <class Unit>
bool mayBeRare(const Unit* begin, const Unit* end) {
  return end - begin > 1 && (!isDigit(code(begin[0])) || toLower(code(begin[1])) == 'x');
}

template <class Unit>
double parseUnsigned(const Unit* begin, const Unit* end, const Unit** stop) {
  if (mayBeRare(begin, end)) {
    *stop = rareEnd(begin, end);
    if (*stop != begin) {
      return withBytes(begin, *stop, convertRare);
    }
  }
  const Decimal<Unit> decimal = readDecimal(begin, end);
  *stop = decimal.stop;
  double value = 0;
  if (decimal.count == 0 || convertExactly(decimal, &value)) {
    return value;
  }
  if (decimal.count > exactCount && convertPadded(begin, decimal, &value)) {
    return value;
  }
  const bool usual =
      decimal.stop - begin < 512 && decimal.exponent > -2000 && decimal.exponent < 2000;
  return withBytes(begin, decimal.stop, [usual](const char* first, const char* last) {
    return convertDecimal(first, last, usual);
  });
}

template <class Unit>
double parse(const Unit* begin, const Unit* end, const Unit** stop) {
  const Unit* at = begin;
  while (at != end && isSpace(code(*at))) {
    ++at;
  }
  // The sign is applied without a branch: those of measured coordinates come at random.
  const bool negative = at != end && *at == '-';
  const bool positive = at != end && *at == '+';
  at += int(negative) + int(positive);
  const double value = parseUnsigned(at, end, stop);
  if (*stop == at) {
    *stop = begin;
    return 0;
  }
  constexpr double signs[] = {1, -1};
  return std::copysign(value, signs[negative ? 1 : 0]);
}

}  // namespace

double parseDouble(const char* begin, const char* end, const char** stop) {
  return parse(begin, end, stop);
}

double parseDouble(const ushort* begin, const ushort* end, const ushort** stop) {
  return parse(begin, end, stop);
}

bool parseInt64(const char* begin, const char* end, const char** stop, qint64* value) {
  const char* at = begin;
  while (at != end && isSpace(code(*at))) {
    ++at;
  }
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) {
    ++at;
  }
  constexpr auto largest = static_cast<quint64>(std::numeric_limits<qint64>::max());
  const auto valueOf = [](char byte, BaseTen) {
    return isDigit(code(byte)) ? code(byte) - '0' : noDigit;
  };
  quint64 magnitude = 0;
  at = accumulateDigits(at, end, BaseTen(), Most{largest, negative ? 1U : 0U}, valueOf, &magnitude);
  if (at == nullptr) {
    return false;
  }
  *stop = at;
  *value = static_cast<qint64>(negative ? 0 - magnitude : magnitude);
  return true;
}

}  // namespace Kyr::Numeric
