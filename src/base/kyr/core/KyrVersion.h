/// \file
/// The library's version.
#pragma once

#include <kyr/core/KyrPlatform.h>

namespace Kyr {

/// The library's version, "6.2.0-6"; static text.
/// \threadsafety any thread
KYR_EXPORT const char* libraryVersion() noexcept;

}  // namespace Kyr
