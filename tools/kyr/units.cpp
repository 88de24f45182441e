#include "commands.h"
#include "json.h"
#include "output.h"
#include "unit_names.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QJsonArray>
#include <QLocale>

namespace KyrTool {

namespace {

using Kyr::Unit;

QString column(const QString& text, int width) {
  return text.leftJustified(width);
}

QString exact(double value) {
  return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

double offsetOf(const Unit& kind, Unit::Units_t unit) {
  return kind.to(0.0, unit);
}

/// Internal units in one of the unit.
double factorOf(const Unit& kind, Unit::Units_t unit) {
  return kind.from(offsetOf(kind, unit) + 1.0, unit);
}

QStringList unitNames(const Unit& kind) {
  QStringList names;
  for (const Unit::Units_t unit : kind.getUnits()) {
    names += kind.getUName(unit);
  }
  return names;
}

/// The unit that another name means; empty for one that the kind's catalogue has not.
QString meantBy(const Unit& kind, const Kyr::UnitName& other) {
  return other.number >= 0 ? kind.getUName(static_cast<Unit::Units_t>(other.number)) : QString();
}

void listKinds() {
  constexpr int width = 24;
  print(styled(column("KIND", width) + "UNITS", Strong) + "\n");
  for (const Unit* const kind : allKinds()) {
    print(column(Unit::getID(kind), width) + unitNames(*kind).join(", ") + "\n");
  }
}

void listRow(const QString& unit, const QString& ascii, const QString& factor,
             const QString& offset, const QString& number) {
  constexpr int name = 12, value = 26, small = 12;
  print(column(unit, name) + column(ascii, name) + column(factor, value) + column(offset, small) +
        number + "\n");
}

void listOtherName(const QString& name, const QString& unit, const QString& factor,
                   const QString& offset) {
  constexpr int text = 18, value = 26;
  print(column(name, text) + column(unit, text) + column(factor, value) + offset + "\n");
}

void listOtherNames(const Unit& kind) {
  const auto others = Kyr::QuantityText::otherNames(kind);
  if (!others.empty()) {
    print(Kyr::translate("Kyr_tool", "# other names that are understood") + '\n');
    listOtherName("NAME", "UNIT", "FACTOR", "OFFSET");
  }
  for (const Kyr::UnitName& other : others) {
    const QString unit = meantBy(kind, other);
    listOtherName(other.name, unit.isEmpty() ? "-" : unit, exact(other.factor),
                  exact(other.offset));
  }
}

void listUnits(const Unit& kind) {
  print(Kyr::translate("Kyr_tool", "# %1: internal value = (value - OFFSET) * FACTOR")
            .arg(Unit::getID(&kind)) +
        '\n');
  listRow("UNIT", "ASCII", "FACTOR", "OFFSET", "NUMBER");
  for (const Unit::Units_t unit : kind.getUnits()) {
    const QString name = kind.getUName(unit);
    listRow(name, asciiSpelling(name), exact(factorOf(kind, unit)), exact(offsetOf(kind, unit)),
            QString::number(unit));
  }
}

QJsonObject jsonOfKinds() {
  QJsonArray kinds;
  for (const Unit* const kind : allKinds()) {
    kinds += QJsonObject{{"kind", Unit::getID(kind)},
                         {"units", QJsonArray::fromStringList(unitNames(*kind))}};
  }
  return {{"kinds", kinds}};
}

QJsonObject jsonOfKind(const Unit& kind) {
  QJsonArray units;
  for (const Unit::Units_t unit : kind.getUnits()) {
    const QString name = kind.getUName(unit);
    units += QJsonObject{{"unit", name},
                         {"ascii", asciiSpelling(name)},
                         {"factor", factorOf(kind, unit)},
                         {"offset", offsetOf(kind, unit)},
                         {"number", unit}};
  }
  QJsonArray others;
  for (const Kyr::UnitName& other : Kyr::QuantityText::otherNames(kind)) {
    const QString unit = meantBy(kind, other);
    others += QJsonObject{{"name", other.name},
                          {"unit", unit.isEmpty() ? QJsonValue() : QJsonValue(unit)},
                          {"factor", other.factor},
                          {"offset", other.offset}};
  }
  return {{"kind", Unit::getID(&kind)}, {"units", units}, {"otherNames", others}};
}

}  // namespace

int units(const Arguments& arguments) {
  const bool asJson = arguments.has("json");
  if (arguments.count() == 0) {
    asJson ? printJson(jsonOfKinds()) : listKinds();
    return Fine;
  }
  const Unit& kind = *kindOfName(arguments[0]);
  if (asJson) {
    printJson(jsonOfKind(kind));
    return Fine;
  }
  listUnits(kind);
  listOtherNames(kind);
  return Fine;
}

}  // namespace KyrTool
