/// \file
/// What readers and writers of quantities share.
#pragma once

#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/exact_p.h>

namespace Kyr {

/// The text of QString::number(value, 'f', decimals), made faster and with another separator.
QString fixedText(double value, long long decimals, QChar separator = QLatin1Char('.'));

/// A kind, and what it is in the usual case: to ask each time takes longer than to convert.
struct KnownKind {
  explicit KnownKind(const Unit& itsKind)
      : KnownKind(itsKind, dynamic_cast<const UnitLinear*>(&itsKind)) {}
  KnownKind(const Unit& itsKind, const UnitLinear* itself) : kind(itsKind), linear(itself) {}
  const Unit& kind;
  const UnitLinear* const linear;  // null for one with conversions of its own
};

/// A unit of the kind's own list.
/// \throws ProgError "wrong unit"
UnitName ownUnit(const KnownKind& kind, Unit::Units_t unit);

/// As QuantityText::findUnit().
bool findUnit(const KnownKind& kind, const QString& name, UnitName* unit);

/// Whether a name that is understood begins with this one.
bool beginsUnitName(const KnownKind& kind, const QString& begin);

/// A reading in the unit as internal value; as Unit::from() unless it has more than a double.
double toInternal(const KnownKind& kind, const UnitName& unit, Exact::Pair reading);
/// An internal value as reading in the unit.
Exact::Pair toReading(const KnownKind& kind, const UnitName& unit, double value);

}  // namespace Kyr
