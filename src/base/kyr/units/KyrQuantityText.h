/// \file
/// Quantities as people write them: "12,5 mm", and the number that it means.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/units/KyrUnit.h>

#include <QLocale>
#include <QString>

#include <limits>
#include <memory>
#include <vector>

namespace Kyr {

/// A unit by one of its names. Many are understood that no catalogue has: "cm", "inch", "psi".
/// \threadsafety a value
struct UnitName {
  QString name;         ///< as it was typed, or as the kind shows it
  double factor = 1.0;  ///< internal units in one of the unit
  double offset = 0.0;  ///< the unit's reading at internal zero
  int number = -1;      ///< of Unit::Units_t; -1 for a unit that the kind's catalogue has not
};

/// What a typed text means, or where and why it means nothing.
/// \threadsafety a value
struct QuantityReading {
  /// The numbers are those of QValidator::State.
  enum State_t : int {
    Invalid = 0,       ///< nothing typed behind it would make it a quantity
    Intermediate = 1,  ///< no quantity, but the beginning of one, or one beyond the limits
    Acceptable = 2,    ///< a quantity within the limits
  };
  State_t state = Invalid;  ///< what an editor's validator would return
  double value = std::numeric_limits<double>::quiet_NaN();  ///< in the internal unit; NaN if none
  UnitName unit;         ///< as typed, otherwise the one that was expected
  bool hasUnit = false;  ///< whether it was typed
  int position = -1;     ///< index of the first error, the text's length when something is missing
  QString reason;        ///< why not, a sentence in the user's language; empty for a quantity

  /// Whether value counts.
  bool isAcceptable() const { return state == Acceptable; }
};

/// How a user reads and writes the quantities of a kind: in which language, unit and precision.
///
/// The same object reads what it has written, to the same bits when it was set to setExact().
/// What can be read in two ways that differ is refused, never guessed. What is understood is
/// written down in docs/formats/quantities.md.
/// \code
/// const QuantityText lengths(uLength);                        // as the user's language has it
/// name = lengths.text(0.0125);                                // "0,0125 mm" in German
/// const QuantityReading typed = lengths.read(name);
/// if (typed.isAcceptable()) {
///   point = typed.value;
/// } else {
///   std::cerr << qPrintable(typed.reason) << " at " << typed.position << '\n';
/// }
/// \endcode
/// The validate() of an editor's QValidator returns QValidator::State(lengths.read(text).state).
/// \threadsafety a value; constant functions on any thread while nobody changes the kind's default
class KYR_EXPORT QuantityText {
 public:
  /// In the user's language, see userLocale(), and the kind's default unit, with all digits that
  /// mean something.
  /// \param kind lives at least as long as this
  explicit QuantityText(const Unit& kind);
  /// \param locale gives the separators of decimals and of groups
  QuantityText(const Unit& kind, const QLocale& locale);

  /// The unit to write, and to expect where none is typed; otherwise the kind's default.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  QuantityText& setUnit(Unit::Units_t unit);
  /// Writes in the unit of the same family, as micrometre, millimetre and metre, that leaves the
  /// fewest zeros: "12,5 µm" for "0,0125 mm".
  QuantityText& setAutomaticUnit(bool automatic = true);
  /// Writes this many decimals.
  QuantityText& setDecimals(unsigned decimals);
  /// Writes this many digits that mean something, at least those before the decimal separator.
  /// \param digits 1 to 17; others are brought there
  QuantityText& setSignificantDigits(unsigned digits);
  /// Writes as many digits as it takes to read the same bits; up to 31 where a unit has an offset.
  /// That holds for 0 and for magnitudes from 1e-190 to 1e190, in the internal unit; beyond them
  /// the last bits may differ in other units. Less than a millionth of a degree from internal zero
  /// that of Kelvin and Fahrenheit leaves not all bits.
  QuantityText& setExact();
  /// Separates groups of three digits before the decimal separator by narrow no-break spaces.
  QuantityText& setGrouping(bool grouping = true);
  /// Writes every number as "1.25e-3". Without it only those from 10^15 on are written so.
  QuantityText& setExponents(bool exponents = true);
  /// Reads sums, products and quotients as well, "3*12.5 mm + 2 in", of kinds whose units have no
  /// offset. Without it they are refused. Their grammar: docs/formats/quantities.md.
  QuantityText& setArithmetic(bool arithmetic = true);
  /// Limits of what is read, in the internal unit.
  QuantityText& setRange(double least, double most);

  /// The kind that the constructor was given.
  const Unit& kind() const { return *_kind; }

  /// The quantity with its unit: "12,5 mm", with a no-break space.
  /// \param value in the internal unit. Infinities and NaN are "inf" and "nan", which no reader
  /// takes
  QString text(double value) const;
  /// The number alone, in the unit of text().
  QString number(double value) const;
  /// The unit in which text() writes a value.
  Unit::Units_t unitFor(double value) const;
  /// The quantity that a text means, with the unit behind the number or the expected one.
  QuantityReading read(const QString& text) const;

  /// Finds a unit of a kind by any name that is understood, those of keyboards without "µ" and "²"
  /// included.
  /// \return whether there is one
  static bool findUnit(const Unit& kind, const QString& name, UnitName* unit);
  /// The names that are understood besides those of the kind's own list.
  static std::vector<UnitName> otherNames(const Unit& kind);

 private:
  enum class Digits_t : unsigned { Meaningful, Decimals, Significant, Exact };

  KYR_HIDDEN Unit::Units_t expectedUnit() const;
  KYR_HIDDEN QuantityReading reckoned(const QString& text, QuantityReading single) const;
  KYR_HIDDEN QString numberIn(double value, const UnitName& unit) const;
  KYR_HIDDEN QString textIn(double value, const UnitName& unit) const;

  const Unit* _kind;
  const UnitLinear* _linear;  // the kind; null for one with conversions of its own
  QChar _decimal;
  QChar _group;
  bool _grad_is_degree;  // as in German, where others mean a gon
  Unit::Units_t _unit = Unit::Millimetre;
  bool _unit_chosen = false;
  bool _automatic = false;
  bool _grouping = false;
  bool _exponents = false;
  bool _arithmetic = false;
  Digits_t _digits = Digits_t::Meaningful;
  unsigned _digit_count = 0;
  double _least = -std::numeric_limits<double>::infinity();
  double _most = std::numeric_limits<double>::infinity();
  // What later versions need besides.
  std::shared_ptr<void> _more;
};

}  // namespace Kyr
