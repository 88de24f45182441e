#include "unit_names.h"

#include "arguments.h"

namespace KyrTool {

namespace {

/// Both spellings of a name lead to the same text; so do "mm^2", "1/mm" and the Greek letter.
QString reduced(QString name) {
  const struct {
    QChar from;
    const char* to;
  } spellings[] = {
      {QChar(0xB5), "u"}, {QChar(0x3BC), "u"}, {QChar(0xB0), "deg"}, {QChar(0x2030), "permille"},
      {QChar(0xB2), "2"}, {QChar(0xB3), "3"},  {QChar('^'), ""},     {QChar(' '), ""},
  };
  for (const auto& spelling : spellings) {
    name.replace(spelling.from, QLatin1String(spelling.to));
  }
  return name.startsWith("1/") ? name.mid(1) : name;
}

}  // namespace

const std::vector<Kyr::Unit*>& allKinds() {
  using namespace Kyr;
  static const std::vector<Unit*> kinds{
      &uLength,  &uTemp,   &uAngle,    &uTime,      &uStrain,         &uPress,
      &uShutter, &uFigure, &uVelocity, &uAccel,     &uStrainVelocity, &uStrainAccel,
      &uArea,    &uVolume, &uFraction, &uCurvature, &uAngleVelocity,  &uAngleAccel};
  return kinds;
}

Kyr::Unit* kindOfName(const QString& name) {
  for (Kyr::Unit* const kind : allKinds()) {
    if (Kyr::Unit::getID(kind).compare(name, Qt::CaseInsensitive) == 0) {
      return kind;
    }
  }
  throw UsageError{QString("there is no kind \"%1\"; kyr units lists them").arg(name)};
}

QString asciiSpelling(const QString& unitName) {
  return reduced(unitName);
}

bool findUnit(const Kyr::Unit& kind, const QString& name, Kyr::Unit::Units_t* unit) {
  if (kind.getUnitByName(name, unit)) {
    return true;
  }
  const QString wanted = reduced(name);
  for (const Kyr::Unit::Units_t candidate : kind.getUnits()) {
    if (reduced(kind.getUName(candidate)) == wanted) {
      *unit = candidate;
      return true;
    }
  }
  return false;
}

QStringList kindsWith(const QString& unitName) {
  QStringList kinds;
  for (const Kyr::Unit* const kind : allKinds()) {
    Kyr::Unit::Units_t unit;
    if (findUnit(*kind, unitName, &unit)) {
      kinds += Kyr::Unit::getID(kind);
    }
  }
  return kinds;
}

}  // namespace KyrTool
