#include <kyr/crash/crash_folder_posix_p.h>
#include <kyr/crash/crash_posix_p.h>

#include <cerrno>
#include <climits>
#include <ctime>

#include <linux/futex.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Kyr {

namespace {

constexpr unsigned patienceInMilliseconds = 2000;

std::atomic<Crash::Threads*> stopped{nullptr};

void onStop(int, siginfo_t*, void* context) {
  const int error = errno;
  stopped.load()->standStill(*static_cast<const ucontext_t*>(context));
  errno = error;
}

void takeSignal() noexcept {
  struct sigaction action = {};
  action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_RESTART;
  action.sa_sigaction = onStop;
  sigfillset(&action.sa_mask);
  // A stopped thread must still be able to end the process in time.
  sigdelset(&action.sa_mask, SIGALRM);
  ::sigaction(Crash::stopSignal(), &action, nullptr);
}

void waitOneMillisecond() noexcept {
  const timespec time{0, 1'000'000};
  ::nanosleep(&time, nullptr);
}

/// The number of a thread by its name in the system's list; 0 for a name that is no number.
int parseId(const char* name) noexcept {
  int id = 0;
  for (; *name >= '0' && *name <= '9'; ++name) {
    id = id * 10 + (*name - '0');
  }
  return *name ? 0 : id;
}

}  // namespace

int Crash::stopSignal() noexcept {
  return SIGRTMAX - 1;
}

void Crash::Threads::stop(const ucontext_t& own) noexcept {
  _count = 0;
  for (FoundThread& thread : _found) {
    thread.context = nullptr;
  }
  ++_round;
  add(::gettid());
  _found[0].context = &own;
  stopped = this;
  takeSignal();
  // Looks again until there is no new one: threads start others until they are stopped themselves.
  while (signalNewThreads() > 0) {
  }
  for (unsigned waited = 0; !allStand() && waited < patienceInMilliseconds; ++waited) {
    waitOneMillisecond();
  }
}

void Crash::Threads::release() noexcept {
  _released = _round.load();
  ::syscall(SYS_futex, &_released, FUTEX_WAKE_PRIVATE, INT_MAX, nullptr, nullptr, 0);
}

void Crash::Threads::standStill(const ucontext_t& context) noexcept {
  const int id = ::gettid();
  const int round = _round;
  if (_released >= round) {
    return;  // too late: nobody asks any more, and where this thread stands would soon be wrong
  }
  for (unsigned i = 0; i < _count; ++i) {
    if (_found[i].id == id) {
      _found[i].context = &context;
    }
  }
  for (int released = _released; released < round; released = _released) {
    ::syscall(SYS_futex, &_released, FUTEX_WAIT_PRIVATE, released, nullptr, nullptr, 0);
  }
}

bool Crash::Threads::isKnown(int id) const noexcept {
  for (const FoundThread& thread : *this) {
    if (thread.id == id) {
      return true;
    }
  }
  return false;
}

unsigned Crash::Threads::signalNewThreads() noexcept {
  FolderReader tasks("/proc/self/task");
  unsigned added = 0;
  bool room = true;
  while (const char* name = tasks.next()) {
    const int id = parseId(name);
    if (id == 0 || isKnown(id)) {
      continue;
    }
    room = add(id);
    if (!room) {
      break;
    }
    ++added;
    ::tgkill(::getpid(), id, Crash::stopSignal());
  }
  _complete = room && !tasks.failed();
  return added;
}

bool Crash::Threads::add(int id) noexcept {
  if (_count == _found.size()) {
    return false;
  }
  FoundThread& thread = _found[_count];
  thread.id = id;
  thread.priority = ::getpriority(PRIO_PROCESS, static_cast<id_t>(id));
  ++_count;
  return true;
}

bool Crash::Threads::allStand() noexcept {
  bool all = true;
  for (unsigned i = 0; i < _count; ++i) {
    FoundThread& thread = _found[i];
    if (thread.id == 0 || thread.context) {
      continue;
    }
    if (::tgkill(::getpid(), thread.id, 0) != 0) {
      thread.id = 0;
    } else {
      all = false;
    }
  }
  return all;
}

}  // namespace Kyr
