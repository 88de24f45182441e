#include <kyr/units/KyrUnits.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>
#include <kyr/units/unit_kinds_p.h>

#include <cstring>
#include <new>

namespace Kyr {

namespace {

// The registries stand before the kinds in this one file, so that they are built first.
Forever<std::map<const Unit*, QString>> kindsRoom;
Forever<std::map<QString, UnitDiff*>> differencesRoom;

}  // namespace

std::map<const Unit*, QString>& Unit::unit_ids = kindsRoom.object;
std::map<QString, UnitDiff*>& UnitDiff::diff_units = differencesRoom.object;

namespace {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr const char* File = "kyr_unit";
constexpr unsigned Singleton = 601, Copy = 602;
}  // namespace site

struct Row {
  const char* kind;
  Unit::Units_t unit;
  const char* name;  // UTF-8
  double factor;
  double offset = 0.0;
};

// The first unit of a kind is its default. Some factors are rounded; values in files rely on
// them as they are: the mile of 1609.35 m, gravity of 9.81 m/s², the cubic foot of two decimals.
constexpr Row catalogue[] = {
    {"LENGTH", Unit::Millimetre, "mm", 1},
    {"LENGTH", Unit::Micrometre, "µm", 0.001},
    {"LENGTH", Unit::Metre, "m", 1000},
    {"LENGTH", Unit::Inch, "in", 25.4},
    {"LENGTH", Unit::Foot, "ft", 304.8},
    {"LENGTH", Unit::Mil, "mil", 0.0254},

    {"TEMPERATURE", Unit::Celsius, "°C", 1},
    {"TEMPERATURE", Unit::Kelvin, "K", 1, 273.15},
    {"TEMPERATURE", Unit::Reaumur, "°R", 1.25},
    {"TEMPERATURE", Unit::Fahrenheit, "°F", 5.0 / 9.0, 32},

    {"ANGLE", Unit::Degree, "deg", 3.14159265358979323846 / 180.0},

    {"TIME", Unit::Second, "s", 1},
    {"TIME", Unit::Millisecond, "ms", 0.001},
    {"TIME", Unit::Minute, "min", 60},
    {"TIME", Unit::Hour, "h", 3600},

    {"STRAIN", Unit::StrainPercent, "%", 1},
    {"STRAIN", Unit::StrainPermille, "‰", 0.1},
    {"STRAIN", Unit::MicrometrePerMetre, "µm/m", 0.0001},

    {"PRESSURE", Unit::Megapascal, "MPa", 1},
    {"PRESSURE", Unit::Bar, "bar", 0.1},

    {"SHUTTER", Unit::Second, "s", 1},
    {"SHUTTER", Unit::Millisecond, "ms", 0.001},
    {"SHUTTER", Unit::Microsecond, "µs", 1e-6},

    {"FIGURE", Unit::Millimetre, "mm", 1},
    {"FIGURE", Unit::Inch, "in", 25.4},
    {"FIGURE", Unit::Pixel, "pixel", 25.4 / UnitFigure::defaultDPI},

    {"VELOCITY", Unit::MillimetrePerSecond, "mm/s", 1},
    {"VELOCITY", Unit::MicrometrePerSecond, "µm/s", 0.001},
    {"VELOCITY", Unit::MetrePerSecond, "m/s", 1000},
    {"VELOCITY", Unit::FootPerSecond, "ft/s", 304.8},
    {"VELOCITY", Unit::FootPerMinute, "ft/min", 5.08},
    {"VELOCITY", Unit::KilometrePerHour, "km/h", 1000000.0 / 3600.0},
    {"VELOCITY", Unit::MilePerHour, "mile/h", 447.04166666666663},

    {"ACCELERATION", Unit::MillimetrePerSquareSecond, "mm/s²", 1},
    {"ACCELERATION", Unit::MicrometrePerSquareSecond, "µm/s²", 0.001},
    {"ACCELERATION", Unit::MetrePerSquareSecond, "m/s²", 1000},
    {"ACCELERATION", Unit::FootPerSquareSecond, "ft/s²", 304.8},
    {"ACCELERATION", Unit::StandardGravity, "g", 9810},

    {"STRAIN_VELOCITY", Unit::PercentPerSecond, "%/s", 1},
    {"STRAIN_VELOCITY", Unit::PercentPerMillisecond, "%/ms", 1000},
    {"STRAIN_VELOCITY", Unit::PercentPerMinute, "%/min", 1.0 / 60.0},
    {"STRAIN_VELOCITY", Unit::PercentPerHour, "%/h", 1.0 / 3600.0},

    {"STRAIN_ACCELERATION", Unit::PercentPerSquareSecond, "%/s²", 1},
    {"STRAIN_ACCELERATION", Unit::PercentPerSquareMillisecond, "%/ms²", 1000000},

    {"AREA", Unit::SquareMillimetre, "mm²", 1},
    {"AREA", Unit::SquareMicrometre, "µm²", 1e-6},
    {"AREA", Unit::SquareMetre, "m²", 1000000},
    {"AREA", Unit::SquareInch, "in²", 645.16},
    {"AREA", Unit::SquareFoot, "ft²", 92903.04},
    {"AREA", Unit::SquareMil, "mil²", 0.00064516},

    {"VOLUME", Unit::CubicMillimetre, "mm³", 1},
    {"VOLUME", Unit::CubicMicrometre, "µm³", 1e-9},
    {"VOLUME", Unit::CubicMetre, "m³", 1e9},
    {"VOLUME", Unit::Litre, "l", 1000000},
    {"VOLUME", Unit::CubicInch, "in³", 16387.064},
    {"VOLUME", Unit::CubicFoot, "ft³", 28316846.59},

    {"FRACTION", Unit::FractionPercent, "%", 0.01},
    {"FRACTION", Unit::FractionPermille, "‰", 0.001},

    {"CURVATURE", Unit::PerMillimetre, "/ mm", 1},
    {"CURVATURE", Unit::PerMicrometre, "/ µm", 1000},
    {"CURVATURE", Unit::PerMetre, "/ m", 0.001},
    {"CURVATURE", Unit::PerInch, "/ in", 1.0 / 25.4},
    {"CURVATURE", Unit::PerFoot, "/ ft", 1.0 / 304.8},
    {"CURVATURE", Unit::PerMil, "/ mil", 1.0 / 0.0254},

    {"ANGLE_VELOCITY", Unit::DegreePerSecond, "deg/s", 1},
    {"ANGLE_VELOCITY", Unit::DegreePerMinute, "deg/min", 1.0 / 60.0},
    {"ANGLE_VELOCITY", Unit::DegreePerHour, "deg/h", 1.0 / 3600.0},

    {"ANGLE_ACCELERATION", Unit::DegreePerSquareSecond, "deg/s²", 1},

    {"TEMPERATURE_DIFFERENCE", Unit::KelvinDifference, "K", 1},
    {"TEMPERATURE_DIFFERENCE", Unit::CelsiusDifference, "°C", 1},
    {"TEMPERATURE_DIFFERENCE", Unit::FahrenheitDifference, "°F", 5.0 / 9.0},
    {"TEMPERATURE_DIFFERENCE", Unit::ReaumurDifference, "°R", 1.25},
};

[[noreturn]] void refuseCopy(const char* constructor) {
  throw ProgError(constructor, site::File, site::Copy, "Do not copy this");
}

}  // namespace

