#include "console_p.h"

#include <pthread.h>
#include <signal.h>

#include <atomic>
#include <thread>
#include <utility>

namespace Tour {

namespace {

sigset_t interruptSignal() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  return set;
}

}  // namespace

/// A thread that fetches the signal, which all threads block: there is no handler, and hence
/// nothing that a handler must not do.
struct InterruptWatch::Implementation {
  explicit Implementation(std::function<void()> function) : interrupted(std::move(function)) {
    const sigset_t set = interruptSignal();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    thread = std::thread([this] { fetch(); });
  }

  ~Implementation() {
    ending = true;
    pthread_kill(thread.native_handle(), SIGINT);
    thread.join();
  }

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  void fetch() const {
    const sigset_t set = interruptSignal();
    int signal = 0;
    while (sigwait(&set, &signal) == 0 && !ending) {
      interrupted();
    }
  }

  const std::function<void()> interrupted;
  std::atomic<bool> ending{false};
  std::thread thread;
};

InterruptWatch::InterruptWatch(std::function<void()> interrupted)
    : _implementation(std::make_unique<Implementation>(std::move(interrupted))) {}

InterruptWatch::~InterruptWatch() = default;

}  // namespace Tour
