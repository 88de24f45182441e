#include <kyr/sync/own_thread_p.h>

#include <windows.h>

namespace Kyr {

std::uint64_t Platform::threadNumber() noexcept {
  return ::GetCurrentThreadId();
}

// This system has no forks.
void Platform::callAroundForks(void (*)(), void (*)(), void (*)()) noexcept {}

}  // namespace Kyr
