#include "commands.h"
#include "output.h"
#include "unit_names.h"

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

void listKinds() {
  constexpr int width = 22;
  print(column("KIND", width) + "UNITS\n");
  for (const Unit* const kind : allKinds()) {
    QStringList names;
    for (const Unit::Units_t unit : kind->getUnits()) {
      names += kind->getUName(unit);
    }
    print(column(Unit::getID(kind), width) + names.join(", ") + "\n");
  }
}

void listRow(const QString& unit, const QString& ascii, const QString& factor,
             const QString& offset, const QString& number) {
  constexpr int name = 12, value = 26, small = 12;
  print(column(unit, name) + column(ascii, name) + column(factor, value) + column(offset, small) +
        number + "\n");
}

void listUnits(const Unit& kind) {
  print(QString("# %1: internal value = (value - OFFSET) * FACTOR\n").arg(Unit::getID(&kind)));
  listRow("UNIT", "ASCII", "FACTOR", "OFFSET", "NUMBER");
  for (const Unit::Units_t unit : kind.getUnits()) {
    const double offset = kind.to(0.0, unit);
    const double factor = kind.from(offset + 1.0, unit);
    const QString name = kind.getUName(unit);
    listRow(name, asciiSpelling(name), exact(factor), exact(offset), QString::number(unit));
  }
}

}  // namespace

int units(const Arguments& arguments) {
  if (arguments.count() == 0) {
    listKinds();
  } else {
    listUnits(*kindOfName(arguments[0]));
  }
  return Fine;
}

}  // namespace KyrTool
