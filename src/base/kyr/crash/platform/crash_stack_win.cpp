#include <kyr/crash/crash_win_p.h>

#include <atomic>

#include <windows.h>

namespace Kyr {

namespace {

/// Bytes of a used-up stack that are left to the handler: enough to hand the report to another
/// thread, or to make it when there can be none.
constexpr ULONG reserve = 128U << 10;

std::atomic<bool> prepared{false};

void prepareThisThread() noexcept {
  ULONG size = reserve;
  ::SetThreadStackGuarantee(&size);
}

}  // namespace

void Crash::prepareStacks() noexcept {
  prepared = true;
  prepareThisThread();
}

}  // namespace Kyr

/// Called by the system on each new thread, whoever starts it.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_THREAD_ATTACH && Kyr::prepared) {
    Kyr::prepareThisThread();
  }
  return TRUE;
}
