/// \file
/// What each thread holds and wants, while the lock doctor watches.
#pragma once

#include <kyr/sync/lock_order_p.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace Kyr::LockBooks {

struct Watched;  // a thread

/// One thread's way to one lock.
class Attempt {
 public:
  /// Looks whether the order is known, and reports what is new about it.
  Attempt(const void* lock, const Origin& origin, Mode_t mode) noexcept;
  /// For a lock that was not waited for, and so follows no order.
  static void holdTried(const void* lock, const Origin& origin, Mode_t mode) noexcept;

  /// Says that the lock is not free; reports a thread that would wait for itself.
  /// \param again whether the holder may take the lock once more
  void wait(bool again) noexcept;
  /// How many milliseconds to wait before the wait is long; -1 for as long as it takes.
  int patience() const noexcept;
  /// The wait was long: reports it, once.
  void reportWait() noexcept;
  /// Says that the thread has the lock.
  /// \param again whether it may have it several times
  void hold(bool again) noexcept;

 private:
  Attempt(Watched* thread, const void* lock, Use use) noexcept
      : _thread(thread), _lock(lock), _use(use) {}
  void learnOrder() noexcept;

  Watched* _thread = nullptr;  // null for one that is not watched
  const void* _lock;
  Use _use;
  bool _holdsItself = false;
  bool _hasWaited = false;
  std::int64_t _since = 0;  // nanoseconds
};

/// Says that the thread gives back a lock.
void release(const void* lock) noexcept;
/// Says that a lock ends.
void forget(const void* lock) noexcept;

/// Says that the thread sleeps in a Condition, for as long as it lives.
class Sleep {
 public:
  /// \param lock what the Condition gives back meanwhile
  Sleep(const void* lock, const Origin& lockOrigin, const Origin& condition) noexcept;
  ~Sleep();
  Sleep(const Sleep&) = delete;
  Sleep& operator=(const Sleep&) = delete;

 private:
  Watched* _thread;
  const void* _lock;
  Use _use;
};

/// What was seen of one thread.
struct Glance {
  Who who;  // with number 0 when there is nothing to say
  std::array<Use, 32> held{};
  std::uint32_t count = 0;
  Use wanted;
  bool wants = false;
  bool sleeps = false;
  std::int64_t waitedFor = 0;  // milliseconds
};

constexpr std::size_t threadCapacity = 256;
/// What a thread does now. Waits for nobody.
/// \param index below threadCapacity
Glance lookAt(std::size_t index) noexcept;
/// Says it in a line, without its end.
void describe(const Glance& glance, Text& text) noexcept;

/// All threads begin anew; the caller holds guard().
void beginWatch() noexcept;

/// In a forked child, whose only thread is the calling one.
void keepOnlyThisThread() noexcept;
/// Whether the locks of the calling thread are left alone: until it was called with false as often
/// as with true.
void setBusy(bool busy) noexcept;
/// Leaves them alone while it lives: the doctor works for the thread.
class Busy {
 public:
  Busy() noexcept { setBusy(true); }
  ~Busy() { setBusy(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
};

/// Hands on what was noticed. Defined beside the options.
void report(unsigned kind, const Text& text) noexcept;
/// In milliseconds; 0 for without a limit.
unsigned longestWait() noexcept;
/// Tells where a thread stands, as far as somebody can.
void describeStack(std::uint64_t thread, Text& text) noexcept;

}  // namespace Kyr::LockBooks
