/// \file
/// Arithmetic on sums of two doubles, for conversions that lose nothing on the way.
///
/// A double has not always one in another unit that leads back to it; with twice the digits in
/// between it has. Nothing here is for numbers whose products leave the range of double.
#pragma once

namespace Kyr::Exact {

/// A number as the sum of two doubles, the second at most half a unit of the first's last bit.
struct Pair {
  double high = 0.0;
  double low = 0.0;
};

/// The sum of any two numbers, without error.
constexpr Pair sum(double a, double b) {
  const double high = a + b;
  const double shareOfB = high - a;
  return {high, (a - (high - shareOfB)) + (b - shareOfB)};
}

/// Half of the bits of a number, and the rest.
constexpr Pair halves(double value) {
  constexpr double split = 134217729.0;  // 2^27 + 1
  const double scaled = split * value;
  const double high = scaled - (scaled - value);
  return {high, value - high};
}

/// The product of any two numbers, without error.
constexpr Pair product(double a, double b) {
  const double high = a * b;
  const Pair x = halves(a);
  const Pair y = halves(b);
  return {high, ((x.high * y.high - high) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

constexpr Pair plus(Pair a, double b) {
  const Pair high = sum(a.high, b);
  return sum(high.high, high.low + a.low);
}

constexpr Pair times(Pair a, double b) {
  const Pair high = product(a.high, b);
  return sum(high.high, high.low + a.low * b);
}

constexpr Pair times(Pair a, Pair b) {
  const Pair high = product(a.high, b.high);
  return sum(high.high, high.low + (a.high * b.low + a.low * b.high));
}

constexpr Pair over(Pair a, Pair b) {
  const double first = a.high / b.high;
  const Pair taken = times(b, first);
  const Pair rest = sum(a.high, -taken.high);
  return sum(first, (rest.high + (rest.low + a.low - taken.low)) / b.high);
}

/// Powers beyond this are no use to numbers that are safe.
constexpr unsigned largestPower = 250;

/// \param exponent at most largestPower
constexpr Pair powerOfTen(unsigned exponent) {
  constexpr unsigned step = 22;  // the largest power that is a double
  Pair power{1.0, 0.0};
  for (; exponent > step; exponent -= step) {
    power = times(power, 1e22);
  }
  double rest = 1.0;
  for (; exponent > 0; --exponent) {
    rest *= 10.0;
  }
  return times(power, rest);
}

/// Whether the products of a number with factors of units stay far from both ends of the range.
constexpr bool isSafe(double value) {
  const double magnitude = value < 0.0 ? -value : value;
  return magnitude == 0.0 || (magnitude > 1e-200 && magnitude < 1e200);
}

}  // namespace Kyr::Exact
