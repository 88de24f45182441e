#include <kyr/units/unit_names_p.h>

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Kyr {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double degree = pi / 180.0;

/// Names separated by blanks, with the characters of every keyboard.
struct Names {
  const char* kind;
  const char* names;
  double factor;
  int number = -1;
  double offset = 0.0;
};

constexpr Names known(const char* kind, const char* names, Unit::Units_t unit) {
  return {kind, names, 0.0, unit};
}

// A name of four small letters or more is understood with capitals too, see isWord().
constexpr Names otherNamesTable[] = {
    known("LENGTH", "millimeter millimetre millimeters millimetres", Unit::Millimetre),
    known("LENGTH", "micron microns micrometer micrometre", Unit::Micrometre),
    known("LENGTH", "meter metre meters metres", Unit::Metre),
    known("LENGTH", "inch inches zoll \" ''", Unit::Inch),
    known("LENGTH", "foot feet '", Unit::Foot),
    known("LENGTH", "mils thou", Unit::Mil),
    {"LENGTH", "nm nanometer nanometre", 1e-6},
    {"LENGTH", "cm centimeter centimetre zentimeter", 10.0},
    {"LENGTH", "dm decimeter decimetre dezimeter", 100.0},
    {"LENGTH", "km kilometer kilometre", 1e6},
    {"LENGTH", "yd yard yards", 914.4},
    known("TEMPERATURE", "C celsius degcelsius gradcelsius", Unit::Celsius),
    known("TEMPERATURE", "kelvin", Unit::Kelvin),
    known("TEMPERATURE", "F fahrenheit degfahrenheit gradfahrenheit", Unit::Fahrenheit),
    known("TEMPERATURE", "degRe reaumur", Unit::Reaumur),
    known("TEMPERATURE_DIFFERENCE", "kelvin", Unit::KelvinDifference),
    known("TEMPERATURE_DIFFERENCE", "C celsius", Unit::CelsiusDifference),
    known("TEMPERATURE_DIFFERENCE", "F fahrenheit", Unit::FahrenheitDifference),
    {"TEMPERATURE_DIFFERENCE", "mK", 0.001},
    known("ANGLE", "degree degrees", Unit::Degree),
    {"ANGLE", "rad radian radians", 1.0},
    {"ANGLE", "mrad", 0.001},
    {"ANGLE", "urad", 1e-6},
    {"ANGLE", "gon grad gradian gradians", pi / 200.0},
    {"ANGLE", "' arcmin", degree / 60.0},
    {"ANGLE", "\" '' arcsec", degree / 3600.0},
    known("TIME", "sec second seconds", Unit::Second),
    known("TIME", "msec", Unit::Millisecond),
    known("TIME", "minute minutes", Unit::Minute),
    known("TIME", "hr hour hours", Unit::Hour),
    {"TIME", "us", 1e-6},
    {"TIME", "ns", 1e-9},
    {"TIME", "d day days", 86400.0},
    known("STRAIN", "percent", Unit::StrainPercent),
    known("STRAIN", "ppm microstrain ustrain", Unit::MicrometrePerMetre),
    known("STRAIN", "mm/m", Unit::StrainPermille),
    {"STRAIN", "mm/mm m/m", 100.0},
    known("PRESSURE", "N/mm2", Unit::Megapascal),
    {"PRESSURE", "Pa pascal", 1e-6},
    {"PRESSURE", "hPa mbar", 1e-4},
    {"PRESSURE", "kPa", 0.001},
    {"PRESSURE", "GPa", 1000.0},
    {"PRESSURE", "psi lbf/in2", 0.0068947572931683613},
    {"PRESSURE", "ksi", 6.8947572931683613},
    {"PRESSURE", "atm", 0.101325},
    known("SHUTTER", "sec second seconds", Unit::Second),
    known("SHUTTER", "msec", Unit::Millisecond),
    known("SHUTTER", "usec", Unit::Microsecond),
    {"SHUTTER", "ns", 1e-9},
    known("FIGURE", "inch inches zoll \" ''", Unit::Inch),
    known("FIGURE", "px pixels", Unit::Pixel),
    {"FIGURE", "cm", 10.0},
    {"FIGURE", "m", 1000.0},
    known("VELOCITY", "kph", Unit::KilometrePerHour),
    known("VELOCITY", "mph mi/h", Unit::MilePerHour),
    {"VELOCITY", "cm/s", 10.0},
    {"VELOCITY", "in/s", 25.4},
    {"VELOCITY", "mm/min", 1.0 / 60.0},
    {"VELOCITY", "m/min", 1000.0 / 60.0},
    {"ACCELERATION", "cm/s2", 10.0},
    {"ACCELERATION", "in/s2", 25.4},
    {"AREA", "cm2", 100.0},
    {"AREA", "dm2", 10000.0},
    {"AREA", "km2", 1e12},
    known("AREA", "sqin", Unit::SquareInch),
    known("AREA", "sqft", Unit::SquareFoot),
    known("VOLUME", "L dm3 liter litre liters litres", Unit::Litre),
    {"VOLUME", "ul", 1.0},
    {"VOLUME", "cm3 ccm cc ml mL", 1000.0},
    {"VOLUME", "cl", 10000.0},
    {"VOLUME", "dl", 100000.0},
    known("FRACTION", "percent", Unit::FractionPercent),
    {"FRACTION", "ppm", 1e-6},
    known("CURVATURE", "mm-1", Unit::PerMillimetre),
    known("CURVATURE", "um-1", Unit::PerMicrometre),
    known("CURVATURE", "m-1", Unit::PerMetre),
    known("CURVATURE", "in-1", Unit::PerInch),
    known("CURVATURE", "ft-1", Unit::PerFoot),
    {"CURVATURE", "/cm cm-1", 0.1},
    {"ANGLE_VELOCITY", "rad/s", 180.0 / pi},
    {"ANGLE_VELOCITY", "rpm", 6.0},
    {"ANGLE_ACCELERATION", "rad/s2", 180.0 / pi},
};

/// All spellings of a name lead to the same text: "mm²", "mm^2" and "㎟", both letters "µ".
QString reduced(QString name) {
  const struct {
    ushort from;
    const char* to;
  } spellings[] = {{0x2032, "'"},  {0x2019, "'"},  {0xB4, "'"},   {0x2033, "\""},
                   {0x201D, "\""}, {0x201C, "\""}, {0xBA, "deg"}, {0x2030, "permille"}};
  for (const auto& spelling : spellings) {
    name.replace(QChar(spelling.from), QLatin1String(spelling.to));
  }
  name = name.normalized(QString::NormalizationForm_KC);
  const struct {
    ushort from;
    const char* to;
  } plain[] = {{0x3BC, "u"}, {0xB0, "deg"}, {0x2212, "-"}, {'^', ""}, {' ', ""}};
  for (const auto& spelling : plain) {
    name.replace(QChar(spelling.from), QLatin1String(spelling.to));
  }
  return name.startsWith(QLatin1String("1/")) ? name.mid(1) : name;
}

/// A word, which may be written with capitals; "grad" may not: "Grad" are degrees in German. Nor
/// may "mbar": "Mbar" are millions of bar, not thousandths.
bool isWord(const QString& name) {
  constexpr int shortest = 4;
  const QString others[] = {"grad", "mbar", "mrad", "msec"};
  const auto isSmall = [](QChar sign) {
    return sign >= QLatin1Char('a') && sign <= QLatin1Char('z');
  };
  return name.size() >= shortest && std::all_of(name.begin(), name.end(), isSmall) &&
         std::find(std::begin(others), std::end(others), name) == std::end(others);
}

UnitName meant(const KnownKind& kind, const Names& row, const QString& name) {
  if (row.number < 0) {
    return {name, row.factor, row.offset, -1};
  }
  UnitName unit = ownUnit(kind, static_cast<Unit::Units_t>(row.number));
  unit.name = name;
  return unit;
}

/// Calls visit(name, row) for the other names of a kind until it says true.
template <class Visit>
bool visitOtherNames(const KnownKind& kind, Visit visit) {
  const QByteArray id = Unit::getID(&kind.kind).toLatin1();
  for (const Names& row : otherNamesTable) {
    if (id != row.kind) {
      continue;
    }
    for (const QString& name : QString::fromLatin1(row.names).split(' ')) {
      if (visit(name, row)) {
        return true;
      }
    }
  }
  return false;
}

bool hasOwnConversion(const KnownKind& kind, const UnitName& unit) {
  return unit.number >= 0 && !kind.linear;
}

}  // namespace

