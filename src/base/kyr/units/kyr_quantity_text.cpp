#include <kyr/units/KyrQuantityText.h>

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/numeric_p.h>
#include <kyr/units/quantity_scan_p.h>
#include <kyr/units/unit_names_p.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace Kyr {

namespace {

constexpr unsigned meaningfulDigits = 15;  // of a double; those behind them may be noise
constexpr unsigned roundTripDigits = 17;
constexpr unsigned pairDigits = 31;  // of the sum of two doubles

/// A number as digits d and exponent e: 0.d × 10^e.
struct Decimal {
  bool negative = false;
  QByteArray digits;
  int exponent = 0;
};

Decimal decimalOf(double value, unsigned digits) {
  std::array<char, Numeric::doubleCapacity> text;
  const std::size_t size =
      Numeric::formatDouble(std::fabs(value), 'e', static_cast<int>(digits) - 1, text.data());
  const char* const end = text.data() + size;
  const char* const mark = std::find<const char*>(text.data(), end, 'e');
  const char* stop = nullptr;
  qint64 exponent = 0;
  Numeric::parseInt64(mark + 1, end, &stop, &exponent);
  Decimal result{std::signbit(value), {}, static_cast<int>(exponent) + 1};
  for (const char* at = text.data(); at != mark; ++at) {
    if (*at != '.') {
      result.digits.append(*at);
    }
  }
  return result;
}

/// Adds to the last digits of a number, or subtracts from them.
void addTo(QByteArray* digits, const QByteArray& more, bool subtract) {
  int carry = 0;
  for (int place = 1; place <= digits->size(); ++place) {
    char& digit = digits->data()[digits->size() - place];
    const int other = place <= more.size() ? more.at(more.size() - place) - '0' : 0;
    const int sum = digit - '0' + (subtract ? -other : other) + carry;
    carry = sum < 0 ? -1 : sum / 10;
    digit = static_cast<char>('0' + (sum + 10) % 10);
  }
}

/// Cuts a number off behind some digits, and rounds it there.
void round(Decimal* number, int digits) {
  const bool up = number->digits.at(digits) >= '5';
  number->digits.truncate(digits);
  if (up) {
    number->digits.prepend('0');
    addTo(&number->digits, "1", false);
    const bool carried = !number->digits.startsWith('0');
    carried ? number->digits.chop(1) : static_cast<void>(number->digits.remove(0, 1));
    number->exponent += carried ? 1 : 0;
  }
}

/// As decimalOf(), from more digits than a double has.
Decimal decimalOf(Exact::Pair value, unsigned digits) {
  Decimal result = decimalOf(value.high, pairDigits + 3);
  const auto shift = static_cast<unsigned>(std::abs(result.digits.size() - result.exponent));
  if (shift > Exact::largestPower) {
    return decimalOf(value.high, digits);
  }
  const double power = Exact::powerOfTen(shift).high;
  const double low = result.digits.size() > result.exponent ? value.low * power : value.low / power;
  std::array<char, Numeric::doubleCapacity> text;
  const std::size_t size = Numeric::formatDouble(std::fabs(low), 'f', 0, text.data());
  addTo(&result.digits, QByteArray(text.data(), static_cast<int>(size)),
        (low < 0.0) != result.negative);
  if (result.digits.startsWith('0')) {
    result.digits.remove(0, 1);
    --result.exponent;
  }
  round(&result, static_cast<int>(digits));
  return result;
}

void dropEndZeros(Decimal* number) {
  while (number->digits.size() > 1 && number->digits.endsWith('0')) {
    number->digits.chop(1);
  }
}

QString plainText(const Decimal& number, int decimals) {
  const int whole = std::max(number.exponent, 0);
  QByteArray text = number.digits;
  if (number.exponent < 1) {
    text.prepend(QByteArray(-number.exponent, '0'));
  }
  text = text.leftJustified(whole + decimals, '0');
  if (decimals > 0) {
    text.insert(whole, '.');
  }
  if (whole == 0) {
    text.prepend('0');
  }
  return QString::fromLatin1(number.negative ? '-' + text : text);
}

/// The text of a number with an exponent, as "1.25e-3".
QString exponentText(const Decimal& number) {
  QByteArray text = number.digits;
  if (text.size() > 1) {
    text.insert(1, '.');
  }
  const bool zero = number.digits.count('0') == number.digits.size();
  text += 'e' + QByteArray::number(zero ? 0 : number.exponent - 1);
  return QString::fromLatin1(number.negative ? '-' + text : text);
}

/// Families of units, of which a reader who knows one knows all, by rising size.
constexpr int noUnit = -1;
constexpr int families[][3] = {
    {Unit::Micrometre, Unit::Millimetre, Unit::Metre},
    {Unit::Mil, Unit::Inch, Unit::Foot},
    {Unit::MicrometrePerSecond, Unit::MillimetrePerSecond, Unit::MetrePerSecond},
    {Unit::MicrometrePerSquareSecond, Unit::MillimetrePerSquareSecond, Unit::MetrePerSquareSecond},
    {Unit::SquareMicrometre, Unit::SquareMillimetre, Unit::SquareMetre},
    {Unit::SquareMil, Unit::SquareInch, Unit::SquareFoot},
    {Unit::CubicMicrometre, Unit::CubicMillimetre, Unit::CubicMetre},
    {noUnit, Unit::CubicInch, Unit::CubicFoot},
    {Unit::PerMetre, Unit::PerMillimetre, Unit::PerMicrometre},
    {Unit::PerFoot, Unit::PerInch, Unit::PerMil},
};
// Seconds have one number for several kinds; only here they have smaller units of their own.
constexpr int timeFamily[] = {Unit::Microsecond, Unit::Millisecond, Unit::Second};

bool isTime(const Unit& kind) {
  const QString id = Unit::getID(&kind);
  return id == QLatin1String("TIME") || id == QLatin1String("SHUTTER");
}

const int (*familyOf(const Unit& kind, Unit::Units_t unit))[3] {
  const auto has = [=](const auto& family) {
    return std::find(std::begin(family), std::end(family), int(unit)) != std::end(family);
  };
  if (isTime(kind)) {
    return has(timeFamily) ? &timeFamily : nullptr;
  }
  const auto* const found = std::find_if(std::begin(families), std::end(families), has);
  return found != std::end(families) ? found : nullptr;
}

bool hasUnit(const std::vector<Unit::Units_t>& units, int unit) {
  return std::find(units.begin(), units.end(), unit) != units.end();
}

/// The largest unit of a family in which the value is at least 1, otherwise the smallest.
Unit::Units_t automaticUnit(const Unit& kind, Unit::Units_t expected, double value) {
  const auto* const family = familyOf(kind, expected);
  if (!family || value == 0.0 || !std::isfinite(value)) {
    return expected;
  }
  constexpr double one = 1.0 - 1e-12;  // the last digits of a conversion do not decide
  const auto units = kind.getUnits();
  Unit::Units_t best = expected;
  bool found = false;
  for (const int candidate : *family) {
    const auto unit = static_cast<Unit::Units_t>(candidate);
    if (hasUnit(units, candidate) && (!found || std::fabs(kind.to(value, unit)) >= one)) {
      best = unit;
      found = true;
    }
  }
  return best;
}

/// Whether a number is to be seen with an exponent unless somebody asks for all its digits.
bool isHuge(double value) {
  constexpr double limit = 1e15;
  return std::fabs(value) >= limit;
}

QString grouped(QString text) {
  constexpr int digits = 3;
  constexpr ushort narrowNoBreakSpace = 0x202F;
  const int first = text.startsWith('-') ? 1 : 0;
  int end = first;
  while (end < text.size() && text.at(end).isDigit()) {
    ++end;
  }
  for (int at = end - digits; at > first; at -= digits) {
    text.insert(at, QChar(narrowNoBreakSpace));
  }
  return text;
}

/// The text of a number, without the sign where only zeros follow, as in "-0.00".
QString withoutSignOfZero(const QString& text) {
  if (!text.startsWith(QLatin1Char('-'))) {
    return text;
  }
  const auto counts = [](QChar sign) {
    return sign >= QLatin1Char('1') && sign <= QLatin1Char('9');
  };
  return std::none_of(text.begin(), text.end(), counts) ? text.mid(1) : text;
}

Exact::Pair asRead(const Decimal& number) {
  const QString text = exponentText(number);
  const Scan::Number read = Scan::readNumber(text, number.negative ? 1 : 0, {'.', 0});
  const double sign = number.negative ? -1.0 : 1.0;
  return {sign * read.value.high, sign * read.value.low};
}

/// A number of a few digits with one more far behind them. Readers take few digits for the nearest
/// double, which may be that of another value in the internal unit; more digits are read exactly.
Decimal withManyDigits(Decimal number) {
  constexpr int digits = 20;  // below half of a double's last bit
  dropEndZeros(&number);
  if (number.digits.size() <= static_cast<int>(meaningfulDigits)) {
    number.digits = number.digits.leftJustified(digits - 1, '0') + '1';
  }
  return number;
}

/// As many of a reading's first digits as it takes to get back to the value.
template <class LeadsBack>
Decimal shortest(Decimal number, Exact::Pair reading, LeadsBack leadsBack) {
  for (unsigned digits = meaningfulDigits + 1; digits <= pairDigits; ++digits) {
    if (leadsBack(asRead(number))) {
      return number;
    }
    number =
        digits < roundTripDigits ? decimalOf(reading.high, digits) : decimalOf(reading, digits);
  }
  const Decimal longer = withManyDigits(number);
  return leadsBack(asRead(longer)) ? longer : number;
}

int decimalsIn(const Decimal& number) {
  return std::max(static_cast<int>(number.digits.size()) - number.exponent, 0);
}

/// What stands between digits: a character, or a text of one.
QChar signOf(const QString& separator) {
  return separator.isEmpty() ? QChar() : separator.at(0);
}

bool callsDegreesGrad(QLocale::Language language) {
  constexpr QLocale::Language languages[] = {QLocale::German,           QLocale::Swedish,
                                             QLocale::Danish,           QLocale::NorwegianBokmal,
                                             QLocale::NorwegianNynorsk, QLocale::Romanian};
  return std::find(std::begin(languages), std::end(languages), language) != std::end(languages);
}

}  // namespace

