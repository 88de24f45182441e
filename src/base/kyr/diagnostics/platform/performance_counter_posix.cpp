#include <kyr/diagnostics/performance_counter_p.h>

#include <time.h>

namespace Kyr {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1000000000;

}  // namespace

std::int64_t Platform::performanceCount() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t(now.tv_sec) * nanosecondsPerSecond + now.tv_nsec;
}

std::int64_t Platform::performanceFrequency() {
  return nanosecondsPerSecond;
}

}  // namespace Kyr
