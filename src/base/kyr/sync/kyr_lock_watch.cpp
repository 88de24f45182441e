#include <kyr/sync/lock_watch_p.h>

#include <kyr/sync/KyrLockDoctor.h>
#include <kyr/sync/own_thread_p.h>
#include <kyr/sync/watched_thread_p.h>

#include <algorithm>
#include <chrono>

namespace Kyr {

namespace LockBooks {

/// Written by its thread, read by any; an entry is valid while its lock is not null.
struct Held {
  std::atomic<const void*> lock;
  std::atomic<std::uint32_t> use;
};

/// A thread with what it holds. Given back locks leave gaps, so that nothing moves under the eyes
/// of others.
struct alignas(64) Watched {
  std::atomic<std::uint64_t> thread;  // 0 for nobody
  std::atomic<std::uint32_t> depth;
  std::atomic<std::uint32_t> watch;  // the one to which the locks belong
  std::atomic<const void*> wanted;   // not null while the next three count
  std::atomic<std::uint32_t> wantedUse;
  std::atomic<std::int64_t> since;
  std::atomic<bool> sleeps;
  std::array<Held, 32> held;
};

}  // namespace LockBooks

namespace {

using namespace LockBooks;

Watched threads[threadCapacity];  // zeros until somebody watches
std::atomic<std::uint32_t> threadCount{0};
std::atomic<std::uint32_t> watch{0};

thread_local Watched* own = nullptr;
/// How often the doctor works for the thread, within its own work: the locks that its reports take
/// are not watched.
thread_local unsigned busyDepth = 0;

std::int64_t now() noexcept {
  return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

void clear(Watched& thread) noexcept {
  for (Held& held : thread.held) {
    held.lock.store(nullptr, std::memory_order_relaxed);
  }
  thread.wanted.store(nullptr, std::memory_order_relaxed);
  thread.depth.store(0, std::memory_order_relaxed);
  thread.watch.store(watch.load(std::memory_order_relaxed), std::memory_order_release);
}

void leave(void* thread) noexcept {
  own = nullptr;
  clear(*static_cast<Watched*>(thread));
  static_cast<Watched*>(thread)->thread.store(0, std::memory_order_release);
}

/// Takes a free place, or one of a thread with the same number, which has ended unnoticed.
bool take(Watched& place, std::uint64_t number) noexcept {
  std::uint64_t before = 0;
  return place.thread.compare_exchange_strong(before, number) || before == number;
}

void countUpTo(std::uint32_t count) noexcept {
  std::uint32_t before = threadCount.load();
  while (before < count && !threadCount.compare_exchange_weak(before, count)) {
  }
}

Watched* enter() noexcept {
  const std::uint64_t number = Platform::threadNumber();
  for (std::uint32_t i = 0; i < threadCapacity; ++i) {
    if (take(threads[i], number)) {
      countUpTo(i + 1);
      clear(threads[i]);
      Platform::callAtThreadEnd(&leave, &threads[i]);
      return &threads[i];
    }
  }
  return nullptr;
}

/// The calling thread; null when it is not watched.
Watched* thisThread() noexcept {
  if (busyDepth != 0) {
    return nullptr;
  }
  if (!own) {
    own = enter();
  } else if (own->watch.load(std::memory_order_relaxed) != watch.load(std::memory_order_relaxed)) {
    clear(*own);
  }
  return own;
}

void shrink(Watched& thread) noexcept {
  std::uint32_t depth = thread.depth.load(std::memory_order_relaxed);
  while (depth > 0 && !thread.held[depth - 1].lock.load(std::memory_order_relaxed)) {
    --depth;
  }
  thread.depth.store(depth, std::memory_order_release);
}

/// \return where there is room: behind all others, or else in a gap; null when there is none
Held* place(Watched& thread) noexcept {
  const std::uint32_t depth = thread.depth.load(std::memory_order_relaxed);
  if (depth < thread.held.size()) {
    thread.depth.store(depth + 1, std::memory_order_release);
    return &thread.held[depth];
  }
  const auto gap = std::find_if(thread.held.begin(), thread.held.end(),
                                [](const Held& held) { return !held.lock.load(); });
  return gap == thread.held.end() ? nullptr : &*gap;
}

void push(Watched& thread, const void* lock, Use use) noexcept {
  if (Held* const room = place(thread)) {
    room->use.store(use.bits(), std::memory_order_release);
    room->lock.store(lock, std::memory_order_release);
  }
}

/// \return how the thread held the lock the last time, in \a use, and whether it did
bool pop(Watched& thread, const void* lock, Use& use) noexcept {
  for (std::uint32_t i = thread.depth.load(std::memory_order_relaxed); i-- > 0;) {
    Held& held = thread.held[i];
    if (held.lock.load(std::memory_order_relaxed) == lock) {
      use = Use(held.use.load(std::memory_order_relaxed));
      held.lock.store(nullptr, std::memory_order_release);
      shrink(thread);
      return true;
    }
  }
  return false;
}

/// For a lock that is given back by another thread than the one that took it.
/// \return whether some thread held it
bool popElsewhere(const void* lock) noexcept {
  const std::uint32_t count = threadCount.load();
  for (std::uint32_t i = 0; i < count; ++i) {
    for (Held& held : threads[i].held) {
      const void* expected = lock;
      if (held.lock.load(std::memory_order_relaxed) == lock &&
          held.lock.compare_exchange_strong(expected, nullptr)) {
        return true;
      }
    }
  }
  return false;
}

Chain chainOf(const Watched& thread, Use wanted) noexcept {
  Chain chain;
  chain.who = whoIs(thread.thread);
  chain.wanted = wanted;
  const std::uint32_t depth = thread.depth.load(std::memory_order_relaxed);
  for (std::uint32_t i = 0; i < depth && chain.count < chain.held.size(); ++i) {
    if (thread.held[i].lock.load(std::memory_order_relaxed)) {
      chain.held[chain.count++] = Use(thread.held[i].use.load(std::memory_order_relaxed));
    }
  }
  return chain;
}

/// Reads one entry while its thread may change it.
bool look(const Held& held, Use& use) noexcept {
  const void* const before = held.lock.load(std::memory_order_acquire);
  use = Use(held.use.load(std::memory_order_acquire));
  return before && held.lock.load(std::memory_order_acquire) == before;
}

void beginWait(Watched& thread, const void* lock, Use use, bool sleeps) noexcept {
  thread.wantedUse.store(use.bits(), std::memory_order_relaxed);
  thread.since.store(now(), std::memory_order_relaxed);
  thread.sleeps.store(sleeps, std::memory_order_relaxed);
  thread.wanted.store(lock, std::memory_order_release);
}

bool holds(const Watched& thread, const void* lock) noexcept {
  const std::uint32_t depth = thread.depth.load(std::memory_order_acquire);
  return std::any_of(thread.held.begin(), thread.held.begin() + depth,
                     [&](const Held& held) { return held.lock.load() == lock; });
}

void addWaits(Text& text, const Glance& glance) noexcept {
  const char* const verb = glance.sleeps ? " sleeps in " : " waits for ";
  text << (glance.count > 0 ? "," : "") << verb << glance.wanted;
  (text << " since ").count(static_cast<std::uint64_t>(glance.waitedFor)) << " ms";
}

void describeHolder(std::size_t index, Text& text) noexcept {
  const Glance glance = lookAt(index);
  if (glance.who.number == 0) {
    return;
  }
  text << "\n  holder: ";
  describe(glance, text);
  describeStack(glance.who.number, text);
}

}  // namespace

void LockBooks::beginWatch() noexcept {
  ++watch;
}

void LockBooks::keepOnlyThisThread() noexcept {
  for (Watched& thread : threads) {
    if (&thread == own) {
      thread.thread = Platform::threadNumber();
    } else if (thread.thread != 0) {
      clear(thread);
      thread.thread = 0;
    }
  }
}

void LockBooks::setBusy(bool busy) noexcept {
  busyDepth += busy ? 1U : -1U;
}

LockBooks::Attempt::Attempt(const void* lock, const Origin& origin, Mode_t mode) noexcept
    : Attempt(thisThread(), lock, Use()) {
  if (_thread) {
    _use = Use(siteOf(origin), mode);
    learnOrder();
  }
}

void LockBooks::Attempt::holdTried(const void* lock, const Origin& origin, Mode_t mode) noexcept {
  if (Watched* const thread = thisThread()) {
    push(*thread, lock, Use(siteOf(origin), mode));
  }
}

void LockBooks::Attempt::learnOrder() noexcept {
  const std::uint32_t depth = _thread->depth.load(std::memory_order_relaxed);
  for (std::uint32_t i = 0; i < depth; ++i) {
    const void* const lock = _thread->held[i].lock.load(std::memory_order_relaxed);
    const Use held(_thread->held[i].use.load(std::memory_order_relaxed));
    _holdsItself = _holdsItself || lock == _lock;
    if (!lock || lock == _lock || isKnown(held, _use)) {
      continue;
    }
    const Busy busy;
    Text text;
    const News_t news = learn(held, chainOf(*_thread, _use), text);
    if (news != Nothing) {
      report(news == ClosesCircle ? LockFinding::Circle : LockFinding::OneSite, text);
    }
  }
}

void LockBooks::Attempt::wait(bool again) noexcept {
  if (!_thread || _hasWaited) {
    return;
  }
  _hasWaited = true;
  beginWait(*_thread, _lock, _use, false);
  _since = _thread->since.load(std::memory_order_relaxed);
  if (_holdsItself && !again) {
    const Busy busy;
    Text text;
    text << "lock doctor: a thread waits for itself for ever\n  ";
    const Chain chain = chainOf(*_thread, _use);
    report(LockFinding::Circle,
           text << chain.who << " holds " << _use << " and takes it once more");
  }
}

int LockBooks::Attempt::patience() const noexcept {
  const unsigned limit = longestWait();
  if (!_thread || limit == 0 || _since == 0) {
    return -1;
  }
  const std::int64_t left = limit - (now() - _since) / 1000000;
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, 0x7fffffff));
}

