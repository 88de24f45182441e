/// \file
/// One of the internal unit of each kind of quantity, in all units that the kind has; and how many
/// kinds the applications of the suite offer their users.
///
///   unit_table

#include <kyr/units/KyrUnits.h>

#include <QByteArray>

#include <cstdio>

using namespace Kyr;

namespace {

void show(const Unit& kind, double value) {
  QByteArray line = Unit::getID(&kind).toUtf8() + ':';
  for (const Unit::Units_t unit : kind.getUnits()) {
    line += ' ' + kind.toString(value, 3, unit).toUtf8() + ' ' + kind.getUName(unit).toUtf8();
  }
  std::printf("%s\n", line.constData());
}

void showApplications() {
  for (unsigned i = 0; i < applicationCount; ++i) {
    const auto application = static_cast<Application_t>(i);
    const ApplicationProperties& properties = applicationProperties(application);
    const auto count = Unit::getAvailableUnitsForApplication(application).size();
    std::printf("%s: %u kinds\n", properties.name, unsigned(count));
  }
}

}  // namespace

int main() {
  const Unit* const kinds[] = {
      &uLength,  &uTemp,   &uAngle,    &uTime,      &uStrain,         &uPress,
      &uShutter, &uFigure, &uVelocity, &uAccel,     &uStrainVelocity, &uStrainAccel,
      &uArea,    &uVolume, &uFraction, &uCurvature, &uAngleVelocity,  &uAngleAccel};
  for (const Unit* const kind : kinds) {
    show(*kind, 1);
  }
  show(*UnitDiff::getUnit(&uTemp, "s"), 1);
  UnitDiff::clearUnits();  // KyrInit::CloseLibrary() does that for applications
  showApplications();
  return 0;
}
