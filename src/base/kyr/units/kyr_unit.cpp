#include <kyr/units/KyrUnit.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/units/unit_names_p.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>

namespace Kyr {

namespace {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr const char* File = "kyr_unit";
struct Place {
  const char* function;
  unsigned line;
};
constexpr Place UnitID{"Kyr::Unit::getID", 75};
constexpr Place UnitOfID{"Kyr::Unit::getUnit", 93};
constexpr Place To{"Kyr::UnitLinear::to", 211};
constexpr Place ConvertFrom{"Kyr::UnitLinear::to", 224};
constexpr Place ConvertTo{"Kyr::UnitLinear::to", 229};
constexpr Place From{"Kyr::UnitLinear::from", 241};
constexpr Place Name{"Kyr::UnitLinear::getUName", 258};
constexpr Place Default{"Kyr::UnitLinear::setDefault", 283};
constexpr Place Step{"Kyr::UnitLinear::getStepAdjustmentFactor", 301};
constexpr Place Add{"Kyr::UnitLinear::addUnit", 322};
constexpr Place Factor{"Kyr::UnitLinear::setFactor", 331};
constexpr Place GetFactor{"Kyr::UnitLinear::getFactor", 337};
constexpr Place GetOffset{"Kyr::UnitLinear::getOffset", 341};
constexpr Place Diff{"Kyr::UnitDiff::UnitDiff", 352};
constexpr Place DiffBase{"Kyr::UnitDiff::UnitDiff", 347};
constexpr Place DiffCopy{"Kyr::UnitDiff::UnitDiff", 374};
}  // namespace site

[[noreturn]] void fail(const site::Place& place, const char* message) {
  throw ProgError(place.function, site::File, place.line, message);
}

template <class Entry>
const Entry& require(const Entry* entry, const site::Place& place,
                     const char* message = "wrong unit") {
  if (!entry) {
    fail(place, message);
  }
  return *entry;
}

template <class Entry>
double fromInternal(double value, const Entry& entry) {
  return value / entry.factor + entry.offset;
}

template <class Entry>
double toInternal(double value, const Entry& entry) {
  return (value - entry.offset) * entry.factor;
}

constexpr double tenths[] = {1e-0,  1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,
                             1e-8,  1e-9,  1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15,
                             1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};

constexpr double tens[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                           1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double stepOfDecimal(unsigned digits) {
  return digits < std::size(tenths) ? tenths[digits] : std::pow(10.0, -static_cast<double>(digits));
}

/// The power of ten that a ratio fills up. Ratios a hair above a power count as that power; 0 for
/// a ratio without logarithm.
int powerOfTen(double ratio) {
  const double power = std::ceil(std::log10(ratio) - 1e-10);
  return std::isfinite(power) ? static_cast<int>(power) : 0;
}

/// Whether the value has more than seven digits before the point.
bool isLarge(double value) {
  constexpr double surelySmaller = 9.9e6;  // spares the logarithm
  const double magnitude = std::fabs(value);
  return magnitude > surelySmaller && std::log10(magnitude) >= 7.0;
}

/// Text of digits / 10^decimals; built from the end.
QString decimalText(bool negative, std::uint64_t digits, int decimals, QChar separator) {
  constexpr std::size_t most = 64;
  std::array<QChar, most> text;
  QChar* begin = text.end();
  for (int place = 0; digits != 0 || place <= decimals; ++place, digits /= 10) {
    if (place == decimals && place != 0) {
      *--begin = separator;
    }
    *--begin = QChar(static_cast<ushort>('0' + digits % 10));
  }
  if (negative) {
    *--begin = QLatin1Char('-');
  }
  return QString(begin, static_cast<int>(text.end() - begin));
}

}  // namespace

// The scaled value is off by half a unit of its last bit at most. Only where that could change
// the rounding, and for very long texts, the slow way is taken.
QString fixedText(double value, long long decimals, QChar separator) {
  constexpr long long mostOfDouble = 1074;
  const int shown = static_cast<int>(std::min(decimals, mostOfDouble));
  if (static_cast<std::size_t>(shown) < std::size(tens)) {
    const double scaled = std::fabs(value) * tens[shown];
    const double whole = std::floor(scaled);
    const double fromHalf = scaled - whole - 0.5;
    constexpr double exactIntegers = 1e15;
    if (scaled < exactIntegers &&
        std::fabs(fromHalf) > scaled * std::numeric_limits<double>::epsilon()) {
      const auto digits = static_cast<std::uint64_t>(whole) + (fromHalf > 0.0 ? 1 : 0);
      return decimalText(value < 0.0, digits, shown, separator);
    }
  }
  QString text = QString::number(value, 'f', shown);
  return text.replace(QLatin1Char('.'), separator);
}

namespace {

/// The text of a value in a unit.
/// \param convert gives the shown value of a held one
template <class Conversion>
QString format(double value, unsigned digits, Conversion convert) {
  const double step = stepOfDecimal(digits);
  const double shown = convert(value);
  const double change =
      std::max(std::fabs(shown - convert(value - step)), std::fabs(convert(value + step) - shown));
  if (isLarge(shown)) {
    return QString::number(shown, 'e', 7);
  }
  const auto held = static_cast<long long>(digits);
  return fixedText(shown, std::max<long long>(powerOfTen(step / change), -held) + held);
}

}  // namespace

Unit::Unit(const QString& id) {
  unit_ids[this] = id;
}

Unit::Unit(const Unit& other) : Unit(getID(&other)) {
  *this = other;
}

Unit& Unit::operator=(const Unit& other) = default;

Unit::~Unit() {
  unit_ids.erase(this);
}

QString Unit::toString(double value, unsigned digits, Units_t from, Units_t to) const {
  return format(value, digits, [&](double v) { return this->to(v, from, to); });
}

QString Unit::toString(double value, unsigned digits, Units_t unit) const {
  return format(value, digits, [&](double v) { return to(v, unit); });
}

QString Unit::toString(double value, unsigned digits) const {
  return toString(value, digits, getDefault());
}

void Unit::setDefault(Units_t unit) {
  _default = unit;
}

double Unit::getStepAdjustmentFactor(Units_t /*unit*/) const {
  return 1.0;
}

QString Unit::getID(const Unit* unit) {
  if (!unit) {
    return QStringLiteral("NO_UNIT");
  }
  const auto found = unit_ids.find(unit);
  if (found == unit_ids.end()) {
    fail(site::UnitID, "unknown unit instance");
  }
  return found->second;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): given, see docs/decisions/0006
const Unit* Unit::getUnit(QString id) {
  for (const auto& [unit, known] : unit_ids) {
    if (known == id) {
      return unit;
    }
  }
  const Unit* const difference = UnitDiff::getUnit(id);
  if (!difference && id != QLatin1String("NO_UNIT")) {
    fail(site::UnitOfID, "unknown unit identifier");
  }
  return difference;
}

QString Unit::getExpCoeffUnitAsAscii() {
  return QStringLiteral("10^-6 1/K");
}

QString Unit::getExpCoeffUnitAsHtml() {
  return QStringLiteral("10<sup>-6</sup> K<sup>-1</sup>");
}

UnitLinear::UnitLinear(const QString& id) : Unit(id), _units(std::make_unique<Table>()) {}

UnitLinear::~UnitLinear() = default;

inline const UnitLinear::Entry* UnitLinear::find(Units_t unit) const {
  const auto number = static_cast<unsigned>(unit);
  return number < unitLimit ? _entries[number] : nullptr;
}

double UnitLinear::to(double value, Units_t from, Units_t to) const {
  const Entry& source = require(find(from), site::ConvertFrom, "wrong unit 1");
  const Entry& target = require(find(to), site::ConvertTo, "wrong unit 2");
  return fromInternal(toInternal(value, source), target);
}

double UnitLinear::to(double value, Units_t unit) const {
  return fromInternal(value, require(find(unit), site::To));
}

double UnitLinear::to(double value) const {
  return value / _factor + _offset;
}

double UnitLinear::from(double value, Units_t unit) const {
  return toInternal(value, require(find(unit), site::From));
}

double UnitLinear::from(double value) const {
  return (value - _offset) * _factor;
}

QString UnitLinear::toString(double value, unsigned digits, Units_t from, Units_t to) const {
  const Entry& source = require(find(from), site::ConvertFrom, "wrong unit 1");
  const Entry& target = require(find(to), site::ConvertTo, "wrong unit 2");
  return format(value, digits,
                [&](double v) { return fromInternal(toInternal(v, source), target); });
}

QString UnitLinear::toString(double value, unsigned digits, Units_t unit) const {
  const Entry& entry = require(find(unit), site::To);
  return format(value, digits, [&](double v) { return fromInternal(v, entry); });
}

QString UnitLinear::toString(double value, unsigned digits) const {
  return toString(value, digits, getDefault());
}

QString UnitLinear::getUName(Units_t unit) const {
  return require(find(unit), site::Name).name;
}

bool UnitLinear::getUnitByName(const QString& name, Units_t* unit) const {
  const auto named = [&](const auto& entry) { return entry.second.name == name; };
  const auto found = std::find_if(_units->begin(), _units->end(), named);
  if (found == _units->end()) {
    return false;
  }
  *unit = found->first;
  return true;
}

std::vector<Unit::Units_t> UnitLinear::getUnits() const {
  std::vector<Units_t> units;
  units.reserve(_units->size());
  for (const auto& entry : *_units) {
    units.push_back(entry.first);
  }
  return units;
}

void UnitLinear::setDefault(Units_t unit) {
  const Entry& entry = require(find(unit), site::Default);
  setName(entry.name);
  _factor = entry.factor;
  _offset = entry.offset;
  Unit::setDefault(unit);
}

double UnitLinear::getStepAdjustmentFactor(Units_t unit) const {
  double factor = require(find(unit), site::Step).factor;
  if (!(factor > 0.0) || !std::isfinite(factor)) {
    return 1.0;
  }
  while (factor < 0.5) {
    factor *= 10.0;
  }
  while (factor > 5.0) {
    factor /= 10.0;
  }
  return factor;
}

int UnitLinear::digitDifferenceToInternal(Units_t unit) const {
  return powerOfTen(to(1.0, unit) - to(0.0, unit));
}

double UnitLinear::getFactor(Units_t unit) const {
  return require(find(unit), site::GetFactor).factor;
}

double UnitLinear::getOffset(Units_t unit) const {
  return require(find(unit), site::GetOffset).offset;
}

void UnitLinear::addUnit(Units_t unit, const QString& name, double factor, double offset) {
  const auto number = static_cast<unsigned>(unit);
  if (number >= unitLimit) {
    fail(site::Add, "wrong unit");
  }
  Entry& entry = (*_units)[unit];
  entry = {name, factor, offset};
  _entries[number] = &entry;
}

void UnitLinear::setFactor(Units_t unit, double factor) {
  const QString name = require(find(unit), site::Factor).name;
  (*_units)[unit].factor = factor;
  if (getName() == name) {
    _factor = factor;
  }
}

UnitDiff::UnitDiff(const Unit* base, const QString& denominator)
    : UnitLinear(getID(base, denominator)) {
  if (!base) {
    fail(site::DiffBase, "unknown unit instance");
  }
  const QString id = Unit::getID(this);
  if (diff_units.count(id) != 0) {
    fail(site::Diff, "multiple instance of diff unit");
  }
  for (const Units_t unit : base->getUnits()) {
    const QString name = base->getUName(unit);
    const double zero = base->from(0.0, unit);
    addUnit(unit, denominator.isEmpty() ? name : name + "/" + denominator,
            base->from(1.0, unit) - zero, zero);
  }
  setDefault(base->getDefault());
  diff_units[id] = this;  // last: an object that a throwing base left unfinished is not owned
}

UnitDiff::UnitDiff(const UnitDiff& /*other*/) : UnitLinear(QString()) {
  fail(site::DiffCopy, "Do not copy this");
}

UnitDiff::~UnitDiff() {
  diff_units.erase(Unit::getID(this));
}

const Unit* UnitDiff::getUnit(const Unit* base, const QString& denominator) {
  const auto found = diff_units.find(getID(base, denominator));
  return found != diff_units.end() ? found->second : new UnitDiff(base, denominator);
}

const Unit* UnitDiff::getUnit(const QString& id) {
  const Unit* base = nullptr;
  QString prefix;
  for (const auto& kind : unit_ids) {
    const QString candidate = getID(kind.first, QString());
    if (candidate.size() > prefix.size() && id.startsWith(candidate)) {
      base = kind.first;
      prefix = candidate;
    }
  }
  return base ? getUnit(base, id.mid(prefix.size())) : nullptr;
}

void UnitDiff::clearUnits() {
  while (!diff_units.empty()) {
    delete diff_units.begin()->second;
  }
}

QString UnitDiff::getID(const Unit* base, const QString& denominator) {
  return QStringLiteral("DIFF_%1_%2").arg(Unit::getID(base), denominator);
}

}  // namespace Kyr
