/// \file
/// The units that a document prefers.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnit.h>

#include <QLocale>
#include <QString>
#include <QStringList>

#include <map>

namespace Kyr {

/// The units and decimals that a document prefers, kind by kind; the defaults of the process stay
/// as they are. As text: docs/formats/quantities.md.
/// \code
/// UnitSet units;
/// units.choose(uLength, Unit::Inch, 3);
/// name = units.texts(uLength).text(25.4);  // "1.000 in"
/// \endcode
/// \threadsafety a value; constant functions on any thread
class KYR_EXPORT UnitSet {
 public:
  static constexpr int allDigits = -1;  ///< all that mean something

  /// Prefers a unit of a kind, instead of an earlier one.
  /// \param decimals to show, at most 99, or allDigits
  /// \throws ProgError "wrong unit" when the kind has no such unit
  void choose(const Unit& kind, Unit::Units_t unit, int decimals = allDigits);
  /// Writes and reads quantities as preferred, otherwise in the kind's default unit; as the user's
  /// language has it.
  QuantityText texts(const Unit& kind) const;
  /// As above, with the separators of a locale.
  QuantityText texts(const Unit& kind, const QLocale& locale) const;

  /// The values of a line for each kind, as "LENGTH 3 2", in the order of their identifiers.
  QStringList toLines() const;
  /// Reads what toLines() writes. Kinds and units of another version of the library are kept, so
  /// that saving loses nothing.
  /// \throws Exception for any other line
  static UnitSet fromLines(const QStringList& lines);

 private:
  struct Choice {
    int unit;
    int decimals;
  };
  std::map<QString, Choice> _choices;  // by the identifiers of kinds
};

}  // namespace Kyr
