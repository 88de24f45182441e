/// \file
/// The kinds of the catalogue, and the memory of their objects.
#pragma once

#include <kyr/units/KyrUnit.h>

#include <cstddef>

/// KIND(class, its one object, identifier) for each, in the order in which they are built.
#define KYR_UNIT_KINDS(KIND)                                        \
  KIND(UnitLength, uLength, "LENGTH")                               \
  KIND(UnitTemp, uTemp, "TEMPERATURE")                              \
  KIND(UnitAngle, uAngle, "ANGLE")                                  \
  KIND(UnitTime, uTime, "TIME")                                     \
  KIND(UnitStrain, uStrain, "STRAIN")                               \
  KIND(UnitPress, uPress, "PRESSURE")                               \
  KIND(UnitShutter, uShutter, "SHUTTER")                            \
  KIND(UnitFigure, uFigure, "FIGURE")                               \
  KIND(UnitVelocity, uVelocity, "VELOCITY")                         \
  KIND(UnitAcceleration, uAccel, "ACCELERATION")                    \
  KIND(UnitStrainVelocity, uStrainVelocity, "STRAIN_VELOCITY")      \
  KIND(UnitStrainAcceleration, uStrainAccel, "STRAIN_ACCELERATION") \
  KIND(UnitArea, uArea, "AREA")                                     \
  KIND(UnitVolume, uVolume, "VOLUME")                               \
  KIND(UnitFraction, uFraction, "FRACTION")                         \
  KIND(UnitCurvature, uCurvature, "CURVATURE")                      \
  KIND(UnitAngleVelocity, uAngleVelocity, "ANGLE_VELOCITY")         \
  KIND(UnitAngleAcceleration, uAngleAccel, "ANGLE_ACCELERATION")    \
  KIND(UnitTempDifference, uTempDifference, "TEMPERATURE_DIFFERENCE")

namespace Kyr {

/// Bytes for an object of a kind, with whatever the kind adds to its base.
constexpr std::size_t unitRoomSize = sizeof(UnitLinear) + 8;
constexpr std::size_t unitRoomAlignment = alignof(UnitLinear);

}  // namespace Kyr
