/// \file
/// Shows the value 1 of each kind's internal unit in all units of the kind, and how many kinds the
/// applications of the suite offer their users. Then what a typed length means in several
/// languages.
///
///   unit_table

#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnitSet.h>
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

void showTyped(const char* language, const char* typed) {
  const QuantityText lengths(uLength, QLocale(language));
  const QuantityReading reading = lengths.read(QString::fromUtf8(typed));
  const QString meaning = reading.isAcceptable() ? lengths.text(reading.value) : reading.reason;
  std::printf("%s \"%s\": %s\n", language, typed, meaning.toUtf8().constData());
}

void showPreferred() {
  UnitSet units;
  units.choose(uLength, Unit::Inch, 2);
  std::printf("preferred: %s\n", units.texts(uLength).text(25.4).toUtf8().constData());
}

}  // namespace

int main() {
  for (const Unit* const kind : Unit::getCatalogue()) {
    show(*kind, 1);
  }
  show(*UnitDiff::getUnit(&uTemp, "s"), 1);
  UnitDiff::clearUnits();  // KyrInit::CloseLibrary() does that for applications
  showApplications();
  for (const char* const language : {"en", "de", "fr"}) {
    for (const char* const typed : {"1.000", "1,000", "1.000,5 mm", "5' 3 1/2\"", "12,5 µm"}) {
      showTyped(language, typed);
    }
  }
  showPreferred();
  return 0;
}
