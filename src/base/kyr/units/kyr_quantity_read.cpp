#include <kyr/units/KyrQuantityText.h>

#include <kyr/core/file_parse_error_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/units/quantity_formula_p.h>
#include <kyr/units/quantity_scan_p.h>
#include <kyr/units/unit_names_p.h>

#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace Kyr {

namespace {

using Scan::Fault;
using Scan::Refusal;

/// A quantity with the text behind its number.
struct Part {
  UnitName unit;
  int end = 0;
};

/// Units that follow each other in one quantity, as feet and inches.
struct Steps {
  const char* kind;
  double factors[3];
};
constexpr double degree = 3.14159265358979323846 / 180.0;
constexpr Steps stepsTable[] = {{"LENGTH", {304.8, 25.4, 25.4}},
                                {"ANGLE", {degree, degree / 60.0, degree / 3600.0}},
                                {"TIME", {3600.0, 60.0, 1.0}}};

/// How many of the kind's steps are larger than a unit; all of them for one that is no step.
std::ptrdiff_t stepOf(const Steps& steps, double factor) {
  const auto* const begin = std::begin(steps.factors);
  return std::find(begin, std::end(steps.factors), factor) - begin;
}

/// Whether a quantity in the second unit may follow one in the first: 5' 3", 30° 15', 1 h 30 min.
/// \param second null for any
bool mayFollow(const Unit& kind, const UnitName& first, const UnitName* second) {
  const QByteArray id = Unit::getID(&kind).toLatin1();
  const auto* const steps = std::find_if(std::begin(stepsTable), std::end(stepsTable),
                                         [&](const Steps& row) { return id == row.kind; });
  if (steps == std::end(stepsTable)) {
    return false;
  }
  constexpr auto count = static_cast<std::ptrdiff_t>(std::size(Steps().factors));
  const std::ptrdiff_t step = stepOf(*steps, second ? second->factor : steps->factors[count - 1]);
  return stepOf(*steps, first.factor) < step && step < count;
}

/// "Grad" and "grad" in a language in which they are degrees.
bool meansDegreeOrGon(const Unit& kind, const QString& name) {
  return name.compare(QLatin1String("grad"), Qt::CaseInsensitive) == 0 &&
         Unit::getID(&kind) == QLatin1String("ANGLE");
}

int endOfBlanks(const QString& text) {
  auto end = static_cast<int>(text.size());
  while (end > 0 && Scan::plain(text.at(end - 1)) == ' ') {
    --end;
  }
  return end;
}

bool isDigit(QChar sign) {
  const ushort code = Scan::plain(sign);
  return code >= '0' && code <= '9';
}

bool hasDigitsOnly(QStringView text) {
  return std::all_of(text.begin(), text.end(), isDigit);
}

/// The end of a unit's name that a further number follows; the end of the text if none does.
int endOfNameBeforeNumber(const QString& text, int begin, int end) {
  int at = begin;
  while (at < end && !isDigit(text.at(at))) {
    ++at;
  }
  return at;
}

QString sentence(const Refusal& refusal) {
  const auto word = [&](int index) { return FileParse::shown(refusal.words.value(index)); };
  switch (refusal.fault) {
    case Fault::NumberMissing:
      return translate("Kyr_Quantity", "A number is missing.");
    case Fault::NotANumber:
      return translate("Kyr_Quantity", "No number begins here.");
    case Fault::DigitMissing:
      return translate("Kyr_Quantity", "A digit is missing.");
    case Fault::Ambiguous:
      return translate("Kyr_Quantity", "%1 may be %2 or %3: write %4 or %5.")
          .arg(word(0), word(1), word(2), word(3), word(4));
    case Fault::Groups:
      return translate("Kyr_Quantity",
                       "\"%1\" separates no groups of three digits here; the decimal separator is "
                       "\"%2\".")
          .arg(word(0), word(1));
    case Fault::SecondDecimal:
      return translate("Kyr_Quantity", "A number has only one decimal separator.");
    case Fault::Fraction:
      return translate("Kyr_Quantity", "\"%1\" is no fraction.").arg(word(0));
    case Fault::TooLarge:
      return translate("Kyr_Quantity", "The number is too large.");
    case Fault::TooSmall:
      return translate("Kyr_Quantity", "The number is too close to zero.");
    case Fault::UnknownUnit:
      return translate("Kyr_Quantity", "\"%1\" is no unit here; known are %2.")
          .arg(word(0), refusal.words.value(1));
    case Fault::UnitMissing:
      return translate("Kyr_Quantity", "A unit is missing.");
    case Fault::UnitOrder:
      return translate("Kyr_Quantity", "\"%1\" cannot follow here.").arg(word(0));
    case Fault::BelowLeast:
      return translate("Kyr_Quantity", "The smallest value is %1.").arg(word(0));
    case Fault::AboveMost:
      return translate("Kyr_Quantity", "The largest value is %1.").arg(word(0));
    case Fault::UnevenSum:
      return translate("Kyr_Quantity", "Either all parts of a sum have a unit or none has.");
    case Fault::UnitTwice:
      return translate("Kyr_Quantity", "Only one factor may have a unit.");
    case Fault::UnitBelow:
      return translate("Kyr_Quantity", "A divisor may not have a unit.");
    case Fault::DivisionByZero:
      return translate("Kyr_Quantity", "Nothing can be divided by zero.");
    case Fault::Unclosed:
      return translate("Kyr_Quantity", "A closing parenthesis is missing.");
    case Fault::TooDeep:
      return translate("Kyr_Quantity", "There are too many parentheses in each other.");
    case Fault::None:
      break;
  }
  return {};
}

QuantityReading refusedReading(const Refusal& refusal, const UnitName& expected) {
  QuantityReading result;
  result.state = refusal.growing ? QuantityReading::Intermediate : QuantityReading::Invalid;
  result.unit = expected;
  result.position = refusal.position;
  result.reason = sentence(refusal);
  return result;
}

/// Whether quantities of a kind can be added: a temperature is no sum of temperatures.
bool hasSums(const KnownKind& kind) {
  const auto units = kind.kind.getUnits();
  return kind.linear && std::all_of(units.begin(), units.end(), [&](Unit::Units_t unit) {
           return kind.linear->getOffset(unit) == 0.0;
         });
}

/// Reads one text for one kind.
class Reader {
 public:
  Reader(const KnownKind& kind, Unit::Units_t expected, Scan::Separators separators,
         bool gradIsDegree, const QString& text)
      : _kind(kind),
        _expected(expected),
        _separators(separators),
        _gradIsDegree(gradIsDegree),
        _text(text),
        _end(endOfBlanks(text)) {}

