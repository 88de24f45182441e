#include <kyr/crash/living_stacks_p.h>

#include <kyr/core/forever_p.h>
#include <kyr/crash/crash_posix_p.h>

#include <cstdlib>
#include <string_view>

#include <sys/mman.h>
#include <sys/stat.h>
#include <ucontext.h>
#include <unistd.h>

namespace Kyr {

namespace {

using namespace Crash;

/// What a report works with. Threads that were late may look at it at any time later.
struct Work {
  Memory memory;
  Threads threads;
};

Work& work() {
  static Forever<Work> room;
  return room.object;
}

constexpr off_t longestText = 1 << 20;

/// The signals of the application. The crash handler stops the thread, and reports its faults, all
/// the same.
sigset_t signalsOfApplication() noexcept {
  sigset_t all;
  sigfillset(&all);
  sigdelset(&all, stopSignal());
  for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP}) {
    sigdelset(&all, fault);
  }
  return all;
}

/// A file without a name, which takes what is printed.
class Collection {
 public:
  Collection() noexcept : _file(::memfd_create("kyr-stacks", MFD_CLOEXEC)) { collectOutput(_file); }
  ~Collection() { ::close(_file); }
  Collection(const Collection&) = delete;
  Collection& operator=(const Collection&) = delete;

  /// Ends the collection.
  QByteArray take() const {
    collectOutput(-1);
    struct stat status {};
    ::fstat(_file, &status);
    QByteArray text(int(std::min(status.st_size, longestText)), '\0');
    const ssize_t length = ::pread(_file, text.data(), size_t(text.size()), 0);
    text.truncate(int(std::max<ssize_t>(length, 0)));
    return status.st_size > longestText ? text + "\nthe rest is left out\n" : text;
  }

 private:
  const int _file;
};

/// Between stop() and release() nothing allocates or takes a lock: one of the stopped threads may
/// hold it. A handler of the application could want one, so none runs on this thread meanwhile.
void collectStacks(Work& tools, std::uint64_t hanging, bool alone) noexcept {
  const sigset_t away = signalsOfApplication();
  sigset_t before;
  ::pthread_sigmask(SIG_BLOCK, &away, &before);
  MetModules met;
  ucontext_t own;
  ::getcontext(&own);
  tools.memory.load();
  tools.threads.stop(own);
  printLivingBacktraces(tools.threads, tools.memory, hanging, alone, met);
  tools.threads.release();
  tools.memory.unload();
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace

QByteArray Crash::stacksOfThreads(std::uint64_t hanging, bool alone) {
  Work& tools = work();
  findBacktraceProgram();
  const Collection collection;
  collectStacks(tools, hanging, alone);
  return collection.take();
}

bool Crash::isDebugged() noexcept {
  std::array<char, 4096> status{};
  const std::size_t length = readSystemFile("/proc/self/status", status.data(), status.size() - 1);
  const std::string_view text(status.data(), length);
  constexpr std::string_view name = "\nTracerPid:\t";
  const std::size_t at = text.find(name);
  return at != std::string_view::npos && text.substr(at + name.size(), 1) != "0";
}

void Crash::keepSignalsAway() noexcept {
  const sigset_t away = signalsOfApplication();
  ::pthread_sigmask(SIG_SETMASK, &away, nullptr);
}

}  // namespace Kyr
