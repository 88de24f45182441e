// The objects uLength and so on, as bytes that nobody destroys: threads may convert values until
// the process is gone. Programs know them as objects of their classes, and need no detour by a
// reference to call them. Names of variables tell linkers nothing of types; so this file must not
// see KyrUnits.h. The standard library keeps its std::cout in the same way.
#include <kyr/units/unit_kinds_p.h>

namespace Kyr {

struct UnitRoom {
  alignas(unitRoomAlignment) unsigned char bytes[unitRoomSize];
};

#define KYR_ROOM(Kind, object, identifier) KYR_EXPORT UnitRoom object;

KYR_UNIT_KINDS(KYR_ROOM)

}  // namespace Kyr
