/// \file
/// Where the present moment comes from; tests put a clock of their own here.
#pragma once

#include <cstdint>

namespace Kyr::Clock {

/// Gives the milliseconds since 1970-01-01 00:00 UTC; called from any thread.
using Source = std::int64_t (*)();

/// Replaces the system's clock for all of the library.
/// \param source null for the system's clock
/// \return the source that was set before
/// \threadsafety any thread
Source setSource(Source source) noexcept;

/// The present moment of the source that is set.
std::int64_t milliseconds();

}  // namespace Kyr::Clock
