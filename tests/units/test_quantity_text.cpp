#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnitSet.h>
#include <kyr/units/KyrUnits.h>

#include "support/Support.h"

namespace {

using namespace Kyr;
using State = QuantityReading::State_t;

constexpr double refused = std::numeric_limits<double>::quiet_NaN();

/// An editor lets the text be typed: it refuses no beginning of it.
void expectTyping(const QuantityText& texts, const QString& whole) {
  for (int length = 0; length < whole.size(); ++length) {
    EXPECT_NE(texts.read(whole.left(length)).state, State::Invalid)
        << whole.left(length).toStdString() << " of " << whole.toStdString();
  }
}

TEST(Reading, OfWhatPeopleType) {
  int rows = 0;
  for (const QByteArray& row : KyrTest::readFile(KYR_TYPED_QUANTITIES).split('\n')) {
    const QList<QByteArray> field = row.split('|');
    if (row.startsWith('#') || field.size() != 7) {
      continue;
    }
    const bool isGood = field[3] != "-";
    QuantityText texts(*Unit::getUnit(field[1]), QLocale(QString(field[0])));
    const QString text = QString::fromUtf8(QByteArray::fromPercentEncoding(field[2], '\\'));
    const QuantityReading read = texts.read(text);
    const QuantityReading reckoned = texts.setArithmetic().read(text);
    EXPECT_EQ(reckoned.isAcceptable(), isGood) << row.constData();
    EXPECT_TRUE(!isGood || reckoned.value == read.value) << row.constData();
    EXPECT_EQ(read.position, isGood ? -1 : field[4].toInt()) << row.constData();
    EXPECT_EQ(read.isAcceptable(), isGood) << row.constData();
    EXPECT_TRUE(read.reason.contains(field[5])) << read.reason.toStdString() << row.constData();
    EXPECT_EQ(read.reason.isEmpty(), isGood) << row.constData();
    if (isGood) {
      EXPECT_DOUBLE_EQ(read.value, field[3].toDouble()) << row.constData();
      expectTyping(texts.setArithmetic(false), text.trimmed());
    } else {
      EXPECT_TRUE(std::isnan(read.value)) << row.constData();
    }
    ++rows;
  }
  EXPECT_GE(rows, 150);
}

TEST(Reading, TellsEditorsWhatTypingOnCanMend) {
  const std::tuple<const char*, const char*, State, const char*> rows[] = {
      {"de", "", State::Intermediate, "the beginning"},
      {"de", "-", State::Intermediate, "a sign"},
      {"de", "12,", State::Intermediate, "decimals are to come"},
      {"de", "12,5e", State::Intermediate, "an exponent is to come"},
      {"de", "12,5 µ", State::Intermediate, "half of a unit"},
      {"de", "12,5 IN", State::Intermediate, "half of \"INCH\""},
      {"de", "1.000", State::Intermediate, "decimals or a digit make it clear"},
      {"en", "1,2", State::Intermediate, "a group is to come"},
      {"en", "1,234,", State::Intermediate, "another one"},
      {"en", "1.5/", State::Invalid, "no unit begins with a slash"},
      {"en", "1.5 3", State::Invalid, "no fraction follows decimals"},
      {"en", "5' 3", State::Intermediate, "inches are to come"},
      {"de", "2000", State::Intermediate, "beyond the limits"},
      {"de", "12,5,", State::Invalid, "a second comma"},
      {"de", "12,5 x", State::Invalid, "no unit"},
      {"en", "1,2 mm", State::Invalid, "no group will come"},
  };
  for (const auto& [language, text, state, fault] : rows) {
    QuantityText lengths(uLength, QLocale(language));
    lengths.setRange(-1e4, 1999.0);
    EXPECT_EQ(lengths.read(QString::fromUtf8(text)).state, state) << text << ": " << fault;
  }
}

TEST(Reading, ReckonsWhereThatIsAskedFor) {
  const double inch = 25.4;
  const struct {
    const char* text;
    double value;  // in millimetres
    int position;
    const char* reason;
    const char* fault;
  } rows[] = {
      {"3*12.5 mm + 2 in", 37.5 + 2 * inch, -1, "", "products come first"},
      {"2 in * 3 − 1 mm × 2 · 2", 6 * inch - 4, -1, "", "every sign"},
      {"10 mm - 2 mm - 3 mm", 5, -1, "", "from left to right"},
      {"12 mm / 4 / 3", 1, -1, "", "quotients as well"},
      {"2 * (3 + 4) / 7", 2 * inch, -1, "", "the expected unit, of bare numbers"},
      {"(5' 3 1/2\" - 1 ft)", 4 * 12 * inch + 3.5 * inch, -1, "", "quantities in parts"},
      {"1e+1 mm", 10, -1, "", "an exponent is no sum"},
      {"( - 3 mm + -2 mm) * -1", 5, -1, "", "an operand's own sign, blanks around it or not"},
      {"5'-3\"", refused, 1, "no unit", "feet and inches of some"},
      {"1-1/2 in", refused, 1, "no unit", "one and a half of others"},
      {"5 – 10 mm", refused, 2, "no unit", "a span"},
      {"6 mm / 1/2", refused, 0, "may be 6 mm / (1/2) or 6 mm / 1 / 2", "12 or 3"},
      {"6 mm / 1／2", refused, 0, "6 mm / (1／2) or 6 mm / 1 / 2", "the slash of other keyboards"},
      {"(1e308 m)", refused, 1, "too large", "not infinite in parentheses either"},
      {"3 + 2 mm", refused, 4, "Either all", "3 of what?"},
      {"2 mm * 3 mm", refused, 7, "Only one factor", "an area"},
      {"6 mm / 2 mm", refused, 7, "A divisor", "a number"},
      {"6 mm / (1 - 1)", refused, 7, "divided by zero", "no infinity"},
      {"1e300 * 1e300 mm", refused, 0, "too large", "nor another"},
      {"1e-300 * 1e-300 mm", refused, 0, "close to zero", "nor nothing"},
      {"3 mm + 1,000 mm", refused, 7, "1,000 may be", "a place behind a sign"},
      {"3 * x", refused, 4, "No number", "an operand that is none"},
      {"3 * * 2", refused, 4, "A number is missing", "a sign too many"},
      {"3 mm)", refused, 4, "\")\" cannot follow", "closed, never opened"},
      {"(3 mm) 2", refused, 7, "\"2\" cannot follow", "no sign"},
  };
  const QuantityText inches =
      QuantityText(uLength, QLocale("en")).setUnit(Unit::Inch).setArithmetic();
  for (const auto& row : rows) {
    const auto read = QuantityText(inches).read(QString::fromUtf8(row.text));
    EXPECT_EQ(read.position, row.position) << row.text << ": " << row.fault;
    EXPECT_TRUE(read.reason.contains(row.reason)) << row.text << read.reason.toStdString();
    if (std::isnan(row.value)) {
      EXPECT_TRUE(std::isnan(read.value)) << row.text << ": " << row.fault;
      continue;
    }
    EXPECT_DOUBLE_EQ(read.value, row.value) << row.text << ": " << row.fault;
    expectTyping(inches, QString::fromUtf8(row.text));
  }
  const QuantityText microns = QuantityText(inches).setUnit(Unit::Micrometre);
  EXPECT_TRUE(microns.read("(1e-160 * 1e-163)").reason.contains("close to zero"))
      << "nothing in the internal unit";
  for (const char* const begin : {"3 mm + 2", "6 / 0"}) {
    EXPECT_EQ(inches.read(begin).state, State::Intermediate) << begin;
  }
  EXPECT_TRUE(inches.read(QString(100000, '(')).reason.contains("too many parentheses"));
  EXPECT_FALSE(QuantityText(uTemp).setArithmetic().read("20 °C + 5 K").isAcceptable())
      << "an offset";
}

TEST(Reading, RefusesALongTextInAShortSentence) {
  for (const char* const piece : {"x", "1", "1.", ",", " ", "1*", "1 / "}) {
    const auto read =
        QuantityText(uLength).setArithmetic().read(QString(piece).repeated(100000) + "x");
    EXPECT_FALSE(read.isAcceptable()) << piece;
    EXPECT_LT(read.reason.size(), 200) << piece;
  }
}

TEST(Reading, NamesTheLimitInTheUnitOfTheUser) {
  QuantityText lengths(uLength, QLocale("de"));
  lengths.setRange(-25.4, 50.8);
  EXPECT_EQ(lengths.read("3 in").reason, QString::fromUtf8("The largest value is 2\u00A0in."));
  EXPECT_EQ(lengths.read("6 cm").reason, QString::fromUtf8("The largest value is 5,08\u00A0cm."));
  EXPECT_EQ(lengths.read("-26").reason, QString::fromUtf8("The smallest value is -25,4\u00A0mm."));
  EXPECT_EQ(lengths.read("2 in").value, 50.8) << "a limit belongs to the range";
  EXPECT_EQ(lengths.setDecimals(0).read("60").reason,
            QString::fromUtf8("The largest value is 50,8\u00A0mm."))
      << "51 mm is beyond the limit, too";
  lengths.setUnit(Unit::Inch).setRange(0, 100);
  EXPECT_EQ(lengths.read("4").reason,
            QString::fromUtf8("The largest value is 3,937007874015748\u00A0in."))
      << "15 digits of it are refused";
  EXPECT_EQ(lengths.read("1").value, 25.4) << "the expected unit";
  EXPECT_EQ(lengths.read("1").unit.name, "in");
  EXPECT_FALSE(lengths.read("1").hasUnit);
  EXPECT_TRUE(lengths.read("1 in").hasUnit);
  EXPECT_EQ(lengths.read("1 cm").unit.number, -1) << "the catalogue has no centimetre";
}

const char* const sixLanguages[] = {"en", "de", "fr", "pt", "ja", "zh"};

TEST(RoundTrip, EveryUnitInEveryLanguageToTheSameBits) {
  std::mt19937_64 random(16);
  std::uniform_real_distribution<double> mantissas(-1.0, 1.0);
  for (const char* const language : sixLanguages) {
    for (const Unit* const kind : Unit::getCatalogue()) {
      for (const Unit::Units_t unit : kind->getUnits()) {
        QuantityText texts(*kind, QLocale(language));
        texts.setUnit(unit).setExact();
        for (int i = 0; i < 60; ++i) {
          const int least = kind == &uTemp ? -5 : -12;
          const bool isExtreme = i >= 58 && kind != &uTemp;
          const int exponent = !isExtreme ? least + i % 18 : i % 2 == 0 ? 190 : -189;
          const double value = mantissas(random) * std::pow(10.0, exponent);
          texts.setGrouping(i % 2 == 0).setExponents(i % 3 == 0).setAutomaticUnit(i % 5 == 0);
          const QString text = texts.text(value);
          const QuantityReading read = texts.read(text);
          ASSERT_EQ(read.value, value)
              << language << ' ' << text.toStdString() << ": " << read.reason.toStdString();
          ASSERT_EQ(read.unit.number, texts.unitFor(value)) << text.toStdString();
        }
      }
    }
  }
}

TEST(RoundTrip, RoundedTextsStayAsTheyAre) {
  std::mt19937_64 random(17);
  std::uniform_real_distribution<double> powers(-6.0, 14.0);
  for (const char* const language : sixLanguages) {
    for (int i = 0; i < 500; ++i) {
      const double value = std::copysign(std::pow(10.0, powers(random)), i % 2 ? 1.0 : -1.0);
      QuantityText texts(uLength, QLocale(language));
      texts.setGrouping(i % 4 == 0);
      i % 3 ? texts.setDecimals(i % 7) : texts.setSignificantDigits(1 + i % 15);
      const QString text = texts.text(value);
      ASSERT_EQ(texts.text(texts.read(text).value), text) << language;
    }
  }
}

TEST(Writing, AsPeopleDo) {
  using Q = QuantityText&;
  const double infinity = std::numeric_limits<double>::infinity();
  const struct {
    const char* language;
    const Unit& kind;
    double value;
    void (*set)(Q);
    const char* text;  // with '_' for a no-break space, '~' for a narrow one
    const char* fault;
  } rows[] = {
      {"de", uLength, 12.5, [](Q) {}, "12,5_mm", "the comma of the language"},
      {"en", uLength, 0.1 + 0.2, [](Q) {}, "0.3_mm", "no noise of binary numbers"},
      {"de", uLength, 2, [](Q q) { q.setDecimals(3); }, "2,000_mm", "zeros that were asked for"},
      {"de", uLength, 0.0125, [](Q q) { q.setAutomaticUnit(); }, "12,5_µm", "the smaller unit"},
      {"en", uLength, 12500, [](Q q) { q.setAutomaticUnit(); }, "12.5_m", "the larger one"},
      {"en", uLength, 1000, [](Q q) { q.setAutomaticUnit(); }, "1_m", "just large enough"},
      {"en", uLength, -0.0000125, [](Q q) { q.setAutomaticUnit(); }, "-0.0125_µm", "the smallest"},
      {"en", uLength, 12.7, [](Q q) { q.setUnit(Unit::Inch).setAutomaticUnit(); }, "500_mil",
       "an inch's family has no millimetre"},
      {"en", uLength, 0, [](Q q) { q.setAutomaticUnit(); }, "0_mm", "zero has no size"},
      {"en", uShutter, 0.0005, [](Q q) { q.setAutomaticUnit(); }, "500_µs", "short times"},
      {"en", uTime, 120, [](Q q) { q.setAutomaticUnit(); }, "120_s", "a minute is not asked for"},
      {"en", uCurvature, 0.002, [](Q q) { q.setAutomaticUnit(); }, "2_/_m", "falling sizes"},
      {"en", uStrainVelocity, 0.001, [](Q q) { q.setAutomaticUnit(); }, "0.001_%/s",
       "its number is that of a second"},
      {"en", uLength, 1234.567, [](Q q) { q.setSignificantDigits(3); }, "1235_mm",
       "digits before the point are shown"},
      {"en", uLength, 0.0012349, [](Q q) { q.setSignificantDigits(3); }, "0.00123_mm", "zeros"},
      {"en", uLength, 1.5, [](Q q) { q.setSignificantDigits(3); }, "1.50_mm", "zeros that count"},
      {"en", uLength, 999.96, [](Q q) { q.setSignificantDigits(4); }, "1000_mm", "a carry"},
      {"de", uLength, 1234567.25, [](Q q) { q.setGrouping(); }, "1~234~567,25_mm",
       "groups are no points"},
      {"en", uLength, -123, [](Q q) { q.setGrouping(); }, "-123_mm", "no group of a sign"},
      {"en", uLength, 123456789012345, [](Q) {}, "123456789012345_mm", "no exponent below 10^15"},
      {"de", uLength, 1.5e15, [](Q) {}, "1,5e15_mm", "one from there on"},
      {"en", uLength, 1e-9, [](Q) {}, "0.000000001_mm", "none for small numbers"},
      {"en", uLength, 0.00125, [](Q q) { q.setExponents(); }, "1.25e-3_mm", "one on demand"},
      {"en", uLength, 0, [](Q q) { q.setExponents(); }, "0e0_mm", "zero has no exponent"},
      {"en", uLength, -0.001, [](Q q) { q.setDecimals(2); }, "0.00_mm", "no negative zero"},
      {"en", uLength, infinity, [](Q) {}, "inf_mm", "no loop"},
      {"en", uLength, 1.0 / 3, [](Q q) { q.setExact(); }, "0.3333333333333333_mm", "all bits"},
      {"en", uLength, 32102, [](Q q) { q.setExact().setUnit(Unit::Metre); },
       "32.102000000000000001_m", "32.102 m is 32101.999999999996 mm to a double"},
  };
  for (const auto& row : rows) {
    QuantityText texts(row.kind, QLocale(row.language));
    row.set(texts);
    const QString expected = QString::fromUtf8(row.text).replace('_', QChar(0xA0));
    EXPECT_EQ(texts.text(row.value), QString(expected).replace('~', QChar(0x202F))) << row.fault;
  }
  EXPECT_EQ(QuantityText(uLength).number(1.5), "1.5") << "English without a Translator";
}

TEST(Preferences, AreKeptAsLinesAndLeaveTheDefaults) {
  UnitSet units;
  units.choose(uTemp, Unit::Kelvin);
  units.choose(uLength, Unit::Millimetre, 1);
  units.choose(uLength, Unit::Inch, 2);
  EXPECT_EQ(units.toLines(), QStringList({"LENGTH 3 2", "TEMPERATURE 6 -1"})) << "the later one";
  const QLocale english("en");
  QStringList lines = units.toLines();
  lines += {"LENGTH_OF_2030_%3 3 2", " AREA\t999 0 "};
  const UnitSet read = UnitSet::fromLines(lines);
  EXPECT_EQ(read.texts(uLength, english).number(25.4), "1.00");
  EXPECT_EQ(read.texts(uLength, english).read("2").value, 50.8) << "the expected unit";
  EXPECT_EQ(read.texts(uTemp, english).number(0.5), "273.65");
  EXPECT_EQ(read.texts(uAngle, english).number(0), "0") << "no choice";
  EXPECT_EQ(read.texts(uArea, english).number(2), "2") << "a unit of another version";
  EXPECT_EQ(read.toLines().size(), 4) << "a kind of another version is lost";
  EXPECT_TRUE(read.toLines().contains(lines[2])) << "its name has changed";
  EXPECT_EQ(uLength.getDefault(), Unit::Millimetre);
  const Unit& slope = *UnitDiff::getUnit(&uLength, "100 mm");
  units.choose(slope, Unit::Inch);
  EXPECT_EQ(UnitSet::fromLines(units.toLines()).texts(slope, english).text(25.4),
            QString::fromUtf8("1\u00A0in/100\u00A0mm"))
      << "a kind with a blank in its identifier cannot be read";
  UnitDiff::clearUnits();
  for (const char* const line : {"", "LENGTH", "LENGTH 3", "LENGTH x 2", "LENGTH 3 100",
                                 "LENGTH 3 -2", "LENGTH -1 2", "LENGTH 3 2 1"}) {
    EXPECT_THROW(UnitSet::fromLines({line}), Exception) << line;
  }
}

TEST(Names, EveryOneLeadsToItsUnit) {
  for (const Unit* const kind : Unit::getCatalogue()) {
    for (const UnitName& name : QuantityText::otherNames(*kind)) {
      UnitName found;
      ASSERT_TRUE(QuantityText::findUnit(*kind, name.name, &found)) << name.name.toStdString();
      EXPECT_EQ(found.factor, name.factor) << "hidden by another: " << name.name.toStdString();
      EXPECT_EQ(found.number, name.number) << name.name.toStdString();
    }
  }
}

}  // namespace