QuantityText::QuantityText(const Unit& kind) : QuantityText(kind, userLocale()) {}

QuantityText::QuantityText(const Unit& kind, const QLocale& locale)
    : _kind(&kind),
      _linear(KnownKind(kind).linear),
      _decimal(signOf(locale.decimalPoint())),
      _group(signOf(locale.groupSeparator())),
      _grad_is_degree(callsDegreesGrad(locale.language())) {}

QuantityText& QuantityText::setUnit(Unit::Units_t unit) {
  _kind->to(0.0, unit);  // raises for a wrong one
  _unit = unit;
  _unit_chosen = true;
  return *this;
}

QuantityText& QuantityText::setAutomaticUnit(bool automatic) {
  _automatic = automatic;
  return *this;
}

QuantityText& QuantityText::setDecimals(unsigned decimals) {
  _digits = Digits_t::Decimals;
  _digit_count = decimals;
  return *this;
}

QuantityText& QuantityText::setSignificantDigits(unsigned digits) {
  _digits = Digits_t::Significant;
  _digit_count = std::clamp(digits, 1U, roundTripDigits);
  return *this;
}

QuantityText& QuantityText::setExact() {
  _digits = Digits_t::Exact;
  return *this;
}

QuantityText& QuantityText::setGrouping(bool grouping) {
  _grouping = grouping;
  return *this;
}

