/// \file
/// The frame of the physical units: kinds of quantities, their units and conversions.
#pragma once

#include <kyr/core/KyrApplication.h>
#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace Kyr {

/// A kind of quantity, as length or temperature, with its units.
///
/// Programs hold every value in the kind's internal unit (millimetres, degrees Celsius, ...) and
/// use the kind to show it in the unit that the user has chosen, the default unit.
/// \code
/// uLength.setDefault(Unit::Inch);
/// const QString text = uLength.toString(25.4, 2) + ' ' + uLength.getName();  // "1.0000 in"
/// const double millimetres = uLength.from(2.5, Unit::Metre);                 // 2500
/// \endcode
/// \threadsafety set up and change defaults from one thread; conversions only read
class KYR_EXPORT Unit {
 public:
  /// Units of all kinds; the numbers are stored in settings and never change. A number means
  /// something only together with its kind: 10 is a second, or a percentage per second. Behind each
  /// stands its display name, and the identifiers of the kinds that have it.
  enum Units_t : int {
    Millimetre = 0,                    ///< "mm" of LENGTH and FIGURE
    Micrometre = 1,                    ///< "µm" of LENGTH
    Metre = 2,                         ///< "m" of LENGTH
    Inch = 3,                          ///< "in" of LENGTH and FIGURE
    Foot = 4,                          ///< "ft" of LENGTH
    Celsius = 5,                       ///< "°C" of TEMPERATURE
    Kelvin = 6,                        ///< "K" of TEMPERATURE
    Reaumur = 7,                       ///< "°R" of TEMPERATURE
    Fahrenheit = 8,                    ///< "°F" of TEMPERATURE
    Degree = 9,                        ///< "deg" of ANGLE
    Second = 10,                       ///< "s" of TIME and SHUTTER
    PercentPerSecond = 10,             ///< "%/s" of STRAIN_VELOCITY
    PercentPerSquareSecond = 10,       ///< "%/s²" of STRAIN_ACCELERATION
    Millisecond = 11,                  ///< "ms" of TIME and SHUTTER
    PercentPerMillisecond = 11,        ///< "%/ms" of STRAIN_VELOCITY
    PercentPerSquareMillisecond = 11,  ///< "%/ms²" of STRAIN_ACCELERATION
    Minute = 12,                       ///< "min" of TIME
    PercentPerMinute = 12,             ///< "%/min" of STRAIN_VELOCITY
    Hour = 13,                         ///< "h" of TIME
    PercentPerHour = 13,               ///< "%/h" of STRAIN_VELOCITY
    Megapascal = 14,                   ///< "MPa" of PRESSURE
    Bar = 15,                          ///< "bar" of PRESSURE
    Pixel = 16,                        ///< "pixel" of FIGURE
    Microsecond = 17,                  ///< "µs" of SHUTTER
    Mil = 18,                          ///< "mil" of LENGTH, a thousandth of an inch
    MillimetrePerSecond = 19,          ///< "mm/s" of VELOCITY
    MicrometrePerSecond = 20,          ///< "µm/s" of VELOCITY
    MetrePerSecond = 21,               ///< "m/s" of VELOCITY
    FootPerSecond = 22,                ///< "ft/s" of VELOCITY
    FootPerMinute = 23,                ///< "ft/min" of VELOCITY
    KilometrePerHour = 24,             ///< "km/h" of VELOCITY
    MilePerHour = 25,                  ///< "mile/h" of VELOCITY
    MillimetrePerSquareSecond = 26,    ///< "mm/s²" of ACCELERATION
    MicrometrePerSquareSecond = 27,    ///< "µm/s²" of ACCELERATION
    MetrePerSquareSecond = 28,         ///< "m/s²" of ACCELERATION
    FootPerSquareSecond = 29,          ///< "ft/s²" of ACCELERATION
    StrainPercent = 30,                ///< "%" of STRAIN
    StrainPermille = 31,               ///< "‰" of STRAIN
    MicrometrePerMetre = 32,           ///< "µm/m" of STRAIN
    SquareMillimetre = 33,             ///< "mm²" of AREA
    SquareMicrometre = 34,             ///< "µm²" of AREA
    SquareMetre = 35,                  ///< "m²" of AREA
    SquareInch = 36,                   ///< "in²" of AREA
    SquareFoot = 37,                   ///< "ft²" of AREA
    SquareMil = 38,                    ///< "mil²" of AREA
    CubicMillimetre = 39,              ///< "mm³" of VOLUME
    CubicMicrometre = 40,              ///< "µm³" of VOLUME
    CubicMetre = 41,                   ///< "m³" of VOLUME
    Litre = 42,                        ///< "l" of VOLUME
    CubicInch = 43,                    ///< "in³" of VOLUME
    CubicFoot = 44,                    ///< "ft³" of VOLUME
    FractionPercent = 47,              ///< "%" of FRACTION
    FractionPermille = 48,             ///< "‰" of FRACTION
    PerMillimetre = 49,                ///< "/ mm" of CURVATURE
    PerMicrometre = 50,                ///< "/ µm" of CURVATURE
    PerMetre = 51,                     ///< "/ m" of CURVATURE
    PerInch = 52,                      ///< "/ in" of CURVATURE
    PerFoot = 53,                      ///< "/ ft" of CURVATURE
    PerMil = 54,                       ///< "/ mil" of CURVATURE
    DegreePerSecond = 55,              ///< "deg/s" of ANGLE_VELOCITY
    DegreePerMinute = 56,              ///< "deg/min" of ANGLE_VELOCITY
    DegreePerHour = 57,                ///< "deg/h" of ANGLE_VELOCITY
    DegreePerSquareSecond = 58,        ///< "deg/s²" of ANGLE_ACCELERATION
    StandardGravity = 59,              ///< "g" of ACCELERATION
    KelvinDifference = 60,             ///< "K" of TEMPERATURE_DIFFERENCE
    CelsiusDifference = 61,            ///< "°C" of TEMPERATURE_DIFFERENCE
    FahrenheitDifference = 62,         ///< "°F" of TEMPERATURE_DIFFERENCE
    ReaumurDifference = 63,            ///< "°R" of TEMPERATURE_DIFFERENCE
  };

