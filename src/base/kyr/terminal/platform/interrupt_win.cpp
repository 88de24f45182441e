#include <kyr/terminal/interrupt_p.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

#include <windows.h>

namespace Kyr::Platform {

/// The system calls the handler on a thread of its own for each wish, also while the watch ends.
struct Interrupts::State {
  explicit State(std::function<void(int)> function) : wished(std::move(function)) {}
  const std::function<void(int)> wished;
};

namespace {

/// What Windows ends a process with that Ctrl-C ends.
constexpr UINT endedByWish = 0xC000013A;
/// The system waits five seconds for a handler before it ends the process itself.
constexpr std::chrono::milliseconds patience(4000);

std::mutex mutex;
std::condition_variable changed;
const std::function<void(int)>* current = nullptr;  // null without a watch
unsigned running = 0;                               // calls

bool call(DWORD wish) {
  const std::function<void(int)>* function = nullptr;
  {
    const std::lock_guard<std::mutex> lock(mutex);
    function = current;
    running += function ? 1 : 0;
  }
  if (!function) {
    return false;
  }
  (*function)(static_cast<int>(wish));
  const std::lock_guard<std::mutex> lock(mutex);
  --running;
  changed.notify_all();
  return true;
}

/// The process ends when the handler returns: so it waits until the work has stopped, and says
/// for a second time that it is to end when that takes too long.
void stay(DWORD wish) {
  bool stopped = false;
  {
    std::unique_lock<std::mutex> lock(mutex);
    stopped = changed.wait_for(lock, patience, [] { return current == nullptr; });
  }
  if (!stopped) {
    call(wish);
  }
}

BOOL WINAPI handle(DWORD wish) {
  if (!call(wish)) {
    return FALSE;
  }
  if (wish != CTRL_C_EVENT && wish != CTRL_BREAK_EVENT) {
    stay(wish);
  }
  return TRUE;
}

}  // namespace

Interrupts::Interrupts(std::function<void(int)> wished)
    : _state(std::make_unique<State>(std::move(wished))) {
  const std::lock_guard<std::mutex> lock(mutex);
  current = &_state->wished;
  ::SetConsoleCtrlHandler(handle, TRUE);
}

Interrupts::~Interrupts() {
  ::SetConsoleCtrlHandler(handle, FALSE);
  std::unique_lock<std::mutex> lock(mutex);
  current = nullptr;
  changed.notify_all();
  changed.wait(lock, [] { return running == 0; });
}

void Interrupts::endProcess(int /*wish*/) noexcept {
  ::TerminateProcess(::GetCurrentProcess(), endedByWish);
  ::ExitProcess(endedByWish);
}

}  // namespace Kyr::Platform
