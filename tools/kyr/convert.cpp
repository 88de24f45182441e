#include "commands.h"
#include "json.h"
#include "output.h"
#include "unit_names.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <vector>

namespace KyrTool {

namespace {

using Kyr::Unit;

struct Conversion {
  const Unit* kind;
  Kyr::UnitName from;
  Kyr::UnitName to;
  double internal;  ///< the value, in the kind's internal unit
};

double parseValue(const QString& text) {
  bool ok = false;
  const double value = Kyr::qstringToDouble(text, &ok);
  if (!ok || text.trimmed().isEmpty() || !std::isfinite(value)) {
    throw UsageError{Kyr::translate("Kyr_tool", "\"%1\" is not a number").arg(text)};
  }
  return value;
}

bool fits(const QString& from, const QString& to, Conversion& conversion) {
  return Kyr::QuantityText::findUnit(*conversion.kind, from, &conversion.from) &&
         Kyr::QuantityText::findUnit(*conversion.kind, to, &conversion.to);
}

[[noreturn]] void refuseName(const QString& name) {
  throw UsageError{
      Kyr::translate("Kyr_tool", "there is no unit \"%1\"; kyr units lists them").arg(name)};
}

/// Says why no kind has both units.
[[noreturn]] void refuse(const QString& from, const QString& to) {
  for (const QString& name : {from, to}) {
    if (kindsWith(name).isEmpty()) {
      refuseName(name);
    }
  }
  throw UsageError{
      Kyr::translate("Kyr_tool", "\"%1\" (%2) and \"%3\" (%4) are units of different kinds")
          .arg(from, kindsWith(from).join(", "), to, kindsWith(to).join(", "))};
}

/// The kinds that the user leaves to choose from.
std::vector<const Unit*> candidates(const Arguments& arguments) {
  if (arguments.has("kind")) {
    return {kindOfName(arguments.option("kind"))};
  }
  return {allKinds().begin(), allKinds().end()};
}

double inTarget(const Conversion& conversion) {
  return conversion.internal / conversion.to.factor + conversion.to.offset;
}

/// The number with all digits that mean something, without the noise of binary numbers behind them.
QString meaningfulText(double value) {
  constexpr int meaningful = 15;
  const double unsignedZero = value + 0.0;
  return QString::fromStdString(Kyr::KString::number(unsignedZero, 'g', meaningful));
}

/// Whether both units are of the kind's own list, as µs is of SHUTTER but not of TIME.
bool isOfCatalogue(const Conversion& conversion) {
  return conversion.from.number >= 0 && conversion.to.number >= 0;
}

/// The first of the kinds in which a value can be converted, best by units of its own list, unless
/// another kind makes something else of it, as of ' and ", which are lengths and arcs. Differences
/// of temperatures are to be asked for by their kind.
Conversion onlyOne(const std::vector<Conversion>& found) {
  constexpr double rounding = 1e-12;
  const auto listed = std::find_if(found.begin(), found.end(), isOfCatalogue);
  const Conversion& first = listed == found.end() ? found.front() : *listed;
  const double value = inTarget(first);
  for (const Conversion& other : found) {
    const double otherValue = inTarget(other);
    if (other.kind != &Kyr::uTempDifference &&
        std::fabs(otherValue - value) > rounding * std::fabs(value)) {
      throw UsageError{
          Kyr::translate("Kyr_tool", "this is %1 %2 as %3, %4 %2 as %5; choose one with --kind")
              .arg(meaningfulText(value), first.to.name, Unit::getID(first.kind),
                   meaningfulText(otherValue), Unit::getID(other.kind))};
    }
  }
  return first;
}

/// Converts in all kinds with both units.
Conversion findConversion(const Arguments& arguments, double value, const QString& from,
                          const QString& to) {
  std::vector<Conversion> found;
  for (const Unit* const kind : candidates(arguments)) {
    Conversion conversion{kind, {}, {}, 0.0};
    if (fits(from, to, conversion)) {
      conversion.internal = (value - conversion.from.offset) * conversion.from.factor;
      found.push_back(conversion);
    } else if (arguments.has("kind")) {
      const bool known = !conversion.from.name.isEmpty();
      throw UsageError{Kyr::translate("Kyr_tool", "%1 has no unit \"%2\"")
                           .arg(Unit::getID(kind), known ? to : from)};
    }
  }
  if (found.empty()) {
    refuse(from, to);
  }
  return onlyOne(found);
}

/// Reads a quantity as the user's language has it, in all kinds that have the target.
Conversion readQuantity(const Arguments& arguments, const QString& text, const QString& to) {
  std::vector<Conversion> found;
  QString reason;  // why it is none, in the first of them
  for (const Unit* const kind : candidates(arguments)) {
    Conversion conversion{kind, {}, {}, 0.0};
    if (!Kyr::QuantityText::findUnit(*kind, to, &conversion.to)) {
      continue;
    }
    const Kyr::QuantityReading reading =
        Kyr::QuantityText(*kind, QLocale()).setArithmetic().read(text);
    if (reading.isAcceptable() && reading.hasUnit) {
      conversion.from = reading.unit;
      conversion.internal = reading.value;
      found.push_back(conversion);
    } else if (reason.isEmpty()) {
      reason = reading.isAcceptable() ? Kyr::translate("Kyr_tool", "A unit is missing.")
                                      : reading.reason;
    }
  }
  if (found.empty() && reason.isEmpty()) {
    refuseName(to);
  }
  if (found.empty()) {
    throw UsageError{QString("\"%1\": %2").arg(text, reason)};
  }
  return onlyOne(found);
}

/// The number that is shown.
QString numberText(double value, const Arguments& arguments) {
  constexpr unsigned most = 60;
  if (!arguments.has("digits")) {
    return meaningfulText(value);
  }
  const unsigned digits = arguments.number("digits", 0, most, 0);
  return QString::number(value + 0.0, 'f', static_cast<int>(digits));
}

/// Says the value in both units.
/// \param typed the value as it is shown
int show(const Arguments& arguments, const QString& typed, double value,
         const Conversion& conversion) {
  const double converted = inTarget(conversion);
  if (!std::isfinite(converted)) {
    throw UsageError{
        Kyr::translate("Kyr_tool", "%1 %2 is too large a value").arg(typed, conversion.from.name)};
  }
  const QString shown = numberText(converted, arguments);
  if (arguments.has("json")) {
    printJson({{"kind", Unit::getID(conversion.kind)},
               {"value", value},
               {"from", conversion.from.name},
               {"result", converted + 0.0},
               {"to", conversion.to.name}});
    return Fine;
  }
  print(QString("%1 %2 = %3 %4\n").arg(typed, conversion.from.name, shown, conversion.to.name));
  return Fine;
}

int showUnderstood(const Arguments& arguments, const QString& text, const QString& to) {
  const Conversion conversion = readQuantity(arguments, text, to);
  const double typed = conversion.internal / conversion.from.factor + conversion.from.offset;
  return show(arguments, meaningfulText(typed), typed + 0.0, conversion);
}

}  // namespace

int convert(const Arguments& arguments) {
  constexpr unsigned mostPixels = 1000000;
  Kyr::uFigure.setDPI(arguments.number("dpi", 1, mostPixels, Kyr::uFigure.getDPI()));
  if (arguments.count() == 2) {
    return showUnderstood(arguments, arguments[0], arguments[1]);
  }
  const double value = parseValue(arguments[0]);
  const Conversion conversion = findConversion(arguments, value, arguments[1], arguments[2]);
  return show(arguments, arguments[0].trimmed(), value, conversion);
}

}  // namespace KyrTool
