#include <kyr/units/quantity_scan_p.h>

#include <kyr/text/numeric_p.h>

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Kyr::Scan {

namespace {

constexpr bool isDigit(ushort sign) {
  return sign >= '0' && sign <= '9';
}

ushort at(const QString& text, int index) {
  return index < text.size() ? plain(text.at(index)) : ushort(0);
}

struct Mark {
  ushort sign;
  int index;   // in the text
  int before;  // digits in front of it
};

/// Digits and the separators among them.
struct Run {
  QVarLengthArray<char, 64> digits;
  QVarLengthArray<Mark, 8> marks;
  int begin = 0;
  int end = 0;

  int countOfDigits() const { return static_cast<int>(digits.size()); }
  int countOfMarks() const { return static_cast<int>(marks.size()); }
};

bool isMark(ushort sign) {
  return sign == '.' || sign == ',';
}

/// Whether a character separates groups only: elsewhere blanks end a number, and apostrophes are
/// feet or minutes of arc. Tabs and line ends stand between the cells of a table.
bool isGroupMark(QChar sign, Separators separators) {
  const ushort code = plain(sign);
  return code == ' ' ? sign == ' ' || sign.category() == QChar::Separator_Space
                     : code == '\'' && separators.group == '\'';
}

/// Digits from one mark, or the beginning, to the next.
int groupSize(const Run& run, int mark) {
  const int last = mark < run.marks.size() ? run.marks[mark].before : run.countOfDigits();
  return last - (mark == 0 ? 0 : run.marks[mark - 1].before);
}

constexpr int groupDigits = 3;

/// Whether a mark stands between groups of three digits.
bool separatesGroups(const QString& text, const Run& run, int index) {
  const int first = groupSize(run, run.countOfMarks());
  const bool fits = run.marks.isEmpty()
                        ? first >= 1 && first <= groupDigits
                        : run.marks.back().sign == at(text, index) && first == groupDigits;
  int digits = 0;
  while (isDigit(at(text, index + 1 + digits)) && digits <= groupDigits) {
    ++digits;
  }
  return fits && digits == groupDigits;
}

Run collect(const QString& text, int begin, Separators separators) {
  Run run;
  run.begin = begin;
  int index = begin;
  for (;; ++index) {
    const ushort sign = at(text, index);
    if (isDigit(sign)) {
      run.digits.append(static_cast<char>(sign));
    } else if (isMark(sign) || (index < text.size() && isGroupMark(text.at(index), separators) &&
                                separatesGroups(text, run, index))) {
      run.marks.append({sign, index, run.countOfDigits()});
    } else {
      break;
    }
  }
  run.end = index;
  return run;
}

/// Whether the groups in front of some mark, or of the end, are of three digits, the first of up to
/// three and without a leading zero.
bool groupsFit(const Run& run, int marks) {
  const int first = groupSize(run, 0);
  bool fits = first >= 1 && first <= groupDigits && run.digits[0] != '0';
  for (int group = 1; group <= marks; ++group) {
    fits = fits && groupSize(run, group) == groupDigits;
  }
  return fits;
}

/// The digits with a separator in front of the last ones.
QString written(const Run& run, int decimals, ushort separator) {
  QString text = QString::fromLatin1(run.digits.data(), run.digits.size());
  return text.insert(text.size() - decimals, QChar(separator));
}

QString withoutEndZeros(QString text) {
  while (text.endsWith('0')) {
    text.chop(1);
  }
  return text.back().isDigit() ? text : text.left(text.size() - 1);
}

/// What to say of "1.000", which may be 1 or 1000.
Refusal ambiguous(const QString& text, const Run& run, Separators separators) {
  const QString decimal = written(run, groupDigits, separators.decimal);
  const QString whole = QString::fromLatin1(run.digits.data(), run.digits.size());
  return {
      Fault::Ambiguous,
      run.begin,
      true,
      {text.mid(run.begin, run.end - run.begin), withoutEndZeros(decimal), whole, decimal, whole}};
}

Refusal wrongGroups(const QString& text, const Run& run, int mark, Separators separators) {
  const Mark& wrong = run.marks[mark];
  const bool decimal = wrong.sign == separators.decimal;
  const bool growing = run.end == text.size() && mark + 1 == run.marks.size() &&
                       wrong.sign == separators.group && groupsFit(run, mark) &&
                       groupSize(run, mark + 1) < groupDigits;
  return {decimal ? Fault::SecondDecimal : Fault::Groups,
          wrong.index,
          growing,
          {QString(text.at(wrong.index)), QString(QChar(separators.decimal))}};
}

/// How many of the marks separate groups; the one behind them, if any, is the decimal separator.
int groupMarks(const QString& text, const Run& run, Separators separators, Refusal* refusal) {
  const int count = run.countOfMarks();
  if (count == 0) {
    return 0;
  }
  const ushort first = run.marks[0].sign;
  const bool groupsDiffer = first == ' ' || first == separators.group;
  if (count == 1 && first != ' ') {
    const bool mayGroup = groupsDiffer && groupsFit(run, 1);
    if (first == separators.decimal || (first == '.' && !mayGroup)) {
      return 0;
    }
    if (mayGroup && first != '\'') {
      *refusal = ambiguous(text, run, separators);
    } else if (!mayGroup) {
      *refusal = wrongGroups(text, run, 0, separators);
    }
    return 1;
  }
  const auto* const other = std::find_if(run.marks.begin(), run.marks.end(),
                                         [&](const Mark& mark) { return mark.sign != first; });
  const int groups = static_cast<int>(other - run.marks.begin());
  const bool pointBehindBlanks = first == ' ' && groups < count && other->sign == '.';
  const bool decimalFits =
      groups == count || other->sign == separators.decimal || pointBehindBlanks;
  if (!groupsDiffer || first == separators.decimal) {
    *refusal = wrongGroups(text, run, first == separators.decimal ? 1 : 0, separators);
  } else if (!groupsFit(run, groups)) {
    *refusal = wrongGroups(text, run, groups - 1, separators);
  } else if (!decimalFits) {
    *refusal = wrongGroups(text, run, groups, separators);
  } else if (groups + 1 < count) {
    *refusal = wrongGroups(text, run, groups + 1, separators);
  }
  return groups;
}

/// Reads "e-3".
/// \return the index behind it; \a index when there is none, -1 when its digits are missing
int readExponent(const QString& text, int index, QVarLengthArray<char, 64>* number) {
  const ushort sign = at(text, index);
  if (sign != 'e' && sign != 'E') {
    return index;
  }
  const ushort next = at(text, index + 1);
  const bool isSigned = next == '-' || next == '+';
  int digit = index + (isSigned ? 2 : 1);
  if (!isDigit(at(text, digit))) {
    return digit == text.size() ? -1 : index;
  }
  number->append('e');
  if (next == '-') {
    number->append('-');
  }
  for (; isDigit(at(text, digit)); ++digit) {
    number->append(static_cast<char>(at(text, digit)));
  }
  return digit;
}

bool isNotZero(char digit) {
  return digit != '0';
}

const char* firstOtherThanZero(const Run& run) {
  return std::find_if(run.digits.begin(), run.digits.end(), isNotZero);
}

int significantDigits(const Run& run) {
  const char* const first = firstOtherThanZero(run);
  auto last = std::make_reverse_iterator(run.digits.end());
  last = std::find_if(last, std::make_reverse_iterator(first), isNotZero);
  return static_cast<int>(last.base() - first);
}

/// A whole number that has at most as many digits as an integer holds.
Exact::Pair wholeNumber(const char* begin, const char* end) {
  quint64 number = 0;
  for (const char* at = begin; at != end; ++at) {
    number = number * 10 + static_cast<quint64>(*at - '0');
  }
  const auto high = static_cast<double>(number);
  const auto low = static_cast<qint64>(number - static_cast<quint64>(high));
  return {high, static_cast<double>(low)};
}

/// What a double lacks of a decimal number, to the precision of a second double.
double restOf(const Run& run, int decimals, qint64 exponent, double value) {
  constexpr std::ptrdiff_t most = 18;  // digits of an integer; two such numbers are enough
  const auto* const begin = firstOtherThanZero(run);
  const auto* const middle = begin + std::min(most, run.digits.end() - begin);
  const auto* const end = middle + std::min(most, run.digits.end() - middle);
  constexpr qint64 farthest = qint64(1) << 40;  // beyond any double, and far from an overflow
  exponent = std::clamp(exponent, -farthest, farthest) + (run.digits.end() - end) - decimals;
  if (!Exact::isSafe(value) || std::abs(exponent) > Exact::largestPower) {
    return 0.0;
  }
  const Exact::Pair tail = wholeNumber(middle, end);
  Exact::Pair whole = Exact::times(wholeNumber(begin, middle),
                                   Exact::powerOfTen(static_cast<unsigned>(end - middle)));
  whole = Exact::plus(Exact::plus(whole, tail.high), tail.low);
  const Exact::Pair power = Exact::powerOfTen(static_cast<unsigned>(std::abs(exponent)));
  const Exact::Pair exact = exponent < 0 ? Exact::over(whole, power) : Exact::times(whole, power);
  return (exact.high - value) + exact.low;
}

Number readDecimal(const QString& text, Separators separators, const Run& run) {
  Number result;
  const int groups = groupMarks(text, run, separators, &result.refusal);
  if (!result.isFine()) {
    return result;
  }
  const bool hasDecimals = groups < run.marks.size();
  const int whole = hasDecimals ? run.marks[groups].before : run.countOfDigits();
  if (run.digits.isEmpty() || (hasDecimals && whole == run.digits.size())) {
    result.refusal = {Fault::DigitMissing, run.end, run.end == text.size(), {}};
    return result;
  }
  QVarLengthArray<char, 64> number;
  number.append(run.digits.data(), whole);
  if (hasDecimals) {
    number.append('.');
    number.append(run.digits.data() + whole, run.digits.size() - whole);
  }
  const auto mantissa = number.size();
  result.end = readExponent(text, run.end, &number);
  if (result.end < 0) {
    result.refusal = {Fault::DigitMissing, static_cast<int>(text.size()), true, {}};
    return result;
  }
  const char* stop = nullptr;
  const char* const end = number.data() + number.size();
  result.value.high = Numeric::parseDouble(number.data(), end, &stop);
  if (std::isinf(result.value.high)) {
    result.refusal = {Fault::TooLarge, run.begin, false, {}};
    return result;
  }
  if (result.value.high == 0.0 && firstOtherThanZero(run) != run.digits.end()) {
    result.refusal = {Fault::TooSmall, run.begin, false, {}};
    return result;
  }
  constexpr int usualDigits = 15;  // who types no more expects what a double makes of them
  if (significantDigits(run) > usualDigits) {
    qint64 exponent = 0;
    if (mantissa == number.size() ||
        Numeric::parseInt64(number.data() + mantissa + 1, end, &stop, &exponent)) {
      result.value.low = restOf(run, run.countOfDigits() - whole, exponent, result.value.high);
    }
  }
  return result;
}

struct Vulgar {
  ushort sign;
  double value;
};
constexpr Vulgar vulgars[] = {{0xBC, 0.25},    {0xBD, 0.5},     {0xBE, 0.75},   {0x215B, 0.125},
                              {0x215C, 0.375}, {0x215D, 0.625}, {0x215E, 0.875}};

const Vulgar* vulgarAt(const QString& text, int index) {
  const auto* const found =
      std::find_if(std::begin(vulgars), std::end(vulgars),
                   [sign = at(text, index)](const Vulgar& row) { return row.sign == sign; });
  return found == std::end(vulgars) ? nullptr : found;
}

/// Digits without separators, as double.
double digitsAt(const QString& text, int* index) {
  double value = 0.0;
  for (; isDigit(at(text, *index)); ++*index) {
    value = value * 10.0 + (at(text, *index) - '0');
  }
  return value;
}

bool isFraction(const QString& text, int index) {
  while (isDigit(at(text, index))) {
    ++index;
  }
  return at(text, index) == '/' && isDigit(at(text, index + 1));
}

/// Reads "1/2".
Number readFraction(const QString& text, int begin) {
  Number result;
  result.end = begin;
  const double above = digitsAt(text, &result.end);
  ++result.end;
  const double below = digitsAt(text, &result.end);
  const double largest = 1e15;  // up to here doubles hold whole numbers exactly
  const ushort next = at(text, result.end);
  const bool digitsFollow = next == '.' || next == ',' || next == 'e' ||
                            (next == '/' && isDigit(at(text, result.end + 1)));
  if (below == 0.0 || above > largest || below > largest || digitsFollow) {
    const bool growing = below == 0.0 && result.end == text.size();
    result.refusal = {Fault::Fraction, begin, growing, {text.mid(begin, result.end - begin)}};
    return result;
  }
  result.value = Exact::over({above, 0.0}, {below, 0.0});
  return result;
}

/// Adds the fraction of "1 1/2" and of "1 ½".
void readFractionBehind(const QString& text, const Run& run, Number* number) {
  const int next = skipBlanks(text, number->end);
  const bool plainDigits = run.marks.isEmpty() && number->end == run.end;
  const Vulgar* const vulgar = vulgarAt(text, next);
  const bool fraction = next > number->end && isDigit(at(text, next)) && isFraction(text, next);
  if (!vulgar && !fraction) {
    return;
  }
  Number part;
  if (vulgar) {
    part.value.high = vulgar->value;
    part.end = next + 1;
  } else {
    part = readFraction(text, next);
  }
  if (part.isFine() && (!plainDigits || part.value.high >= 1.0)) {
    const bool growing = plainDigits && !vulgar && part.end == text.size();
    part.refusal = {Fault::Fraction, next, growing, {text.mid(next, part.end - next)}};
  }
  const Exact::Pair sum = Exact::sum(number->value.high, part.value.high);
  number->value = Exact::sum(sum.high, sum.low + part.value.low);
  number->end = part.end;
  number->refusal = part.refusal;
}

constexpr double tens[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Whether a number ends for sure: at the end, or in front of a letter of a unit.
bool endsNumber(const ushort* at, const ushort* end) {
  if (at != end && (*at == ' ' || *at == 0xA0)) {
    ++at;
  }
  return at == end || (*at > 'e' && *at <= 'z');
}

/// Reads the usual form, digits with one decimal separator before a unit, faster than the rest of
/// this file does.
/// \return the index behind it, \a begin for any other form
int readUsual(const QString& text, int begin, ushort decimal, double* value) {
  const auto* const first = reinterpret_cast<const ushort*>(text.constData());
  const ushort* const end = first + text.size();
  const ushort* const number = first + begin;
  const ushort* at = number;
  quint64 digits = 0;
  const auto readDigits = [&](std::ptrdiff_t most) {
    const ushort* const from = at;
    for (; at != end && isDigit(*at) && at - from < most; ++at) {
      digits = digits * 10 + (*at - '0');
    }
    return at - from;
  };
  constexpr std::ptrdiff_t mostDigits = 15;  // these and their power of ten are doubles
  const std::ptrdiff_t whole = readDigits(mostDigits);
  std::ptrdiff_t decimals = 0;
  if (whole != 0 && at != end && *at == decimal) {
    ++at;
    decimals = readDigits(mostDigits - whole);
  }
  if (whole == 0 || *(at - 1) == decimal || !endsNumber(at, end)) {
    return begin;
  }
  *value = static_cast<double>(digits) / tens[decimals];
  return static_cast<int>(at - first);
}

}  // namespace

ushort plainOfOther(QChar sign) {
  const ushort code = sign.unicode();
  if (code < 0x80) {
    return code == '\t' || code == '\n' || code == '\r' ? ushort(' ') : code;
  }
  switch (code) {
    case 0x2212:  // minus
    case 0x2010:  // hyphens
    case 0x2011:
    case 0x2013:  // en dash, which word processors make of a hyphen
    case 0xFF0D:
      return '-';
    case 0xFF0B:
      return '+';
    case 0xFF0E:
      return '.';
    case 0xFF0C:
    case 0x66B:
      return ',';
    case 0x2044:  // fraction slash
    case 0xFF0F:
      return '/';
    case 0x2032:
    case 0x2019:
      return '\'';
    case 0x2033:
    case 0x201D:
      return '"';
    default:
      break;
  }
  if (sign.category() == QChar::Number_DecimalDigit) {
    return static_cast<ushort>('0' + sign.digitValue());
  }
  return sign.isSpace() ? ushort(' ') : code;
}

int skipBlanks(const QString& text, int at) {
  while (at < text.size() && plain(text.at(at)) == ' ') {
    ++at;
  }
  return at;
}

Number readNumber(const QString& text, int begin, Separators separators) {
  double usual = 0.0;
  const int endOfUsual = readUsual(text, begin, separators.decimal, &usual);
  if (endOfUsual != begin) {
    return {{usual, 0.0}, endOfUsual};
  }
  if (const Vulgar* const vulgar = vulgarAt(text, begin)) {
    return {{vulgar->value, 0.0}, begin + 1};
  }
  if (isDigit(at(text, begin)) && isFraction(text, begin)) {
    return readFraction(text, begin);
  }
  const Run run = collect(text, begin, separators);
  if (run.digits.isEmpty() && run.marks.isEmpty()) {
    const bool missing = begin == text.size();
    return {{}, begin, {missing ? Fault::NumberMissing : Fault::NotANumber, begin, missing, {}}};
  }
  Number result = readDecimal(text, separators, run);
  if (result.isFine() && at(text, result.end) == '/' && isDigit(at(text, result.end + 1))) {
    int end = result.end + 1;
    digitsAt(text, &end);
    result.refusal = {Fault::Fraction, begin, false, {text.mid(begin, end - begin)}};
  }
  if (result.isFine()) {
    readFractionBehind(text, run, &result);
  }
  return result;
}

}  // namespace Kyr::Scan
