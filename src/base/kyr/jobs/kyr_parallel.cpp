#include <kyr/jobs/KyrParallel.h>

#include <kyr/core/forever_p.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/jobs/work_context_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/trace/KyrTrace.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <limits>
#include <utility>

namespace Kyr::Parallel {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned TeamMutex = 34, GrowthMutex = 35, Begun = 36, Finished = 61, Helper = 130;
constexpr const char* File = "kyr_parallel";
}  // namespace site

namespace {

using Clock = std::chrono::steady_clock;
using Nanoseconds = std::int64_t;

// A block of work is worth handing out when it takes about that long: much longer than handing it
// out, much shorter than a user waits for a stop.
constexpr Nanoseconds shortBlock = 20000;
constexpr Nanoseconds longBlock = 200000;
/// What is left to do must take as long, or another thread would come too late for it.
constexpr Nanoseconds worthHelp = 15000;
constexpr unsigned mostThreads = 256;

Nanoseconds now() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
      .count();
}

class Helper;
class Loop;

thread_local bool onHelper = false;

Forever<Mutex> teamLock("Kyr::Parallel::run", site::File, site::TeamMutex);
/// Guards who helps whom. A body is never called while it is held.
Mutex& team = teamLock.object;
Loop* firstLoop KYR_GUARDED_BY(team) = nullptr;      // open for helpers
Helper* firstAsleep KYR_GUARDED_BY(team) = nullptr;  // or about to be
unsigned helpers KYR_GUARDED_BY(team) = 0;           // alive
Forever<Condition> begun("Kyr::Parallel::run", site::File, site::Begun, &team);

Forever<Mutex> growthLock("Kyr::Parallel::run", site::File, site::GrowthMutex);
/// Held while helpers are made, by one at a time.
Mutex& growth = growthLock.object;
unsigned groups KYR_GUARDED_BY(growth) = 0;  // ever registered
std::atomic<bool> mayMakeHelpers{true};

/// One call of run(), on its caller's stack.
class Loop {
 public:
  Loop(IndexRange range, Block block, void* body, const ParallelOptions& options,
       const StopToken& stop, ProgressScope* scope)
      : _next(range.begin),
        _end(range.end),
        _block(block),
        _body(body),
        _name(options.name),
        _grain(options.grain),
        _stop(stop),
        _scope(scope),
        _threads(threadsFor(range, options)) {}
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  /// Does all the work, with what help there is, and throws what came of it.
  void run();
  /// Does a part of the work, until none is left to be taken.
  void work(bool asHelper) noexcept;

  bool needsHelp() const KYR_REQUIRES(team) {
    return _active + 1 < _threads && !isOver() && _next.load(std::memory_order_relaxed) < _end;
  }
  void enter() KYR_REQUIRES(team) { ++_active; }
  void leave() KYR_REQUIRES(team) {
    if (--_active == 0) {
      _left.signal();
    }
  }

  Loop* next = nullptr;

 private:
  static unsigned threadsFor(IndexRange range, const ParallelOptions& options) {
    const unsigned wanted = options.threads ? options.threads : OS::getNumberOfCPUs();
    const std::size_t most = std::min<std::size_t>(mostThreads, range.end - range.begin);
    return static_cast<unsigned>(std::clamp<std::size_t>(wanted, 1, most));
  }

  bool isOver() const { return _over.load(std::memory_order_relaxed); }
  bool take(std::size_t most, IndexRange& taken);
  void callBlock(IndexRange taken, WorkOnItems& items) noexcept;
  void fail(std::exception_ptr exception) noexcept;
  std::size_t nextBlock(std::size_t most, std::size_t taken, Nanoseconds spent) const;
  void askForHelp() noexcept;
  void open();
  void close();

