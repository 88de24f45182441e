#include <kyr/terminal/interrupt_p.h>

#include <kyr/sync/KyrThread.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace Kyr::Platform {

namespace {

constexpr std::array<int, 3> wishes{SIGINT, SIGTERM, SIGHUP};
constexpr unsigned char end = 0;  // no signal has that number

/// Where the handler writes; negative without a watch.
std::atomic<int> sink{-1};

// All that a handler may do is to tell a thread, which may do anything.
void tell(int signal) {
  const int before = errno;
  const auto number = static_cast<unsigned char>(signal);
  static_cast<void>(::write(sink, &number, 1) == 1);  // a full pipe holds wishes enough
  errno = before;
}

}  // namespace

struct Interrupts::State : Thread {
  explicit State(std::function<void(int)> function)
      : Thread(NoLockGUI, "Kyr::InterruptWatch::InterruptWatch", "interrupt_posix", 43),
        wished(std::move(function)) {
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
      throw std::system_error(errno, std::generic_category(), "no pipe for signals");
    }
    ::fcntl(ends[1], F_SETFL, O_NONBLOCK);
    sink = ends[1];
    start();
    struct sigaction action = {};
    action.sa_handler = tell;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < wishes.size(); ++i) {
      ::sigaction(wishes[i], nullptr, &before[i]);
      if (before[i].sa_handler != SIG_IGN) {
        ::sigaction(wishes[i], &action, nullptr);
      }
    }
  }
  ~State() override {
    for (std::size_t i = 0; i < wishes.size(); ++i) {
      ::sigaction(wishes[i], &before[i], nullptr);
    }
    sink = -1;
    // The thread is told by a byte and by the end of the pipe. Each alone might not reach it: a
    // pipe may take nothing, and a forked child may keep its end open.
    static_cast<void>(::write(ends[1], &end, 1) == 1);
    ::close(ends[1]);
    wait();
    ::close(ends[0]);
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  /// What the first wish leads to may take its time, and the second one must not wait for it.
  void run() override {
    std::thread first;
    for (int signal = next(); signal != end; signal = next()) {
      if (first.joinable()) {
        wished(signal);
      } else {
        first = std::thread(wished, signal);
      }
    }
    if (first.joinable()) {
      first.join();
    }
  }

  /// Waits for what the handler or the end tells.
  int next() const {
    unsigned char number = end;
    ssize_t count = 0;
    do {
      count = ::read(ends[0], &number, 1);
    } while (count < 0 && errno == EINTR);
    return count == 1 ? number : end;
  }

  const std::function<void(int)> wished;
  std::array<int, 2> ends{-1, -1};
  std::array<struct sigaction, wishes.size()> before{};
};

Interrupts::Interrupts(std::function<void(int)> wished)
    : _state(std::make_unique<State>(std::move(wished))) {}

Interrupts::~Interrupts() = default;

void Interrupts::endProcess(int wish) noexcept {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, wish);
  ::signal(wish, SIG_DFL);
  ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  ::raise(wish);        // to this thread: it comes before the call returns
  ::_exit(128 + wish);  // where the system does not end it by that
}

}  // namespace Kyr::Platform
