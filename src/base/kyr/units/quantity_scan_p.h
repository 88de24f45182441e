/// \file
/// Numbers in texts that people type.
#pragma once

#include <kyr/units/exact_p.h>

#include <QChar>
#include <QString>
#include <QStringList>

namespace Kyr::Scan {

/// What a character counts as in numbers: all blanks are ' ', all minus signs '-', digits of any
/// script '0' to '9'. Others stay as they are.
ushort plainOfOther(QChar sign);
inline ushort plain(QChar sign) {
  const ushort code = sign.unicode();
  return code > ' ' && code < 0x7F ? code : plainOfOther(sign);
}

/// Skips blanks.
int skipBlanks(const QString& text, int at);

/// What makes a text no quantity.
enum class Fault : unsigned {
  None,
  NumberMissing,
  NotANumber,
  DigitMissing,
  Ambiguous,  ///< words: what it is, its two readings, how to write either
  Groups,     ///< words: the sign, the decimal separator
  SecondDecimal,
  Fraction,
  TooLarge,
  TooSmall,
  UnknownUnit,  ///< words: what it is
  UnitMissing,
  UnitOrder,   ///< words: the unit
  BelowLeast,  ///< words: the limit
  AboveMost,   ///< words: the limit
  UnevenSum,
  UnitTwice,
  UnitBelow,
  DivisionByZero,
  Unclosed,
  TooDeep,
};

/// Why a text was not understood, and where.
struct Refusal {
  Fault fault = Fault::None;
  int position = 0;
  bool growing = false;  ///< more behind the text could mend it
  QStringList words = {};
};

/// The separators of a language.
struct Separators {
  ushort decimal;
  ushort group;  ///< ' ' for any blank
};

/// A number without its sign, and where it ends.
struct Number {
  Exact::Pair value;
  int end = 0;
  Refusal refusal = {};

  bool isFine() const { return refusal.fault == Fault::None; }
};

/// Reads digits with separators and an exponent, a fraction or both: "12,5", "1e3", "1/2", "1 1/2".
/// \param begin the first character; no blank
Number readNumber(const QString& text, int begin, Separators separators);

}  // namespace Kyr::Scan