void LockBooks::Attempt::reportWait() noexcept {
  _since = 0;
  const Busy busy;
  const std::int64_t waited = (now() - _thread->since.load(std::memory_order_relaxed)) / 1000000;
  Text text;
  const Chain chain = chainOf(*_thread, _use);
  (text << "lock doctor: " << chain.who << " has waited ").count(static_cast<std::uint64_t>(waited))
      << " ms for " << _use;
  const std::uint32_t count = threadCount.load();
  for (std::uint32_t i = 0; i < count; ++i) {
    if (holds(threads[i], _lock)) {
      describeHolder(i, text);
    }
  }
  report(LockFinding::LongWait, text);
}

void LockBooks::Attempt::hold(bool again) noexcept {
  if (!_thread) {
    return;
  }
  if (_hasWaited) {
    _thread->wanted.store(nullptr, std::memory_order_release);
  }
  // A lock that is free but still held in these books was given back past them.
  Use stale;
  while (_holdsItself && !again && pop(*_thread, _lock, stale)) {
  }
  push(*_thread, _lock, _use);
}

void LockBooks::release(const void* lock) noexcept {
  Use use;
  Watched* const thread = thisThread();
  if (thread && !pop(*thread, lock, use)) {
    popElsewhere(lock);
  }
}

void LockBooks::forget(const void* lock) noexcept {
  Use use;
  while (own && pop(*own, lock, use)) {
  }
  // The next lock at this place must not be taken for it, whoever held it.
  while (popElsewhere(lock)) {
  }
}