  std::atomic<std::size_t> _next;
  const std::size_t _end;
  const Block _block;
  void* const _body;
  const char* const _name;
  const std::size_t _grain;
  const StopToken& _stop;
  ProgressScope* const _scope;
  const unsigned _threads;
  const Nanoseconds _begun = now();
  std::atomic<bool> _over{false};  // nothing more is to be taken
  std::atomic<unsigned> _invited{0};
  std::exception_ptr _exception;  // set under the lock of the team, read when nobody is inside
  unsigned _active KYR_GUARDED_BY(team) = 0;  // helpers that are inside
  Condition _left{"Kyr::Parallel::run", site::File, site::Finished, &team};
};

/// A thread that helps with one loop after the other, and sleeps when there is none.
class Helper : public PoolThread {
 public:
  Helper() : PoolThread(NoLockGUI, "Kyr::Parallel::run", site::File, site::Helper) {
    setObjectName("Kyr parallel");
    const AutoMutex lock(&team);
    ++helpers;
    fallAsleep();
  }
  ~Helper() override {
    const AutoMutex lock(&team);
    --helpers;
    for (Helper** place = &firstAsleep; *place; place = &(*place)->_next) {
      if (*place == this) {
        *place = _next;
        break;
      }
    }
  }

  /// Wakes a helper that sleeps. One that is about to sleep is awaited: that needs no lock but the
  /// helper's own, and no time.
  static bool wakeOne() KYR_REQUIRES(team) {
    while (Helper* const helper = firstAsleep) {
      firstAsleep = helper->_next;
      helper->waitForWorking();
      if (helper->tryStartWorking()) {
        return true;
      }
    }
    return false;  // helpers that are to exit cannot be woken
  }

  static bool isThisThread() { return onHelper; }

  /// Until then the thread may be in a start of Qt's, which hangs with the process when that ends.
  void waitForBegin() {
    const AutoMutex lock(&team);
    while (!_hasBegun) {
      begun.object.wait();
    }
  }

  static unsigned missing(unsigned wanted) {
    const AutoMutex lock(&team);
    return wanted - std::min(wanted, helpers);
  }

 protected:
  void run() override {
    {
      const AutoMutex lock(&team);
      _hasBegun = true;
      begun.object.broadcast();
    }
    PoolThread::run();
  }
  void work() override {
    onHelper = true;
    while (Loop* const loop = join()) {
      loop->work(true);
      const AutoMutex lock(&team);
      loop->leave();
    }
  }

 private:
  Loop* join() {
    const AutoMutex lock(&team);
    for (Loop* loop = firstLoop; loop; loop = loop->next) {
      if (loop->needsHelp()) {
        loop->enter();
        return loop;
      }
    }
    fallAsleep();
    return nullptr;
  }

  void fallAsleep() KYR_REQUIRES(team) {
    _next = firstAsleep;
    firstAsleep = this;
  }

  Helper* _next = nullptr;
  bool _hasBegun KYR_GUARDED_BY(team) = false;
};

/// Takes over some indices that nobody has taken. Towards the end threads take less, so that they
/// finish together.
bool Loop::take(std::size_t most, IndexRange& taken) {
  std::size_t begin = _next.load(std::memory_order_relaxed);
  std::size_t count = 0;
  do {
    if (begin >= _end || isOver()) {
      return false;
    }
    const std::size_t left = _end - begin;
    const std::size_t share = _grain ? left : left / (std::size_t{2} * _threads) + 1;
    count = std::min({most, share, left});
  } while (!_next.compare_exchange_weak(begin, begin + count, std::memory_order_relaxed));
  taken = {begin, begin + count};
  return true;
}

void Loop::fail(std::exception_ptr exception) noexcept {
  _over = true;
  const AutoMutex lock(&team);
  if (!_exception) {
    _exception = std::move(exception);
  }
}

void Loop::callBlock(IndexRange taken, WorkOnItems& items) noexcept {
  try {
    const TraceSpan span(_name, "chunk");
    _stop.throwIfStopped();
    _block(_body, taken.begin, taken.end);
    items.count(taken.end - taken.begin);
  } catch (...) {
    fail(std::current_exception());
  }
}

