/// \file
/// Numbers to text and back, the same under every locale.
///
/// An application object switches the C library to the user's locale, in which strtod and
/// snprintf read and write "1,5". Nothing in here asks for the process's locale.
#pragma once

#include <QtGlobal>

#include <cstddef>

namespace Kyr::Numeric {

/// White space of the "C" locale; \a code is a byte or a UTF-16 unit.
constexpr bool isSpace(unsigned code) {
  return code == ' ' || (code >= '\t' && code <= '\r');
}

/// What may follow a number that is to fill its whole text.
constexpr bool isBlank(unsigned code) {
  return code == ' ' || code == '\t';
}

/// Whether only blanks and tabs are left.
template <class Unit>
bool onlyBlanks(const Unit* begin, const Unit* end) {
  while (begin != end && isBlank(static_cast<unsigned>(*begin))) {
    ++begin;
  }
  return begin == end;
}

/// Bases other than 2 to 36 count as 10.
constexpr unsigned effectiveBase(int base) {
  return base < 2 || base > 36 ? 10U : static_cast<unsigned>(base);
}

/// The value that no digit of any base has.
constexpr unsigned noDigit = 36;

/// A base that the compiler knows, so that it need not divide.
struct BaseTen {
  constexpr operator unsigned() const { return 10; }
};

/// The largest number to accept.
struct Most {
  quint64 value;
  unsigned slack = 0;  ///< 1 where the last digit may exceed the value's own by one
};

/// As readDigits(), for an unsigned base or BaseTen.
template <class Unit, class Base, class ValueOf>
const Unit* accumulateDigits(const Unit* at, const Unit* end, Base base, Most most, ValueOf valueOf,
                             quint64* value) {
  const Unit* const first = at;
  constexpr std::ptrdiff_t fitting = 12;  // digits of any base are less than 2^63
  const Unit* const unchecked = end - at > fitting ? at + fitting : end;
  quint64 sum = 0;
  for (unsigned digit = 0; at != unchecked && (digit = valueOf(*at, base)) != noDigit; ++at) {
    sum = sum * base + digit;
  }
  if (sum > most.value + most.slack) {
    return nullptr;
  }
  const quint64 limit = most.value / base;
  const quint64 rest = most.value % base + most.slack;
  for (; at >= unchecked && at != end; ++at) {
    const unsigned digit = valueOf(*at, base);
    if (digit == noDigit) {
      break;
    }
    if (sum >= limit && (sum > limit || digit > rest)) {
      return nullptr;
    }
    sum = sum * base + digit;
  }
  *value = sum;
  return at == first ? nullptr : at;
}

/// Reads the digits of a number.
/// \param base 2 to 36; any other counts as 10
/// \param valueOf gives a unit's value in a base; noDigit for what is no digit of it
/// \return the first unit that is no digit; null for no digit at all or too large a number
template <class Unit, class ValueOf>
const Unit* readDigits(const Unit* at, const Unit* end, int base, Most most, ValueOf valueOf,
                       quint64* value) {
  const unsigned effective = effectiveBase(base);
  return effective == 10 ? accumulateDigits(at, end, BaseTen(), most, valueOf, value)
                         : accumulateDigits(at, end, effective, most, valueOf, value);
}

/// Parses what strtod accepts in the "C" locale, to the same bits. The text need not end in a
/// zero byte; cost and reading are limited to the number and the white space before it.
/// \param stop receives the first unit behind the number, \a begin when there is none
/// \return 0 when there is no number
/// \threadsafety any thread
double parseDouble(const char* begin, const char* end, const char** stop);
/// As parseDouble() of bytes, from UTF-16 units; units beyond ASCII end a number.
double parseDouble(const ushort* begin, const ushort* end, const ushort** stop);

/// Parses a decimal integer as qstringToInt64 does, from ASCII.
/// \param stop receives the first byte behind the digits
/// \return false, with nothing stored, when there is no integer or it exceeds 64 bits
/// \threadsafety any thread
bool parseInt64(const char* begin, const char* end, const char** stop, qint64* value);

/// Room for every text that formatDouble() makes: '-', 309 digits, '.', 99 digits.
constexpr std::size_t doubleCapacity = 512;
/// Room for a sign and 64 binary digits.
constexpr std::size_t integerCapacity = 65;

/// Writes a number as printf does in the "C" locale, with a two-digit exponent at least.
/// \param format one of "fFeEgG"; any other counts as 'f'
/// \param precision at most 99 counts; negative means 6
/// \param text at least doubleCapacity bytes
/// \return the number of bytes written; no zero byte follows them
/// \threadsafety any thread
std::size_t formatDouble(double value, char format, int precision, char* text);

/// Writes an integer with lower-case digits.
/// \param base 2 to 36, any other counts as 10
/// \param text at least integerCapacity bytes
/// \return the number of bytes written; no zero byte follows them
/// \threadsafety any thread
std::size_t formatInteger(qint64 value, int base, char* text);
std::size_t formatInteger(quint64 value, int base, char* text);

/// Room for what formatShort() touches; a string keeps that in itself.
constexpr std::size_t shortCapacity = 15;

/// Writes a decimal number of 32 bits, faster than formatInteger().
/// \param text at least shortCapacity bytes without meaning; those behind the number change
/// \return the number of bytes written
/// \threadsafety any thread
std::size_t formatShort(quint32 magnitude, bool negative, char* text);

// Platform files define this.

/// The C library's strtod in the "C" locale, for the rare forms.
/// \param text a whole number of any form, ending in a zero byte
double parseRareDouble(const char* text) noexcept;

}  // namespace Kyr::Numeric