UnitName ownUnit(const KnownKind& kind, Unit::Units_t unit) {
  UnitName result{kind.kind.getUName(unit), 1.0, 0.0, unit};
  if (kind.linear) {
    result.factor = kind.linear->getFactor(unit);
    result.offset = kind.linear->getOffset(unit);
  }
  return result;
}

bool findUnit(const KnownKind& kind, const QString& name, UnitName* unit) {
  Unit::Units_t number;
  if (kind.kind.getUnitByName(name, &number)) {
    *unit = ownUnit(kind, number);
    return true;
  }
  const QString wanted = reduced(name);
  for (const Unit::Units_t candidate : kind.kind.getUnits()) {
    if (reduced(kind.kind.getUName(candidate)) == wanted) {
      *unit = ownUnit(kind, candidate);
      return true;
    }
  }
  const QString small = wanted.toLower();
  return visitOtherNames(kind, [&](const QString& known, const Names& row) {
    const bool found = known == wanted || (isWord(known) && known == small);
    if (found) {
      *unit = meant(kind, row, known);
    }
    return found;
  });
}

bool QuantityText::findUnit(const Unit& kind, const QString& name, UnitName* unit) {
  return Kyr::findUnit(KnownKind(kind), name, unit);
}

std::vector<UnitName> QuantityText::otherNames(const Unit& kind) {
  std::vector<UnitName> names;
  const KnownKind known(kind);
  visitOtherNames(known, [&](const QString& name, const Names& row) {
    names.push_back(meant(known, row, name));
    return false;
  });
  return names;
}

