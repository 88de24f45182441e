#include <kyr/units/quantity_formula_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Kyr::Scan {

namespace {

constexpr int deepest = 16;  // parentheses in each other

class Formula {
 public:
  Formula(const QString& text, const ReadOperand& read) : _text(text), _read(read) {}

  std::optional<Operand> read() {
    Operand result = sum(0);
    if (!_hasSign && _at == _text.size()) {
      return std::nullopt;
    }
    if (result.isFine() && _at < _text.size()) {
      result.refusal = {Fault::UnitOrder, _at, false, {_text.mid(_at)}};
    }
    return result;
  }

 private:
  ushort sign(int at) const { return at < _text.size() ? plain(_text.at(at)) : ushort(0); }
  bool isBlank(int at) const { return at >= _text.size() || sign(at) == ' '; }
  bool isDigit(int at) const { return sign(at) >= '0' && sign(at) <= '9'; }

  /// Plus and minus stand between blanks: 5'-3" and 1-1/2 are no differences to many. Nor is what
  /// has a dash, as 5 – 10.
  bool isPlusOrMinus(int at) const {
    const ushort code = at < _text.size() ? _text.at(at).unicode() : ushort(0);
    constexpr ushort minus = 0x2212;
    const bool isSign = code == '+' || code == '-' || code == minus;
    return isSign && at > 0 && isBlank(at - 1) && isBlank(at + 1);
  }
  bool isTimes(int at) const {
    constexpr ushort cross = 0xD7, dot = 0xB7;
    return sign(at) == '*' || sign(at) == cross || sign(at) == dot;
  }
  /// Between blanks, and in front of a number: others are parts of units and of fractions.
  bool isOver(int at) const {
    if (sign(at) != '/' || at == 0 || !isBlank(at - 1) || !isBlank(at + 1)) {
      return false;
    }
    const int next = skipBlanks(_text, at + 1);
    return next >= _text.size() || isDigit(next) || sign(next) == '(';
  }
  bool hasSlash(int begin, int end) const {
    return std::any_of(_text.begin() + begin, _text.begin() + end,
                       [](QChar sign) { return plain(sign) == '/'; });
  }
  bool endsOperand(int at) const {
    return sign(at) == '(' || sign(at) == ')' || isPlusOrMinus(at) || isTimes(at) || isOver(at);
  }

  static Operand refused(Fault fault, int position, bool growing = false) {
    Operand result;
    result.refusal = {fault, position, growing, {}};
    return result;
  }

  /// What came out, unless a double cannot hold it.
  static Operand checked(const Operand& result, bool isZero, int begin) {
    if (!std::isfinite(result.value)) {
      return refused(Fault::TooLarge, begin);
    }
    return result.value == 0.0 && !isZero ? refused(Fault::TooSmall, begin) : result;
  }

  Operand sum(int depth) {
    const int begin = skipBlanks(_text, _at);
    Operand left = product(depth);
    while (left.isFine() && isPlusOrMinus(_at)) {
      _hasSign = true;
      const double factor = sign(_at) == '-' ? -1.0 : 1.0;
      const int next = skipBlanks(_text, ++_at);
      Operand right = product(depth);
      if (!right.isFine()) {
        return right;
      }
      if (left.hasUnit != right.hasUnit) {
        return refused(Fault::UnevenSum, next, left.hasUnit && _at == _text.size());
      }
      left.value += factor * right.value;
      left = checked(left, true, begin);
    }
    return left;
  }

  Operand product(int depth) {
    const int begin = skipBlanks(_text, _at);
    Operand left = operand(depth);
    while (left.isFine() && (isTimes(_at) || isOver(_at))) {
      _hasSign = true;
      const bool isQuotient = isOver(_at);
      const int next = skipBlanks(_text, ++_at);
      Operand right = operand(depth);
      if (!right.isFine()) {
        return right;
      }
      if (isQuotient && sign(next) != '(' && hasSlash(next, _at)) {
        return ambiguous(begin, next);
      }
      left = isQuotient ? quotient(left, right, begin, next) : product(left, right, begin, next);
    }
    return left;
  }

  /// Of "6 / 1/2", which may be 12 or 3.
  Operand ambiguous(int begin, int next) const {
    const QString whole = _text.mid(begin, _at - begin).trimmed();
    const QString before = _text.mid(begin, next - begin);
    const QString divisor = _text.mid(next, _at - next).trimmed();
    const QString once = before + '(' + divisor + ')';
    QString twice = before;
    for (const QChar character : divisor) {
      twice += plain(character) == '/' ? QStringLiteral(" / ") : QString(character);
    }
    Operand result;
    result.refusal = {
        Fault::Ambiguous, begin, _at == _text.size(), {whole, once, twice, once, twice}};
    return result;
  }

  static Operand product(const Operand& left, const Operand& right, int begin, int next) {
    if (left.hasUnit && right.hasUnit) {
      return refused(Fault::UnitTwice, next);
    }
    Operand result = right.hasUnit ? right : left;
    result.value = left.value * right.value;
    return checked(result, left.value == 0.0 || right.value == 0.0, begin);
  }

  static Operand quotient(Operand left, const Operand& right, int begin, int next) {
    if (right.hasUnit) {
      return refused(Fault::UnitBelow, next);
    }
    if (right.value == 0.0) {
      return refused(Fault::DivisionByZero, next, true);
    }
    const bool isZero = left.value == 0.0;
    left.value /= right.value;
    return checked(left, isZero, begin);
  }

  Operand operand(int depth) {
    _at = skipBlanks(_text, _at);
    if (sign(_at) == '(') {
      return inParentheses(depth + 1);
    }
    const int begin = _at;
    _at += isPlusOrMinus(_at) ? 1 : 0;  // where an operand is to begin, that is its own sign
    while (_at < _text.size() && !endsOperand(_at)) {
      ++_at;
    }
    Operand result = _read(_text.mid(begin, _at - begin));
    if (!result.isFine()) {
      result.refusal.growing = result.refusal.growing && _at == _text.size();
      result.refusal.position += begin;
    }
    return result;
  }

  Operand inParentheses(int depth) {
    if (depth > deepest) {
      return refused(Fault::TooDeep, _at);
    }
    _hasSign = true;
    ++_at;
    Operand result = sum(depth);
    if (result.isFine() && sign(_at) != ')') {
      const bool missing = _at == _text.size();
      result.refusal = {
          missing ? Fault::Unclosed : Fault::UnitOrder, _at, missing, {_text.mid(_at)}};
      return result;
    }
    _at = skipBlanks(_text, _at + 1);
    return result;
  }

  const QString& _text;
  const ReadOperand& _read;
  int _at = 0;
  bool _hasSign = false;
};

}  // namespace

std::optional<Operand> readFormula(const QString& text, const ReadOperand& read) {
  return Formula(text, read).read();
}

}  // namespace Kyr::Scan