void UnitLinear::buildSingleton(const Unit* singleton, const char* constructor,
                                const char* refusal) {
  if (this != singleton) {
    throw ProgError(constructor, site::File, site::Singleton, refusal);
  }
  const QByteArray kind = getID(this).toLatin1();
  const Row* first = nullptr;
  for (const Row& row : catalogue) {
    if (kind == row.kind) {
      addUnit(row.unit, QString::fromUtf8(row.name), row.factor, row.offset);
      first = first ? first : &row;
    }
  }
  setDefault(first->unit);
}

#define KYR_CONSTRUCTOR(Kind) "Kyr::" #Kind "::" #Kind
#define KYR_DEFINE(Kind, object, identifier)                                                  \
  Kind::Kind() : UnitLinear(identifier) {                                                     \
    buildSingleton(&(object), KYR_CONSTRUCTOR(Kind), "Do not instanciate, use " #object "!"); \
  }                                                                                           \
  Kind::Kind(const Kind& /*other*/) : UnitLinear(QString()) {                                 \
    refuseCopy(KYR_CONSTRUCTOR(Kind));                                                        \
  }                                                                                           \
  Kind::~Kind() = default;

KYR_UNIT_KINDS(KYR_DEFINE)

void UnitFigure::setDPI(unsigned dpi) {
  _dpi = dpi;
  setFactor(Pixel, 25.4 / dpi);
}

namespace {

/// Builds an object in its room of kyr_unit_rooms.cpp.
template <class Kind>
void build(Kind& room) {
  static_assert(sizeof(Kind) <= unitRoomSize);
  static_assert(alignof(Kind) <= unitRoomAlignment);
  ::new (static_cast<void*>(&room)) Kind;
}

#define KYR_BUILD(Kind, object, identifier) build(object);

struct BuildAtLoading {
  BuildAtLoading() { KYR_UNIT_KINDS(KYR_BUILD) }
};
const BuildAtLoading buildAtLoading;

using Kinds = std::vector<Unit*>;

void add(Kinds& kinds, std::initializer_list<Unit*> more) {
  kinds.insert(kinds.end(), more);
}

void addStrainAndMotion(Kinds& kinds) {
  add(kinds, {&uStrain, &uVelocity, &uStrainVelocity, &uAngleVelocity, &uAccel, &uStrainAccel,
              &uAngleAccel});
}

void addShape(Kinds& kinds) {
  add(kinds, {&uVolume, &uCurvature});
}

void addSpecial(Kinds& kinds, Application_t app) {
  switch (app) {
    case ApplicationSheetForming:
    case ApplicationMotion:
    case ApplicationDeformation:
    case ApplicationMaterialTest:
      addStrainAndMotion(kinds);
      break;
    case ApplicationTestRig:
    case ApplicationLargeStructure:
    case ApplicationProduction:
      addStrainAndMotion(kinds);
      addShape(kinds);
      break;
    case ApplicationInspection:
    case ApplicationSensor:
      addShape(kinds);
      break;
    default:
      break;
  }
}

}  // namespace

std::vector<Unit*> Unit::getCatalogue() {
#define KYR_ADDRESS(Kind, object, identifier) &(object),
  return {KYR_UNIT_KINDS(KYR_ADDRESS)};
}

std::vector<Unit*> Unit::getAvailableUnitsForApplication(Application_t app) {
  Kinds kinds{&uLength, &uTime, &uTemp, &uFigure, &uShutter, &uArea};
  addSpecial(kinds, app);
  kinds.push_back(&uAngle);
  return kinds;
}

}  // namespace Kyr
