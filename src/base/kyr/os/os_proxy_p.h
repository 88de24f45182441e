/// \file
/// Where the platforms keep their settings of the network.
#pragma once

#include <kyr/os/KyrOS.h>

namespace Kyr::Platform {

/// Adds what the system's settings say, besides the environment.
/// \return false when they say nothing
bool readProxySettings(OS::ProxySettings& settings);

}  // namespace Kyr::Platform
