/// \file
/// Moments as local time, where the C runtimes differ.
#pragma once

#include <cstdint>
#include <ctime>

namespace Kyr::Platform {

/// The local time of a moment from 1970 to 3000, for which no runtime fails.
std::tm localFields(std::int64_t seconds);

}  // namespace Kyr::Platform