  /// Leaves the registry of kinds.
  virtual ~Unit();

  /// Converts a value between two units.
  /// \throws ProgError "wrong unit 1" when the kind has no unit \a from, "wrong unit 2" when it
  ///         has no unit \a to
  virtual double to(double value, Units_t from, Units_t to) const = 0;
  /// Converts a value from the internal unit to \a unit.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  virtual double to(double value, Units_t unit) const = 0;
  /// Converts a value from the internal unit to the default unit.
  virtual double to(double value) const = 0;
  /// Converts a value from \a unit to the internal unit.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  virtual double from(double value, Units_t unit) const = 0;
  /// Converts a value from the default unit to the internal unit.
  virtual double from(double value) const = 0;

  /// As the next one, for a value that is in the unit \a from. Override all three with const:
  /// without it a class has a function of its own, which nobody calls.
  /// \param digits decimals of the unit \a from
  /// \throws ProgError "wrong unit 1" when the kind has no unit \a from, "wrong unit 2" when it
  ///         has no unit \a to
  virtual QString toString(double value, unsigned digits, Units_t from, Units_t to) const;
  /// Text of a value in \a unit, with the decimals that show what \a digits decimals of the
  /// internal unit show. Without the unit's name; the same under every locale.
  ///
  /// From ten million on the text is in exponent notation. Where a step of the last decimal is
  /// lost in the value's rounding, or the value is no number, the decimals are not adapted.
  /// \param value in the internal unit
  /// \param digits decimals of the internal unit
  /// \throws ProgError "wrong unit" when the kind has no such unit
  virtual QString toString(double value, unsigned digits, Units_t unit) const;
  /// As above, in the default unit.
  virtual QString toString(double value, unsigned digits) const;

  /// The display name of a unit, as "µm". Override with const.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  virtual QString getUName(Units_t unit) const = 0;
  /// Finds a unit by its display name, upper and lower case distinguished.
  /// \param unit receives the unit; untouched when there is none
  /// \return whether there is one
  virtual bool getUnitByName(const QString& name, Units_t* unit) const = 0;
  /// The units of the kind in the order of their numbers. Override with const.
  virtual std::vector<Units_t> getUnits() const = 0;
  /// Chooses the unit in which users see the kind's values; for the whole process.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  virtual void setDefault(Units_t unit);
  /// The unit's factor brought to between 0.5 and 5 by powers of ten, with which editors scale
  /// the step of their spin boxes. 1 for a factor that no power of ten brings there.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  virtual double getStepAdjustmentFactor(Units_t unit) const;

  /// The display name of the default unit.
  QString getName() const { return _name; }
  /// The default unit.
  Units_t getDefault() const { return _default; }

  /// The identifier of a kind, as "LENGTH", for files and settings.
  /// \return "NO_UNIT" for null
  /// \throws ProgError "unknown unit instance" for a pointer to anything but a living kind
  static QString getID(const Unit* unit);
  /// The kind with an identifier; a difference unit is created when there is none yet.
  /// \return null for "NO_UNIT"
  /// \throws ProgError "unknown unit identifier"
  static const Unit* getUnit(QString id);
  /// All kinds of the library's catalogue, in its order.
  static std::vector<Unit*> getCatalogue();
  /// The kinds that an application offers to its users, in the order of its menus.
  static std::vector<Unit*> getAvailableUnitsForApplication(Application_t app);
  /// The unit of thermal expansion coefficients, which are no kind of their own.
  static QString getExpCoeffUnitAsAscii();
  /// That unit as HTML.
  static QString getExpCoeffUnitAsHtml();

