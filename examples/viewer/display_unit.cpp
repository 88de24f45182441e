#include "display_unit.h"

#include "surface/words.h"

#include <kyr/units/KyrQuantityText.h>

#include <algorithm>

namespace Viewer {

namespace {

using Kyr::Unit;

struct Family {
  Unit::Units_t length;
  Unit::Units_t area;
  Unit::Units_t volume;
  Unit::Units_t curvature;
};

constexpr Family families[] = {
    {Unit::Millimetre, Unit::SquareMillimetre, Unit::CubicMillimetre, Unit::PerMillimetre},
    {Unit::Micrometre, Unit::SquareMicrometre, Unit::CubicMicrometre, Unit::PerMicrometre},
    {Unit::Metre, Unit::SquareMetre, Unit::CubicMetre, Unit::PerMetre},
    {Unit::Inch, Unit::SquareInch, Unit::CubicInch, Unit::PerInch},
    {Unit::Foot, Unit::SquareFoot, Unit::CubicFoot, Unit::PerFoot},
    {Unit::Mil, Unit::SquareMil, Unit::CubicInch, Unit::PerMil},  // nobody counts cubic mils
};

}  // namespace

std::vector<Unit::Units_t> displayUnits() {
  std::vector<Unit::Units_t> units;
  for (const Family& family : families) {
    units.push_back(family.length);
  }
  return units;
}

void setDisplayUnit(Unit::Units_t length) {
  const auto* const family = std::find_if(std::begin(families), std::end(families),
                                          [&](const Family& row) { return row.length == length; });
  Kyr::uLength.setDefault(length);
  if (family != std::end(families)) {
    Kyr::uArea.setDefault(family->area);
    Kyr::uVolume.setDefault(family->volume);
    Kyr::uCurvature.setDefault(family->curvature);
  }
}

QString shownValue(const Unit& kind, double value) {
  constexpr unsigned digits = 4;
  return Kyr::QuantityText(kind).setSignificantDigits(digits).text(value);
}

QString shownCount(std::size_t count) {
  return Surface::counted(static_cast<qint64>(count));
}

}  // namespace Viewer