LockBooks::Sleep::Sleep(const void* lock, const Origin& lockOrigin,
                        const Origin& condition) noexcept
    : _thread(thisThread()), _lock(lock) {
  if (_thread && !pop(*_thread, lock, _use)) {
    _thread = nullptr;  // it was taken before anybody watched
  }
  if (_thread) {
    Attempt(_lock, lockOrigin, _use.mode());  // what else is held is held while it is taken again
    beginWait(*_thread, _lock, Use(siteOf(condition), Whole), true);
  }
}

LockBooks::Sleep::~Sleep() {
  if (_thread) {
    _thread->wanted.store(nullptr, std::memory_order_release);
    push(*_thread, _lock, _use);
  }
}

LockBooks::Glance LockBooks::lookAt(std::size_t index) noexcept {
  const Watched& thread = threads[index];
  Glance glance;
  if (index >= threadCount.load() || thread.watch.load(std::memory_order_acquire) != watch) {
    return glance;
  }
  for (const Held& held : thread.held) {
    Use use;
    if (look(held, use)) {
      glance.held[glance.count++] = use;
    }
  }
  glance.wants = thread.wanted.load(std::memory_order_acquire) != nullptr;
  if (glance.wants) {
    glance.wanted = Use(thread.wantedUse.load(std::memory_order_relaxed));
    glance.sleeps = thread.sleeps.load(std::memory_order_relaxed);
    glance.waitedFor = (now() - thread.since.load(std::memory_order_relaxed)) / 1000000;
  }
  if (glance.wants || glance.count > 0) {
    glance.who = whoIs(thread.thread);
  }
  return glance;
}

void LockBooks::describe(const Glance& glance, Text& text) noexcept {
  text << glance.who;
  for (std::uint32_t i = 0; i < glance.count; ++i) {
    text << (i == 0 ? " holds " : ", ") << glance.held[i];
  }
  if (glance.wants) {
    addWaits(text, glance);
  }
}

}  // namespace Kyr
