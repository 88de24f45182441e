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
  /// something only together with its kind: 10 is a second, or a percentage per second.
  enum Units_t : int {
    Millimetre = 0,
    Micrometre = 1,
    Metre = 2,
    Inch = 3,
    Foot = 4,
    Celsius = 5,
    Kelvin = 6,
    Reaumur = 7,
    Fahrenheit = 8,
    Degree = 9,
    Second = 10,
    PercentPerSecond = 10,
    PercentPerSquareSecond = 10,
    Millisecond = 11,
    PercentPerMillisecond = 11,
    PercentPerSquareMillisecond = 11,
    Minute = 12,
    PercentPerMinute = 12,
    Hour = 13,
    PercentPerHour = 13,
    Megapascal = 14,
    Bar = 15,
    Pixel = 16,
    Microsecond = 17,
    Mil = 18,  ///< a thousandth of an inch
    MillimetrePerSecond = 19,
    MicrometrePerSecond = 20,
    MetrePerSecond = 21,
    FootPerSecond = 22,
    FootPerMinute = 23,
    KilometrePerHour = 24,
    MilePerHour = 25,
    MillimetrePerSquareSecond = 26,
    MicrometrePerSquareSecond = 27,
    MetrePerSquareSecond = 28,
    FootPerSquareSecond = 29,
    StrainPercent = 30,
    StrainPermille = 31,
    MicrometrePerMetre = 32,
    SquareMillimetre = 33,
    SquareMicrometre = 34,
    SquareMetre = 35,
    SquareInch = 36,
    SquareFoot = 37,
    SquareMil = 38,
    CubicMillimetre = 39,
    CubicMicrometre = 40,
    CubicMetre = 41,
    Litre = 42,
    CubicInch = 43,
    CubicFoot = 44,
    FractionPercent = 47,
    FractionPermille = 48,
    PerMillimetre = 49,
    PerMicrometre = 50,
    PerMetre = 51,
    PerInch = 52,
    PerFoot = 53,
    PerMil = 54,
    DegreePerSecond = 55,
    DegreePerMinute = 56,
    DegreePerHour = 57,
    DegreePerSquareSecond = 58,
    StandardGravity = 59,
    KelvinDifference = 60,
    CelsiusDifference = 61,
    FahrenheitDifference = 62,
    ReaumurDifference = 63,
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
  static std::map<const Unit*, QString>& unit_ids;

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
  static QString getID(const Unit* base, const QString& denominator);

  /// All living difference units by their identifiers.
  static std::map<QString, UnitDiff*>& diff_units;
};

}  // namespace Kyr
