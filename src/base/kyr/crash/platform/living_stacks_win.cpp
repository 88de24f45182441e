#include <kyr/crash/living_stacks_p.h>

#include <kyr/crash/crash_win_p.h>

#include <windows.h>

namespace Kyr {

QByteArray Crash::stacksOfThreads(std::uint64_t hanging, bool alone) {
  QByteArray text;
  collectOutput(&text);
  loadDebugHelp();
  printLivingBacktraces(static_cast<DWORD>(hanging), alone);
  collectOutput(nullptr);
  return text.replace("\r\n", "\n");
}

bool Crash::isDebugged() noexcept {
  return ::IsDebuggerPresent() != FALSE;
}

// This system has no signals.
void Crash::keepSignalsAway() noexcept {}

}  // namespace Kyr
