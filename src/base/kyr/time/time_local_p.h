/// \file
/// Conversions between moments and local time, where the C runtimes differ.
#pragma once

#include <cstdint>
#include <ctime>

namespace Kyr::Platform {

/// The local time of a moment from 1970 to 2106, for which no runtime fails.
std::tm localFields(std::int64_t seconds);

/// The moment of a local time; fields beyond their ranges count on into their neighbours.
/// \return -1 when the runtime cannot tell
std::int64_t momentOf(std::tm fields);

}  // namespace Kyr::Platform
