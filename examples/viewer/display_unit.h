/// \file
/// The unit in which the user sees everything.
#pragma once

#include <kyr/units/KyrUnits.h>

#include <QString>

#include <vector>

namespace Viewer {

/// The units of length that the user may choose from.
std::vector<Kyr::Unit::Units_t> displayUnits();

/// Chooses a unit of length, and with it those of areas, volumes and curvatures, as the defaults
/// of their kinds.
/// \threadsafety the thread of the user interface
void setDisplayUnit(Kyr::Unit::Units_t length);

/// Text of a value in the default unit of its kind, with the unit's name, as the user's language
/// has it.
/// \param value in the internal unit; four digits of it are shown
QString shownValue(const Kyr::Unit& kind, double value);

/// A whole number with separators.
QString shownCount(std::size_t count);

}  // namespace Viewer
