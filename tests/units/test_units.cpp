#include "support/Support.h"

#include <kyr/units/KyrUnits.h>

namespace {

using namespace Kyr;
using namespace KyrTest;
using Units_t = Unit::Units_t;

template <class Kind>
void second() {
  static_assert(!std::is_copy_constructible_v<Kind>);
  const Kind kind;
}

struct Singleton {
  Unit* unit;
  const char* kind;
  unsigned units;
  int first;
  const char* name;
  const char* type;
  void (*second)();
};

const Singleton singletons[] = {
    {&uLength, "LENGTH", 6, 0, "uLength", "UnitLength", second<UnitLength>},
    {&uTemp, "TEMPERATURE", 4, 5, "uTemp", "UnitTemp", second<UnitTemp>},
    {&uAngle, "ANGLE", 1, 9, "uAngle", "UnitAngle", second<UnitAngle>},
    {&uTime, "TIME", 4, 10, "uTime", "UnitTime", second<UnitTime>},
    {&uStrain, "STRAIN", 3, 30, "uStrain", "UnitStrain", second<UnitStrain>},
    {&uPress, "PRESSURE", 2, 14, "uPress", "UnitPress", second<UnitPress>},
    {&uShutter, "SHUTTER", 3, 10, "uShutter", "UnitShutter", second<UnitShutter>},
    {&uFigure, "FIGURE", 3, 0, "uFigure", "UnitFigure", second<UnitFigure>},
    {&uVelocity, "VELOCITY", 7, 19, "uVelocity", "UnitVelocity", second<UnitVelocity>},
    {&uAccel, "ACCELERATION", 5, 26, "uAccel", "UnitAcceleration", second<UnitAcceleration>},
    {&uStrainVelocity, "STRAIN_VELOCITY", 4, 10, "uStrainVelocity", "UnitStrainVelocity",
     second<UnitStrainVelocity>},
    {&uStrainAccel, "STRAIN_ACCELERATION", 2, 10, "uStrainAccel", "UnitStrainAcceleration",
     second<UnitStrainAcceleration>},
    {&uArea, "AREA", 6, 33, "uArea", "UnitArea", second<UnitArea>},
    {&uVolume, "VOLUME", 6, 39, "uVolume", "UnitVolume", second<UnitVolume>},
    {&uFraction, "FRACTION", 2, 47, "uFraction", "UnitFraction", second<UnitFraction>},
    {&uCurvature, "CURVATURE", 6, 49, "uCurvature", "UnitCurvature", second<UnitCurvature>},
    {&uAngleVelocity, "ANGLE_VELOCITY", 3, 55, "uAngleVelocity", "UnitAngleVelocity",
     second<UnitAngleVelocity>},
    {&uAngleAccel, "ANGLE_ACCELERATION", 1, 58, "uAngleAccel", "UnitAngleAcceleration",
     second<UnitAngleAcceleration>},
    {&uTempDifference, "TEMPERATURE_DIFFERENCE", 4, 60, "uTempDifference", "UnitTempDifference",
     second<UnitTempDifference>},
};

Units_t number(int value) {
  return static_cast<Units_t>(value);
}

TEST(Catalogue, EveryUnitConvertsByItsFactorAndOffset) {
  const QStringList rows = QString(KyrTest::readFile(KYR_CATALOGUE)).split('\n').mid(1);
  ASSERT_EQ(rows.size(), 72 + 1);
  for (const QString& row : rows.mid(0, 72)) {
    const std::string text = row.toStdString();  // no trace: its thread outlives a test on Windows
    const QStringList field = row.split('\t');
    const Unit* const kind = Unit::getUnit(field[0]);
    const Units_t unit = number(field[1].toInt());
    const double factor = field[3].toDouble(), offset = field[4].toDouble();
    EXPECT_EQ(kind->getUName(unit), field[2]) << text;
    for (const double value : {-40.0, 0.0, 1.0, 12345.678}) {
      EXPECT_EQ(static_cast<const UnitLinear*>(kind)->getFactor(unit), factor) << text;
      EXPECT_EQ(static_cast<const UnitLinear*>(kind)->getOffset(unit), offset) << text;
      EXPECT_EQ(kind->to(value, unit), value / factor + offset) << text;
      EXPECT_EQ(kind->from(value, unit), (value - offset) * factor) << text;
      EXPECT_NEAR(kind->from(kind->to(value, unit), unit), value, 1e-9) << text;
    }
  }
}

TEST(Catalogue, KindsHaveTheirIdentifierUnitsAndDefault) {
  std::vector<Unit*> all;
  for (const Singleton& kind : singletons) {
    all.push_back(kind.unit);
  }
  EXPECT_EQ(Unit::getCatalogue(), all);
  for (const Singleton& kind : singletons) {
    const auto units = kind.unit->getUnits();
    EXPECT_EQ(Unit::getID(kind.unit), kind.kind) << kind.kind;
    EXPECT_EQ(Unit::getUnit(kind.kind), kind.unit) << kind.kind;
    EXPECT_EQ(units.size(), kind.units) << kind.kind;
    EXPECT_TRUE(std::is_sorted(units.begin(), units.end())) << kind.kind;
    EXPECT_EQ(kind.unit->getDefault(), number(kind.first)) << kind.kind;
    EXPECT_EQ(kind.unit->getName(), kind.unit->getUName(number(kind.first))) << kind.kind;
    EXPECT_EQ(kind.unit->to(3.0), kind.unit->to(3.0, number(kind.first))) << kind.kind;
  }
}

TEST(Catalogue, StepFactorsBringTheFactorBetweenAHalfAndFive) {
  const std::tuple<Unit*, Units_t, double> rows[] = {{&uLength, Unit::Foot, 3.048},
                                                     {&uTemp, Unit::Fahrenheit, 5.0 / 9.0},
                                                     {&uAngle, Unit::Degree, 1.7453292519943295},
                                                     {&uTime, Unit::Hour, 3.6},
                                                     {&uVolume, Unit::CubicMicrometre, 1.0}};
  for (const auto& [kind, unit, step] : rows) {
    EXPECT_DOUBLE_EQ(kind->getStepAdjustmentFactor(unit), step) << step;
  }
}

TEST(Catalogue, ConvertsBetweenUnitsOfKindsThatShareNumbers) {
  EXPECT_EQ(uTemp.to(20.0, Unit::Kelvin), 293.15);
  EXPECT_DOUBLE_EQ(uTemp.to(212.0, Unit::Fahrenheit, Unit::Reaumur), 80.0);
  EXPECT_DOUBLE_EQ(uLength.to(2.0, Unit::Foot, Unit::Inch), 24.0);
  EXPECT_EQ(uStrainAccel.from(1.0, Unit::PercentPerSquareMillisecond), 1e6);
  EXPECT_DOUBLE_EQ(uAngle.to(std::acos(-1.0)), 180.0);
  EXPECT_NEAR(uTempDifference.to(0.65, Unit::FahrenheitDifference), 1.17, 1e-15) << "not 33.17";
  Units_t unit = Unit::Bar;
  EXPECT_TRUE(uFraction.getUnitByName("%", &unit));
  EXPECT_EQ(unit, 47);
  EXPECT_FALSE(uLength.getUnitByName("MM", &unit));
  EXPECT_EQ(unit, 47) << "a failed search leaves the unit alone";
}

TEST(Catalogue, TheFigureKindFollowsItsResolution) {
  uFigure.setDefault(Unit::Pixel);
  uFigure.setDPI(300);
  EXPECT_EQ(uFigure.getDPI(), 300U);
  EXPECT_EQ(uFigure.from(1.0, Unit::Pixel), 25.4 / 300);
  EXPECT_EQ(uFigure.from(1.0), 25.4 / 300) << "the default's copy of the factor follows";
  uFigure.setDefault(Unit::Inch);
  uFigure.setDPI(72);
  EXPECT_EQ(uFigure.from(1.0), 25.4) << "another default keeps its own factor";
  uFigure.setDefault(Unit::Millimetre);
  uFigure.setDPI(0);
  EXPECT_EQ(uFigure.getStepAdjustmentFactor(Unit::Pixel), 1.0) << "no endless loop";
  EXPECT_EQ(uFigure.digitDifferenceToInternal(Unit::Pixel), 0);
  uFigure.setDPI(72);
}

TEST(Catalogue, ApplicationsOfferTheirKinds) {
  const char* const strain =
      "STRAIN VELOCITY STRAIN_VELOCITY ANGLE_VELOCITY ACCELERATION "
      "STRAIN_ACCELERATION ANGLE_ACCELERATION ";
  const char* const shape = "VOLUME CURVATURE ";
  const std::tuple<std::vector<int>, QString> rows[] = {{{0, 1, 4, 5}, strain},
                                                        {{6, 10, 11}, QString(strain) + shape},
                                                        {{2, 9}, shape},
                                                        {{3, 7, 8, 12, -1}, ""}};
  for (const auto& [applications, special] : rows) {
    for (const int application : applications) {
      QString offered;
      for (Unit* unit : Unit::getAvailableUnitsForApplication(Application_t(application))) {
        offered += Unit::getID(unit) + " ";
      }
      EXPECT_EQ(offered, "LENGTH TIME TEMPERATURE FIGURE SHUTTER AREA " + special + "ANGLE ")
          << application;
    }
  }
}

TEST(Text, DecimalsFollowTheUnit) {
  const double infinity = std::numeric_limits<double>::infinity();
  const struct {
    Unit* kind;
    double value;
    unsigned digits;
    Units_t unit;
    const char* text;
    const char* fault;
  } rows[] = {
      {&uLength, 1.0, 2, Unit::Inch, "0.0394", "a step in inches is small: two decimals more"},
      {&uLength, 1.0, 2, Unit::Micrometre, "1000", "three decimals fewer, never below none"},
      {&uLength, 1234.5, 1, Unit::Metre, "1.2345", "exactly three decimals more"},
      {&uLength, 9999999.0, 0, Unit::Millimetre, "9999999", "seven digits are still plain"},
      {&uLength, 1e7, 0, Unit::Millimetre, "1.0000000e+07", "eight are not"},
      {&uLength, -1234567890.0, 2, Unit::Millimetre, "-1.2345679e+09", "the magnitude decides"},
      {&uTemp, 100.0, 1, Unit::Fahrenheit, "212.0", "the offset leaves the decimals alone"},
      {&uLength, 0.0, 3, Unit::Millimetre, "0.000", "no logarithm of zero"},
      {&uLength, -0.0, 1, Unit::Millimetre, "0.0", "zero has no sign"},
      {&uLength, 2.5, 0, Unit::Millimetre, "3", "halves go away from zero"},
      {&uLength, -0.125, 2, Unit::Millimetre, "-0.13", "also below zero"},
      {&uLength, 1e6, 20, Unit::Millimetre, "1000000.00000000000000000000", "the step is lost"},
      {&uLength, infinity, 2, Unit::Millimetre, "inf", "no number in the logarithms"},
      {&uLength, std::nan(""), 2, Unit::Inch, "nan", "nor here"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.kind->toString(row.value, row.digits, row.unit), row.text) << row.fault;
  }
  EXPECT_EQ(uLength.toString(1.0, 4, Unit::Inch, Unit::Millimetre), "25.400");
  EXPECT_EQ(uLength.toString(1.0, 3), "1.000");
  EXPECT_EQ(uLength.toString(0.5, 4000000000U).size(), 2 + 1074) << "a double has no more";
}

TEST(Text, EqualsTheTextOfQt) {
  std::mt19937_64 random(61);
  std::uniform_real_distribution<double> powers(-320.0, 6.9);
  for (int i = 0; i < 20000; ++i) {
    const auto digits = static_cast<unsigned>(random() % (i % 10 == 0 ? 400 : 20));
    const double exact = static_cast<double>(random() % 4000000) / (1 << (i % 20)) - 1000.0;
    const double value = i % 2 ? exact : std::copysign(std::pow(10.0, powers(random)), exact);
    EXPECT_EQ(uStrain.Unit::toString(value, digits, Unit::StrainPercent),
              uStrain.toString(value, digits, Unit::StrainPercent));
    const QString text = uStrain.toString(value, digits, Unit::StrainPercent);
    const auto shown = static_cast<int>(text.section('.', 1).size());
    ASSERT_GE(shown, static_cast<int>(digits));
    ASSERT_EQ(text, QString::number(value, 'f', shown)) << i;
  }
}

TEST(Text, DigitDifference) {
  EXPECT_EQ(uLength.digitDifferenceToInternal(Unit::Micrometre), 3);
  EXPECT_EQ(uLength.digitDifferenceToInternal(Unit::Metre), -3);
  EXPECT_EQ(uLength.digitDifferenceToInternal(Unit::Inch), -1);
  EXPECT_EQ(uLength.digitDifferenceToInternal(Unit::Millimetre), 0);
}

TEST(Text, ExpansionCoefficients) {
  EXPECT_EQ(Unit::getExpCoeffUnitAsAscii(), "10^-6 1/K");
  EXPECT_EQ(Unit::getExpCoeffUnitAsHtml(), "10<sup>-6</sup> K<sup>-1</sup>");
}

TEST(Difference, ComesFromItsIdentifierOnce) {
  EXPECT_EQ(Unit::getUnit("NO_UNIT"), nullptr);
  EXPECT_EQ(Unit::getID(nullptr), "NO_UNIT");
  const Unit* const unit = Unit::getUnit("DIFF_LENGTH_s");
  EXPECT_EQ(Unit::getID(unit), "DIFF_LENGTH_s");
  EXPECT_EQ(UnitDiff::getUnit(&uLength, "s"), unit);
  EXPECT_EQ(UnitDiff::getUnit("DIFF_LENGTH_s"), unit);
  EXPECT_EQ(UnitDiff::getUnit("DIFF_NOTHING_s"), nullptr);
  EXPECT_EQ(unit->getUName(Unit::Inch), "in/s");
  EXPECT_EQ(Unit::getUnit("DIFF_DIFF_LENGTH_s_s")->getUName(Unit::Inch), "in/s/s");
  EXPECT_EQ(Unit::getUnit("DIFF_STRAIN_VELOCITY_mm")->getUName(Unit::PercentPerHour), "%/h/mm")
      << "not a strain per \"VELOCITY_mm\"";
  UnitDiff::clearUnits();
  EXPECT_EQ(UnitDiff::getUnit(&uLength, "")->getUName(Unit::Inch), "in");
  UnitDiff::clearUnits();
}

TEST(Difference, KeepsTheBaseZeroAsOffsetAndTheBaseDefault) {
  uTemp.setDefault(Unit::Kelvin);
  {
    const UnitDiff unit(&uTemp, "m");
    uTemp.setDefault(Unit::Celsius);
    EXPECT_EQ(unit.getName(), "K/m");
    EXPECT_EQ(unit.to(0.0, Unit::Kelvin), -273.15);
    EXPECT_NEAR(unit.from(1.0, Unit::Fahrenheit), (1.0 + 160.0 / 9.0) * 5.0 / 9.0, 1e-12);
  }
  EXPECT_NE(UnitDiff::getUnit(&uTemp, "m"), nullptr) << "a dead one left the registry";
  UnitDiff::clearUnits();
}

/// A kind of an application, which inherits what Unit itself has to offer.
class Plain : public Unit {
 public:
  Plain() : Unit("PLAIN") {}
  double to(double value, Units_t, Units_t) const override { return value; }
  double to(double value, Units_t) const override { return value; }
  double to(double value) const override { return value; }
  double from(double value, Units_t) const override { return value; }
  double from(double value) const override { return value; }
  QString getUName(Units_t) const override { return "plain"; }
  bool getUnitByName(const QString&, Units_t*) const override { return false; }
  std::vector<Units_t> getUnits() const override { return {Bar}; }
};

TEST(Base, CopiesKeepTheKind) {
  {
    Plain plain;
    plain.setDefault(Unit::Bar);
    const Plain copy(plain);
    EXPECT_EQ(copy.getDefault(), Unit::Bar);
    EXPECT_EQ(Unit::getID(&copy), "PLAIN");
    EXPECT_EQ(plain.getStepAdjustmentFactor(Unit::Bar), 1.0);
    EXPECT_EQ(plain.toString(1.25, 3), "1.250");
  }
  EXPECT_EQ(UnitDiff::getUnit("DIFF_PLAIN_s"), nullptr) << "the registry forgets the dead";
}

TEST(Errors, EndTheProcessWithTheirSite) {
  const std::tuple<const char*, unsigned, const char*, std::function<void()>> rows[] = {
      {"UnitLinear::to", 211, "wrong unit", [] { uLength.to(1.0, Unit::Bar); }},
      {"UnitLinear::to", 211, "wrong unit", [] { uLength.toString(1.0, 2, number(-1)); }},
      {"UnitLinear::to", 224, "wrong unit 1", [] { uLength.to(1.0, number(64), Unit::Bar); }},
      {"UnitLinear::to", 229, "wrong unit 2", [] { uLength.to(1.0, Unit::Inch, Unit::Bar); }},
      {"UnitLinear::from", 241, "wrong unit", [] { uLength.from(1.0, Unit::Bar); }},
      {"UnitLinear::getUName", 258, "wrong unit", [] { uLength.getUName(Unit::Bar); }},
      {"UnitLinear::setDefault", 283, "wrong unit", [] { uLength.setDefault(Unit::Bar); }},
      {"UnitLinear::getStepAdjustmentFactor", 301, "wrong unit",
       [] { uLength.getStepAdjustmentFactor(number(1 << 30)); }},
      {"Unit::getID", 75, "unknown unit instance", [] { Unit::getID(&uLength + 1); }},
      {"Unit::getUnit", 93, "unknown unit identifier", [] { Unit::getUnit(""); }},
      {"UnitDiff::UnitDiff", 352, "multiple instance of diff unit",
       [] { const UnitDiff first(&uTime, "m"), second(&uTime, "m"); }},
      {"UnitDiff::UnitDiff", 347, "unknown unit instance", [] { UnitDiff(nullptr, "m"); }},
  };
  for (const auto& [member, line, message, action] : rows) {
    const std::string function = std::string("Kyr::") + member;
    const std::string expected = KyrTest::report(message, function, "kyr_unit", line);
    EXPECT_EQ(reportProblem(inChild(action), expected), "");
  }
}

TEST(Errors, EveryKindHasOneObject) {
  for (const Singleton& kind : singletons) {
    const std::string function = std::string("Kyr::") + kind.type + "::" + kind.type;
    const std::string message = std::string("Do not instanciate, use ") + kind.name + "!";
    EXPECT_EQ(
        reportProblem(inChild(kind.second), KyrTest::report(message, function, "kyr_unit", 601)),
        "");
  }
}

}  // namespace
