#include <kyr/sync/own_thread_p.h>

#include <pthread.h>
#include <unistd.h>

namespace Kyr {

namespace {

thread_local std::uint64_t ownNumber = 0;  // 0 until somebody asks

}  // namespace

std::uint64_t Platform::threadNumber() noexcept {
  if (ownNumber == 0) {
    ownNumber = static_cast<std::uint64_t>(::gettid());
  }
  return ownNumber;
}

void Platform::callAroundForks(void (*before)(), void (*inParent)(), void (*inChild)()) noexcept {
  ::pthread_atfork(nullptr, nullptr, [] { ownNumber = 0; });
  ::pthread_atfork(before, inParent, inChild);
}

}  // namespace Kyr
