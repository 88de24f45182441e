#include <kyr/diagnostics/performance_counter_p.h>

#include <windows.h>

namespace Kyr {

// Neither call fails since Windows XP.

std::int64_t Platform::performanceCount() {
  LARGE_INTEGER count;
  ::QueryPerformanceCounter(&count);
  return count.QuadPart;
}

std::int64_t Platform::performanceFrequency() {
  LARGE_INTEGER frequency;
  ::QueryPerformanceFrequency(&frequency);
  return frequency.QuadPart;
}

}  // namespace Kyr
