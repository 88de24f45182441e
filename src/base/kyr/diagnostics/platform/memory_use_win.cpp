#include <kyr/diagnostics/memory_use_p.h>

#include <windows.h>

#include <psapi.h>

namespace Kyr {

MemoryUse Platform::measureMemory() {
  MemoryUse use;
  PROCESS_MEMORY_COUNTERS process{};
  if (::GetProcessMemoryInfo(::GetCurrentProcess(), &process, sizeof process)) {
    use.resident = process.WorkingSetSize;
    use.peakResident = process.PeakWorkingSetSize;
  }
  MEMORYSTATUSEX system{};
  system.dwLength = sizeof system;
  if (::GlobalMemoryStatusEx(&system)) {
    use.systemTotal = system.ullTotalPhys;
    use.systemAvailable = system.ullAvailPhys;
    use.addressTotal = system.ullTotalVirtual;
    use.addressAvailable = system.ullAvailVirtual;
  }
  return use;
}

}  // namespace Kyr
