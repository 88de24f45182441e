/// \file
/// The counter behind the debug timer; tests put one of their own here.
#pragma once

#include <cstdint>

namespace Kyr {

namespace PerformanceCounter {

/// A counter that only rises.
struct Source {
  std::int64_t (*count)();
  std::int64_t frequency;  ///< counts in a second, above 0
};

/// Replaces the machine's counter for all of the library.
/// \param source lives as long as it is set; null for the machine's counter
/// \return the source that was set before
/// \threadsafety any thread
const Source* setSource(const Source* source) noexcept;

}  // namespace PerformanceCounter

namespace Platform {

std::int64_t performanceCount();
std::int64_t performanceFrequency();

}  // namespace Platform

}  // namespace Kyr