  QuantityReading read() {
    readText();
    return finished();
  }

  Scan::Operand operand() {
    readText();
    if (_result.hasUnit) {
      refuseInfinity();
    }
    return {_result.hasUnit ? _result.value : _bare, _result.hasUnit, _result.unit, _refusal};
  }

 private:
  void readText() {
    int at = Scan::skipBlanks(_text, 0);
    const ushort sign = at < _end ? Scan::plain(_text.at(at)) : ushort(0);
    _sign = sign == '-' ? -1.0 : 1.0;
    if (sign == '-' || sign == '+') {
      at = Scan::skipBlanks(_text, at + 1);
    }
    _result.value = readParts(at);
  }

  bool refused() const { return _refusal.fault != Fault::None; }
  void refuse(Fault fault, int position, bool growing, const QStringList& words = {}) {
    _refusal = {fault, position, growing, words};
  }

  double readParts(int at) {
    double sum = -0.0;  // adds no sign to that of "-0"
    for (bool first = true; first || at < _end; first = false) {
      const int begin = at;
      Scan::Number number = Scan::readNumber(_text, at, _separators);
      if (!number.isFine()) {
        _refusal = std::move(number.refusal);
        return 0.0;
      }
      at = Scan::skipBlanks(_text, number.end);
      _number = QStringView(_text).mid(begin, number.end - begin);
      const UnitName unit = readUnit(&at, first);
      refuseApostrophe(begin, at, unit);
      if (!refused() && !first && !mayFollow(_kind.kind, _result.unit, &unit)) {
        const bool isHalfOfInch = at == _end && Scan::plain(_text.at(at - 1)) == '\'';  // 5' 3''
        refuse(Fault::UnitOrder, begin, isHalfOfInch, {_text.mid(begin, at - begin).trimmed()});
      }
      if (!refused() && first && at < _end && !mayFollow(_kind.kind, unit, nullptr)) {
        refuse(Fault::UnitOrder, at, false, {_text.mid(at, _end - at)});
      }
      if (refused()) {
        return 0.0;
      }
      _result.unit = unit;
      _bare = _sign * number.value.high;
      const double value =
          toInternal(_kind, unit, {_sign * number.value.high, _sign * number.value.low});
      if (value == 0.0 && number.value.high != 0.0 && scales(unit)) {
        refuse(Fault::TooSmall, begin, false);
        return 0.0;
      }
      sum += value;
    }
    return sum;
  }

