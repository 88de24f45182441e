#include "console_p.h"

#include <windows.h>

#include <mutex>
#include <utility>

namespace Tour {

namespace {

// The system calls a handler on a thread of its own, maybe while the watch ends.
std::mutex current_mutex;
const std::function<void()>* current = nullptr;

BOOL WINAPI handle(DWORD event) {
  const std::lock_guard<std::mutex> lock(current_mutex);
  const bool interrupt = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
  if (interrupt && current != nullptr) {
    (*current)();
  }
  return interrupt ? TRUE : FALSE;
}

void setCurrent(const std::function<void()>* function) {
  const std::lock_guard<std::mutex> lock(current_mutex);
  current = function;
}

}  // namespace

struct InterruptWatch::Implementation {
  explicit Implementation(std::function<void()> function) : interrupted(std::move(function)) {
    setCurrent(&interrupted);
    SetConsoleCtrlHandler(handle, TRUE);
  }
  ~Implementation() { setCurrent(nullptr); }
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  const std::function<void()> interrupted;
};

InterruptWatch::InterruptWatch(std::function<void()> interrupted)
    : _implementation(std::make_unique<Implementation>(std::move(interrupted))) {}

InterruptWatch::~InterruptWatch() = default;

}  // namespace Tour
