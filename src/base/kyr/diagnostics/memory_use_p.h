/// \file
/// What the memory observer asks of the platforms.
#pragma once

#include <kyr/diagnostics/KyrMemoryObserver.h>

namespace Kyr::Platform {

MemoryUse measureMemory();

}  // namespace Kyr::Platform
