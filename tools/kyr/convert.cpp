#include "commands.h"
#include "output.h"
#include "unit_names.h"

#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include <cmath>

namespace KyrTool {

namespace {

using Kyr::Unit;

struct Conversion {
  const Unit* kind;
  Unit::Units_t from;
  Unit::Units_t to;
};

double parseValue(const QString& text) {
  bool ok = false;
  const double value = Kyr::qstringToDouble(text, &ok);
  if (!ok || text.trimmed().isEmpty() || !std::isfinite(value)) {
    throw UsageError{QString("\"%1\" is not a number").arg(text)};
  }
  return value;
}

bool fits(const QString& from, const QString& to, Conversion& conversion) {
  return findUnit(*conversion.kind, from, &conversion.from) &&
         findUnit(*conversion.kind, to, &conversion.to);
}

/// Says why no kind has both units.
[[noreturn]] void refuse(const QString& from, const QString& to) {
  for (const QString& name : {from, to}) {
    if (kindsWith(name).isEmpty()) {
      throw UsageError{QString("there is no unit \"%1\"; kyr units lists them").arg(name)};
    }
  }
  throw UsageError{QString("\"%1\" (%2) and \"%3\" (%4) are units of different kinds")
                       .arg(from, kindsWith(from).join(", "), to, kindsWith(to).join(", "))};
}

/// Of several kinds with both units the first is as good as any: they convert alike.
Conversion findConversion(const QString& from, const QString& to) {
  for (const Unit* const kind : allKinds()) {
    Conversion conversion{kind, Unit::Millimetre, Unit::Millimetre};
    if (fits(from, to, conversion)) {
      return conversion;
    }
  }
  refuse(from, to);
}

Conversion conversionOfKind(const QString& name, const QString& from, const QString& to) {
  Conversion conversion{kindOfName(name), Unit::Millimetre, Unit::Millimetre};
  if (!fits(from, to, conversion)) {
    const QString missing = findUnit(*conversion.kind, from, &conversion.from) ? to : from;
    throw UsageError{QString("%1 has no unit \"%2\"").arg(Unit::getID(conversion.kind), missing)};
  }
  return conversion;
}

/// All digits that mean something, without the noise of binary numbers behind them.
QString numberText(double value, const Arguments& arguments) {
  constexpr unsigned most = 60;
  constexpr int meaningful = 15;
  const double unsignedZero = value + 0.0;
  if (arguments.has("digits")) {
    const unsigned digits = arguments.number("digits", 0, most, 0);
    return QString::number(unsignedZero, 'f', static_cast<int>(digits));
  }
  return QString::fromStdString(Kyr::KString::number(unsignedZero, 'g', meaningful));
}

}  // namespace

int convert(const Arguments& arguments) {
  const double value = parseValue(arguments[0]);
  constexpr unsigned mostPixels = 1000000;
  Kyr::uFigure.setDPI(arguments.number("dpi", 1, mostPixels, Kyr::uFigure.getDPI()));
  const Conversion conversion =
      arguments.has("kind") ? conversionOfKind(arguments.option("kind"), arguments[1], arguments[2])
                            : findConversion(arguments[1], arguments[2]);
  const Unit& kind = *conversion.kind;
  const double converted = kind.to(value, conversion.from, conversion.to);
  if (!std::isfinite(converted)) {
    throw UsageError{QString("%1 %2 is too large a value").arg(arguments[0], arguments[1])};
  }
  print(QString("%1 %2 = %3 %4\n")
            .arg(arguments[0].trimmed(), kind.getUName(conversion.from),
                 numberText(converted, arguments), kind.getUName(conversion.to)));
  return Fine;
}

}  // namespace KyrTool
