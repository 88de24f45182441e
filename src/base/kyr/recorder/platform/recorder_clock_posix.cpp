#include <kyr/recorder/recorder_p.h>

#include <time.h>

namespace Kyr {

namespace {

std::int64_t nanoseconds(clockid_t clock) noexcept {
  timespec time{};
  ::clock_gettime(clock, &time);
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

std::int64_t Recorder::now() noexcept {
  return nanoseconds(CLOCK_BOOTTIME);
}

std::int64_t Recorder::sinceEpoch() noexcept {
  return nanoseconds(CLOCK_REALTIME) - now();
}

}  // namespace Kyr