 protected:
  /// Enters the registry of kinds.
  explicit Unit(const QString& id);
  /// A second object of the same kind: copies the default unit and its name, and enters the
  /// registry under the same identifier.
  Unit(const Unit& other);
  /// Copies the default unit and its name; this object keeps its identifier.
  Unit& operator=(const Unit& other);
  /// Sets the display name of the default unit.
  void setName(const QString& name) { _name = name; }

 private:
  friend class UnitDiff;
  /// Identifiers of all living kinds.
  KYR_HIDDEN static std::map<const Unit*, QString>& unit_ids;

  Units_t _default = Millimetre;
  QString _name;
};

/// A kind whose units are linear maps of the internal unit.
///
/// A value v in the internal unit is v / factor + offset in the unit: the factor counts internal
/// units in one unit, the offset is the unit's reading at internal zero.
/// \threadsafety as Unit
class KYR_EXPORT UnitLinear : public Unit {
 public:
  ~UnitLinear() override;
  UnitLinear(const UnitLinear&) = delete;
  UnitLinear& operator=(const UnitLinear&) = delete;

  double to(double value, Units_t from, Units_t to) const override;
  double to(double value, Units_t unit) const override;
  double to(double value) const override;
  double from(double value, Units_t unit) const override;
  double from(double value) const override;
  QString toString(double value, unsigned digits, Units_t from, Units_t to) const override;
  QString toString(double value, unsigned digits, Units_t unit) const override;
  QString toString(double value, unsigned digits) const override;
  QString getUName(Units_t unit) const override;
  bool getUnitByName(const QString& name, Units_t* unit) const override;
  std::vector<Units_t> getUnits() const override;
  void setDefault(Units_t unit) override;
  double getStepAdjustmentFactor(Units_t unit) const override;

  /// Decimals that the unit needs more (positive) or fewer (negative) than the internal unit to
  /// show the same step: 3 for micrometres, -3 for metres.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  int digitDifferenceToInternal(Units_t unit) const;
  /// Internal units in one of the unit.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  double getFactor(Units_t unit) const;
  /// The unit's reading at internal zero.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  double getOffset(Units_t unit) const;

 protected:
  /// A kind without units yet.
  explicit UnitLinear(const QString& id);
  /// Fills a kind of the library's catalogue and chooses its first unit as default.
  /// \param singleton the only object that may be this kind
  /// \param constructor, refusal function and message of the ProgError for any other
  void buildSingleton(const Unit* singleton, const char* constructor, const char* refusal);
  /// Adds a unit, or replaces it.
  /// \throws ProgError "wrong unit" for a number outside the enumeration
  void addUnit(Units_t unit, const QString& name, double factor, double offset);
  /// Changes a unit's factor, and the default's when both have the same display name.
  /// \throws ProgError "wrong unit" when the kind has no such unit
  void setFactor(Units_t unit, double factor);

 private:
  struct Entry {
    QString name;
    double factor;
    double offset;
  };
  using Table = std::map<Units_t, Entry>;
  static constexpr std::size_t unitLimit = 64;

  const Entry* find(Units_t unit) const;

  const std::unique_ptr<Table> _units;
  std::array<const Entry*, unitLimit> _entries{};  // into _units, by number; null where none
  double _factor = 1.0;
  double _offset = 0.0;
  // Programs know where a derived kind's own fields are: the size stays as it was.
  [[maybe_unused]] const double _reserved = 0.0;
};

/// A kind that another kind divided by something else makes, as length per "s".
///
/// Made on request by getUnit() and owned by the class's registry until clearUnits().
/// \threadsafety one thread at a time for the static functions; the objects as Unit
class KYR_EXPORT UnitDiff : public UnitLinear {
 public:
  /// Makes and registers the unit; use getUnit(), which does so once only. The registry owns the
  /// object, which may however be deleted by whoever made it.
  ///
  /// An offset here is the base unit's zero in the internal unit, not the reading at internal
  /// zero; stored values depend on it.
  /// \param base a living kind
  /// \param denominator follows the names of the base's units after a slash; may be empty
  /// \throws ProgError "multiple instance of diff unit" when there is one of this pair,
  ///         "unknown unit instance" when \a base is no kind
  UnitDiff(const Unit* base, const QString& denominator);
  ~UnitDiff() override;

  /// The difference unit of a base and a denominator, created on first request.
  static const Unit* getUnit(const Unit* base, const QString& denominator);
  /// The difference unit with an identifier, created on first request. Of two kinds that could
  /// be the base, as STRAIN and STRAIN_VELOCITY, the one with the longer identifier is.
  /// \return null when \a id is of another form or names no living kind
  static const Unit* getUnit(const QString& id);
  /// Deletes all difference units; pointers to them are invalid afterwards.
  static void clearUnits();

 private:
  UnitDiff(const UnitDiff& other);
  KYR_HIDDEN static QString getID(const Unit* base, const QString& denominator);

  /// All living difference units by their identifiers.
  KYR_HIDDEN static std::map<QString, UnitDiff*>& diff_units;
};

}  // namespace Kyr
