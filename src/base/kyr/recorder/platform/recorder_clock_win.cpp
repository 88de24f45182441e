#include <kyr/recorder/recorder_p.h>

#include <windows.h>

namespace Kyr {

namespace {

constexpr std::int64_t second = 1'000'000'000;

std::int64_t ticksPerSecond() noexcept {
  LARGE_INTEGER frequency{};
  ::QueryPerformanceFrequency(&frequency);
  return frequency.QuadPart;
}

const std::int64_t frequency = ticksPerSecond();

}  // namespace

std::int64_t Recorder::now() noexcept {
  LARGE_INTEGER ticks{};
  ::QueryPerformanceCounter(&ticks);
  // 0 while the library is being loaded.
  const std::int64_t each = frequency != 0 ? frequency : ticksPerSecond();
  return ticks.QuadPart / each * second + ticks.QuadPart % each * second / each;
}

std::int64_t Recorder::sinceEpoch() noexcept {
  constexpr std::int64_t from1601 = 11'644'473'600 * 10'000'000;  // of 100 nanoseconds
  FILETIME time{};
  ::GetSystemTimeAsFileTime(&time);
  const std::uint64_t hundreds =
      std::uint64_t{time.dwHighDateTime} << 32U | std::uint64_t{time.dwLowDateTime};
  return (static_cast<std::int64_t>(hundreds) - from1601) * 100 - now();
}

}  // namespace Kyr
