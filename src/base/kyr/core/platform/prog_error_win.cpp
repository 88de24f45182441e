#include <kyr/core/prog_error_p.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace Kyr {

namespace {

/// Set in threads that run the hook. A slot of the system, as this compiler emulates thread_local
/// on the heap, which may be what broke.
const DWORD insideHookSlot = ::TlsAlloc();

}  // namespace

void Fatal::writeToStandardError(const char* bytes, std::size_t length) noexcept {
  const int descriptor = _fileno(stderr);
  if (descriptor < 0) {
    return;  // a program with windows may have no standard error
  }
  _setmode(descriptor, _O_BINARY);  // a report has the same bytes on every platform
  while (length > 0) {
    const auto piece = static_cast<unsigned>(std::min<std::size_t>(length, INT_MAX));
    const int written = _write(descriptor, bytes, piece);
    if (written <= 0) {
      return;
    }
    bytes += written;
    length -= static_cast<std::size_t>(written);
  }
}

// TerminateProcess() and not _exit(), which lets every DLL destroy its static objects.
void Fatal::endProcess(int code) noexcept {
  ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(code));
  std::abort();  // not reached
}

bool Fatal::isInsideHook() noexcept {
  return ::TlsGetValue(insideHookSlot) != nullptr;
}

void Fatal::setInsideHook(bool inside) noexcept {
  static char mark = 0;
  ::TlsSetValue(insideHookSlot, inside ? &mark : nullptr);
}

}  // namespace Kyr
