/// \file
/// The memory of the objects of the kinds.
#pragma once

#include <kyr/units/KyrUnit.h>

#include <cstddef>

namespace Kyr {

/// For a kind with whatever it adds to its base.
constexpr std::size_t unitRoomSize = sizeof(UnitLinear) + 8;
constexpr std::size_t unitRoomAlignment = alignof(UnitLinear);

}  // namespace Kyr
