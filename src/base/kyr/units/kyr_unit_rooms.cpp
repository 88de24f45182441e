// The objects uLength and so on, as bytes that nobody destroys: threads may convert values until
// the process is gone. Programs know them as objects of their classes, and need no detour by a
// reference to call them. Names of variables tell linkers nothing of types; so this file must not
// see KyrUnits.h. The standard library keeps its std::cout in the same way.
#include <kyr/units/unit_rooms_p.h>

namespace Kyr {

struct UnitRoom {
  alignas(unitRoomAlignment) unsigned char bytes[unitRoomSize];
};

KYR_EXPORT UnitRoom uLength;
KYR_EXPORT UnitRoom uTemp;
KYR_EXPORT UnitRoom uAngle;
KYR_EXPORT UnitRoom uTime;
KYR_EXPORT UnitRoom uStrain;
KYR_EXPORT UnitRoom uPress;
KYR_EXPORT UnitRoom uShutter;
KYR_EXPORT UnitRoom uFigure;
KYR_EXPORT UnitRoom uVelocity;
KYR_EXPORT UnitRoom uAccel;
KYR_EXPORT UnitRoom uStrainVelocity;
KYR_EXPORT UnitRoom uStrainAccel;
KYR_EXPORT UnitRoom uArea;
KYR_EXPORT UnitRoom uVolume;
KYR_EXPORT UnitRoom uFraction;
KYR_EXPORT UnitRoom uCurvature;
KYR_EXPORT UnitRoom uAngleVelocity;
KYR_EXPORT UnitRoom uAngleAccel;

}  // namespace Kyr