/// How many indices to take next, after some took so long.
std::size_t Loop::nextBlock(std::size_t most, std::size_t taken, Nanoseconds spent) const {
  if (_grain != 0) {
    return _grain;
  }
  const bool mayGrow = taken == most && most < _end;
  return spent < shortBlock && mayGrow ? most * 2 : spent > longBlock ? most / 2 + most % 2 : most;
}

void Loop::work(bool asHelper) noexcept {
  WorkOnItems items(_scope, _stop);
  IndexRange taken(0);
  std::size_t most = std::max<std::size_t>(_grain, 1);
  Nanoseconds before = now();
  if (!asHelper || before - _begun > worthHelp) {
    askForHelp();
  }
  while (take(most, taken)) {
    const std::size_t count = taken.end - taken.begin;
    callBlock(taken, items);
    const Nanoseconds after = now();
    most = nextBlock(most, count, after - before);
    const double each = static_cast<double>(after - before) / static_cast<double>(count);
    if (each * static_cast<double>(_end - taken.end) > worthHelp) {
      askForHelp();
    }
    before = after;
  }
}

void Loop::askForHelp() noexcept {
  if (_invited.load(std::memory_order_relaxed) + 1 < _threads) {
    const AutoMutex lock(&team);
    if (needsHelp() && Helper::wakeOne()) {
      ++_invited;
    }
  }
}

/// Makes threads that sleep. Where there is no memory, or the system gives no thread, there are
/// fewer, and this is not tried again.
void makeHelpers(unsigned wanted) noexcept {
  const AutoMutex making(&growth);
  std::vector<PoolThread*> made;
  try {
    const unsigned missing = Helper::missing(wanted);
    made.reserve(missing);
    while (made.size() < missing) {
      made.push_back(new Helper);
      made.back()->start();
      mayMakeHelpers = made.back()->isRunning();
      if (!mayMakeHelpers) {
        break;
      }
    }
    for (PoolThread* const helper : made) {
      if (helper->isRunning()) {
        static_cast<Helper*>(helper)->waitForBegin();
      }
    }
    PoolForThreads::getPool()->registerThreads(QString("Kyr parallel %1").arg(++groups), made);
  } catch (const std::bad_alloc&) {
    mayMakeHelpers = false;
    for (PoolThread* const helper : made) {
      helper->prepareExit();
      helper->wait();
      delete helper;
    }
  }
}

/// Lets helpers in, and sees to it that there are enough of them.
void Loop::open() {
  // A helper makes none: who ends the pool waits for it, with the lock of the pool.
  if (mayMakeHelpers && !Helper::isThisThread() && Helper::missing(_threads - 1) != 0) {
    makeHelpers(_threads - 1);
  }
  const AutoMutex lock(&team);
  next = firstLoop;
  firstLoop = this;
}

void Loop::run() {
  if (_threads > 1) {
    open();
    work(false);
    close();
  } else {
    work(false);
  }
  if (_exception) {
    std::rethrow_exception(_exception);
  }
}

/// Lets no more helpers in, and waits for those that are.
void Loop::close() {
  const AutoMutex lock(&team);
  Loop** place = &firstLoop;
  while (*place != this) {
    place = &(*place)->next;
  }
  *place = next;
  while (_active != 0) {
    _left.wait();
  }
}

}  // namespace

void run(IndexRange range, Block block, void* body, const ParallelOptions& options) {
  ProgressScope* const around = workContext().scope;
  const std::size_t count = range.begin < range.end ? range.end - range.begin : 0;
  std::optional<ProgressScope> scope;
  if (around) {
    scope.emplace(options.name, count, options.weight);
  }
  if (count != 0) {
    const StopToken stop = options.stop ? *options.stop : StopToken::current();
    Loop loop(range, block, body, options, stop, scope ? &*scope : nullptr);
    loop.run();
  }
}

}  // namespace Kyr::Parallel