  /// Whether zero of the unit, and nothing else, is zero of the internal one.
  bool scales(const UnitName& unit) const {
    return unit.offset == 0.0 && (_kind.linear || unit.number < 0);
  }

  /// The unit at a place that is not blank, or the expected one at the end of the text.
  UnitName readUnit(int* at, bool first) {
    const int begin = *at;
    if (begin >= _end) {
      if (!first) {
        refuse(Fault::UnitMissing, static_cast<int>(_text.size()), true);
      }
      return ownUnit(_kind, _expected);
    }
    _result.hasUnit = true;
    UnitName unit;
    const QString whole = _text.mid(begin, _end - begin);
    *at = _end;
    if (understood(whole, begin, &unit) || refused()) {
      return unit;
    }
    const int end = endOfNameBeforeNumber(_text, begin, _end);
    const QString name = _text.mid(begin, end - begin).trimmed();
    *at = end;
    if (end == _end || !findUnit(_kind, name, &unit)) {
      refuseUnit(whole, begin);
    }
    return unit;
  }

  bool understood(const QString& name, int begin, UnitName* unit) {
    if (_gradIsDegree && meansDegreeOrGon(_kind.kind, name)) {
      _refusal = {Fault::Ambiguous, begin, true, {name, "°", "gon", "°", "gon"}};
      return false;
    }
    return findUnit(_kind, name, unit);
  }

  /// Refuses 5'100" where it may be 5 feet and 100 inches or 5100 inches.
  void refuseApostrophe(int begin, int endOfUnit, const UnitName& unit) {
    const auto isApostrophe = [](QChar sign) { return Scan::plain(sign) == '\''; };
    UnitName larger;
    if (_separators.group != '\'' || refused() || !_result.hasUnit ||
        std::count_if(_number.begin(), _number.end(), isApostrophe) != 1 ||
        !findUnit(_kind, "'", &larger) || !mayFollow(_kind.kind, larger, &unit)) {
      return;
    }
    const auto* const mark = std::find_if(_number.begin(), _number.end(), isApostrophe);
    const auto index = static_cast<int>(mark - _number.begin());
    const QString whole = _text.mid(begin, endOfUnit - begin);
    const QString two = QString(whole).replace(index, 1, "' ");
    const QString one = QString(whole).remove(index, 1);
    refuse(Fault::Ambiguous, begin, true, {whole, two, one, two, one});
  }

  /// Whether more digits may make a number of what stands behind the last one: 1/, 1 1/, 1 23,
  /// 1'00.
  bool continuesNumber(const QString& rest, int begin) const {
    const ushort first = Scan::plain(rest.at(0));
    const bool isApart = Scan::plain(_text.at(begin - 1)) == ' ';
    const auto isPartOfGroups = [](QChar sign) {
      return isDigit(sign) || Scan::plain(sign) == ' ' || Scan::plain(sign) == '\'';
    };
    if (!std::all_of(_number.begin(), _number.end(), isPartOfGroups)) {
      return false;
    }
    if (first == '\'') {
      return _separators.group == '\'' && hasDigitsOnly(rest.mid(1)) && rest.size() <= 3;
    }
    if (!hasDigitsOnly(_number)) {
      return isApart && hasDigitsOnly(rest) && rest.size() < 3;
    }
    const bool hasSlash = Scan::plain(rest.back()) == '/';
    const QString above = hasSlash ? rest.chopped(1) : rest;
    return hasDigitsOnly(above) && above.isEmpty() != isApart;
  }

