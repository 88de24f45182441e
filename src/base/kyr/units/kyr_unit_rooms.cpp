// The objects uLength and so on, as bytes that nobody destroys: threads may convert values until
// the process is gone. Programs know them as objects of their classes, and need no detour by a
// reference to call them. Names of variables tell linkers nothing of types; so this file must not
// see KyrUnits.h. The standard library keeps its std::cout in the same way.
#include <kyr/units/unit_rooms_p.h>

namespace Kyr {

#define KYR_UNIT_ROOM(name)                           \
  KYR_EXPORT extern unsigned char name[unitRoomSize]; \
  alignas(UnitLinear) unsigned char name[unitRoomSize]

KYR_UNIT_ROOM(uLength);
KYR_UNIT_ROOM(uTemp);
KYR_UNIT_ROOM(uAngle);
KYR_UNIT_ROOM(uTime);
KYR_UNIT_ROOM(uStrain);
KYR_UNIT_ROOM(uPress);
KYR_UNIT_ROOM(uShutter);
KYR_UNIT_ROOM(uFigure);
KYR_UNIT_ROOM(uVelocity);
KYR_UNIT_ROOM(uAccel);
KYR_UNIT_ROOM(uStrainVelocity);
KYR_UNIT_ROOM(uStrainAccel);
KYR_UNIT_ROOM(uArea);
KYR_UNIT_ROOM(uVolume);
KYR_UNIT_ROOM(uFraction);
KYR_UNIT_ROOM(uCurvature);
KYR_UNIT_ROOM(uAngleVelocity);
KYR_UNIT_ROOM(uAngleAccel);

}  // namespace Kyr