QuantityText& QuantityText::setExponents(bool exponents) {
  _exponents = exponents;
  return *this;
}

QuantityText& QuantityText::setArithmetic(bool arithmetic) {
  _arithmetic = arithmetic;
  return *this;
}

QuantityText& QuantityText::setRange(double least, double most) {
  _least = least;
  _most = most;
  return *this;
}

Unit::Units_t QuantityText::expectedUnit() const {
  return _unit_chosen ? _unit : _kind->getDefault();
}

Unit::Units_t QuantityText::unitFor(double value) const {
  return _automatic ? automaticUnit(*_kind, expectedUnit(), value) : expectedUnit();
}

QString QuantityText::numberIn(double value, const UnitName& unit) const {
  const KnownKind kind(*_kind, _linear);
  const Exact::Pair reading = toReading(kind, unit, value);
  if (!std::isfinite(reading.high)) {
    return QString::number(reading.high);
  }
  const bool exponent = _exponents || isHuge(reading.high);
  if (_digits == Digits_t::Decimals && !exponent) {
    return withoutSignOfZero(fixedText(reading.high, _digit_count, _decimal));
  }
  const bool significant = _digits == Digits_t::Significant;
  Decimal number = decimalOf(reading.high, significant ? _digit_count : meaningfulDigits);
  if (significant && number.exponent > static_cast<int>(_digit_count)) {
    number = decimalOf(reading.high, static_cast<unsigned>(number.exponent));
  }
  if (_digits == Digits_t::Exact) {
    number = shortest(number, reading, [&](Exact::Pair candidate) {
      return toInternal(kind, unit, candidate) == value;
    });
  }
  if (!significant) {
    dropEndZeros(&number);
  }
  QString text = exponent ? exponentText(number) : plainText(number, decimalsIn(number));
  text.replace(QLatin1Char('.'), _decimal);
  return _digits == Digits_t::Exact ? text : withoutSignOfZero(text);
}

QString QuantityText::number(double value) const {
  const QString text = numberIn(value, ownUnit(KnownKind(*_kind, _linear), unitFor(value)));
  return _grouping ? grouped(text) : text;
}

QString QuantityText::textIn(double value, const UnitName& unit) const {
  constexpr ushort noBreakSpace = 0xA0;
  const QString text = numberIn(value, unit);
  QString name = unit.name;
  return (_grouping ? grouped(text) : text) + QChar(noBreakSpace) +
         name.replace(QLatin1Char(' '), QChar(noBreakSpace));
}

QString QuantityText::text(double value) const {
  return textIn(value, ownUnit(KnownKind(*_kind, _linear), unitFor(value)));
}

}  // namespace Kyr