  void refuseUnit(const QString& name, int begin) {
    QStringList known;
    for (const Unit::Units_t unit : _kind.kind.getUnits()) {
      known += _kind.kind.getUName(unit);
    }
    const bool exponent = name == QLatin1String("e") || name == QLatin1String("E");
    refuse(Fault::UnknownUnit, begin,
           exponent || continuesNumber(name, begin) || beginsUnitName(_kind, name),
           {name, known.join(", ")});
  }

  void refuseInfinity() {
    if (!refused() && std::isinf(_result.value)) {
      refuse(Fault::TooLarge, Scan::skipBlanks(_text, 0), false);
    }
  }

  QuantityReading finished() {
    refuseInfinity();
    if (refused()) {
      QuantityReading result = refusedReading(_refusal, ownUnit(_kind, _expected));
      result.hasUnit = _result.hasUnit;
      return result;
    }
    _result.state = QuantityReading::Acceptable;
    return std::move(_result);
  }

  const KnownKind& _kind;
  const Unit::Units_t _expected;
  const Scan::Separators _separators;
  const bool _gradIsDegree;
  const QString& _text;
  const int _end;
  double _sign = 1.0;
  QStringView _number;  // the one that was read last
  double _bare = 0.0;   // the same without its unit
  QuantityReading _result;
  Refusal _refusal;
};

}  // namespace

namespace {

/// \param state of the text as a single quantity
QuantityReading resultOf(const Scan::Operand& formula, const KnownKind& kind,
                         Unit::Units_t expected, QuantityReading::State_t state) {
  const UnitName unit = ownUnit(kind, expected);
  if (!formula.isFine()) {
    QuantityReading result = refusedReading(formula.refusal, unit);
    result.state = std::max(result.state, state);
    return result;
  }
  if (formula.hasUnit) {
    return {QuantityReading::Acceptable, formula.value, formula.unit, true, -1, {}};
  }
  const double value = toInternal(kind, unit, {formula.value, 0.0});
  const bool isTooSmall = value == 0.0 && formula.value != 0.0;
  return std::isinf(value) || isTooSmall
             ? refusedReading({isTooSmall ? Fault::TooSmall : Fault::TooLarge, 0, false, {}}, unit)
             : QuantityReading{QuantityReading::Acceptable, value, unit, false, -1, {}};
}

}  // namespace

/// What a text means that is no quantity by itself.
QuantityReading QuantityText::reckoned(const QString& text, QuantityReading single) const {
  const KnownKind kind(*_kind, _linear);
  const Unit::Units_t expected = expectedUnit();
  const Scan::Separators separators{Scan::plain(_decimal), Scan::plain(_group)};
  if (!hasSums(kind)) {
    return single;
  }
  const auto read = Scan::readFormula(text, [&](const QString& operand) {
    return Reader(kind, expected, separators, _grad_is_degree, operand).operand();
  });
  return read ? resultOf(*read, kind, expected, single.state) : single;
}

QuantityReading QuantityText::read(const QString& text) const {
  const KnownKind kind(*_kind, _linear);
  const Scan::Separators separators{Scan::plain(_decimal), Scan::plain(_group)};
  const auto isInRange = [this](double value) { return value >= _least && value <= _most; };
  QuantityReading result = Reader(kind, expectedUnit(), separators, _grad_is_degree, text).read();
  if (_arithmetic && !result.isAcceptable()) {
    result = reckoned(text, std::move(result));
  }
  if (!result.isAcceptable() || isInRange(result.value)) {
    return result;
  }
  const bool below = result.value < _least;
  const double limit = below ? _least : _most;
  Refusal refusal{
      below ? Fault::BelowLeast : Fault::AboveMost, Scan::skipBlanks(text, 0), true, {}};
  constexpr double infinity = std::numeric_limits<double>::infinity();
  QuantityText precise = QuantityText(*this).setRange(-infinity, infinity);
  precise._digits = Digits_t::Meaningful;
  if (!isInRange(precise.read(precise.textIn(limit, result.unit)).value)) {
    precise.setExact();  // what it shows is not to be refused
  }
  refusal.words += precise.textIn(limit, result.unit);
  result.state = QuantityReading::Intermediate;
  result.value = std::numeric_limits<double>::quiet_NaN();
  result.position = refusal.position;
  result.reason = sentence(refusal);
  return result;
}

}  // namespace Kyr