bool beginsUnitName(const KnownKind& kind, const QString& begin) {
  const QString reducedBegin = reduced(begin);
  const QString wanted = reducedBegin == QLatin1String("1") ? QStringLiteral("/") : reducedBegin;
  const auto units = kind.kind.getUnits();
  return std::any_of(units.begin(), units.end(),
                     [&](Unit::Units_t unit) {
                       return reduced(kind.kind.getUName(unit)).startsWith(wanted);
                     }) ||
         visitOtherNames(kind, [&](const QString& name, const Names& /*row*/) {
           return name.startsWith(isWord(name) ? wanted.toLower() : wanted);
         });
}

double toInternal(const KnownKind& kind, const UnitName& unit, Exact::Pair reading) {
  if (hasOwnConversion(kind, unit)) {
    return kind.kind.from(reading.high, static_cast<Unit::Units_t>(unit.number));
  }
  if (unit.factor == 1.0 && unit.offset == 0.0) {
    return reading.high;
  }
  if (reading.low == 0.0 || !Exact::isSafe(reading.high)) {
    return (reading.high - unit.offset) * unit.factor;
  }
  const Exact::Pair value = Exact::times(Exact::plus(reading, -unit.offset), unit.factor);
  return value.high;
}

Exact::Pair toReading(const KnownKind& kind, const UnitName& unit, double value) {
  if (hasOwnConversion(kind, unit)) {
    return {kind.kind.to(value, static_cast<Unit::Units_t>(unit.number)), 0.0};
  }
  if (!Exact::isSafe(value)) {
    return {value / unit.factor + unit.offset, 0.0};
  }
  return Exact::plus(Exact::over({value, 0.0}, {unit.factor, 0.0}), unit.offset);
}

}  // namespace Kyr
