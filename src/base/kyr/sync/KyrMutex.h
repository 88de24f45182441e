/// \file
/// Mutexes that know where they were created, the guards that hold them and the wait condition.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrQtVersion.h>

#include <atomic>

namespace Kyr {

namespace LockBooks {
class Attempt;
}

/// Whether a LockDoctor looks after the locks of this process. Read by every lock and seldom
/// written, so it has a cache line of its own. Not for applications, which ask LockDoctor::isOn().
/// \threadsafety any thread
struct alignas(64) LockWatch {
  KYR_EXPORT static LockWatch the;  ///< the only one

  /// Whether locks are watched; one relaxed load.
  static bool isOn() noexcept {
    return __builtin_expect(the._on.load(std::memory_order_relaxed), false);
  }

 private:
  friend class LockDoctor;
  std::atomic<bool> _on{false};
};

/// A mutex with its creation site. Non-recursive unless built with a recursion mode, as in
/// `Mutex mutex(Mutex::Recursive)`; QMutex::Recursive is the same, but only Qt 5 has it.
///
/// The site's texts are not copied: they are literals that outlive the mutex. Destroying a
/// mutex that somebody holds raises ProgError "mutex is still locked" with the creation site.
/// Hold it with AutoMutex.
/// \threadsafety any thread
class KYR_EXPORT KYR_CAPABILITY("mutex") Mutex : public QtVersion::AnyMutex {
  using Base = QtVersion::AnyMutex;

 public:
  /// Site "global", "unknown file", 0.
  constexpr Mutex() noexcept : Mutex("global", "unknown file", 0) {}
  /// Site "global", "unknown file", 0.
  /// \param mode QMutex::Recursive lets a thread take it several times
  explicit Mutex(RecursionMode mode)
      : Base(mode), _function("global"), _file("unknown file"), _line(0) {}
  /// \param function, file, line the creation site; literals
  constexpr Mutex(const char* function, const char* file, unsigned line) noexcept
      : _function(function), _file(file), _line(line) {}
  ~Mutex();

  /// Waits for the mutex and takes it.
  void lock() KYR_ACQUIRE() KYR_NO_THREAD_SAFETY_ANALYSIS {
    // The inline attempt saves the call into Qt; it fails on every recursive mutex.
    if (LockWatch::isOn()) {
      lockWatched();
    } else if (!QtVersion::tryLockInline(*this)) {
      Base::lock();
    }
    Platform::orderedAfter(this);
  }
  /// Takes the mutex if it is free within \a milliseconds; a negative time waits for ever.
  /// \return true when the caller now holds it
  bool tryLock(int milliseconds = 0) KYR_TRY_ACQUIRE(true) KYR_NO_THREAD_SAFETY_ANALYSIS {
    const bool taken =
        LockWatch::isOn() ? tryLockWatched(milliseconds) : Base::tryLock(milliseconds);
    if (taken) {
      Platform::orderedAfter(this);
    }
    return taken;
  }
  /// Gives the mutex back. That cannot fail, so nobody reads the arguments: they are given
  /// (docs/decisions/0006) and name the calling site in the code.
  void unlock(const char* /*function*/, const char* /*file*/, unsigned /*line*/)
      KYR_RELEASE() KYR_NO_THREAD_SAFETY_ANALYSIS {
    Platform::orderedBefore(this);
    if (LockWatch::isOn()) {
      forgetHolder();
    }
    Base::unlock();
  }

 private:
  friend class Condition;  // which gives it back and takes it again

  void lockWatched();
  bool tryLockWatched(int milliseconds);
  void forgetHolder() noexcept;

  // Copies end the process; they are given (docs/decisions/0006), here as in the other classes.
  Mutex(const Mutex&);
  Mutex& operator=(const Mutex&);

  const char* _function = "";
  const char* _file = "";
  unsigned _line = 0;
};

/// Holds a mutex from its construction to its end, or to unlock().
/// \code
/// static Mutex mutex("Points::add", "points", 1);
/// const AutoMutex lock(&mutex);
/// points.push_back(point);  // may throw; the mutex is given back all the same
/// \endcode
/// \threadsafety one thread; the one that locked is the one that unlocks
class KYR_EXPORT KYR_SCOPED_CAPABILITY AutoMutex {
 public:
  /// Says that the mutex is already the caller's.
  enum Taken_t : int {
    Taken = 0  ///< on this thread
  };

  /// Locks \a mutex, which must not be null.
  explicit AutoMutex(Mutex* mutex) KYR_ACQUIRE(mutex) : _mutex(mutex) { mutex->lock(); }
  /// Holds a mutex that tryLock() or lock() has taken on this thread.
  AutoMutex(Mutex* mutex, Taken_t) KYR_REQUIRES(mutex) : _mutex(mutex) {}
  AutoMutex(const AutoMutex&) = delete;
  /// Copies the pointer and nothing else: afterwards both unlock the same mutex when they end,
  /// so never assign while one of them holds a lock. Given (docs/decisions/0006).
  AutoMutex& operator=(const AutoMutex& other) KYR_NO_THREAD_SAFETY_ANALYSIS = default;
  ~AutoMutex() KYR_RELEASE() { release(); }

  /// Unlocks before the end of the scope; a second call does nothing.
  void unlock() KYR_RELEASE() { release(); }

 private:
  void release() KYR_NO_THREAD_SAFETY_ANALYSIS {
    if (_mutex) {
      _mutex->unlock("Kyr::AutoMutex::unlock", "KyrMutex", 152);
      _mutex = nullptr;
    }
  }

  Mutex* _mutex;
};

/// A wait condition for use with one mutex, which must outlive it.
/// \code
/// Mutex mutex("Queue", "queue", 1);
/// Condition filled("Queue", "queue", 2, &mutex);
/// const AutoMutex lock(&mutex);
/// while (points.empty()) {
///   filled.wait();  // lets others in meanwhile; who adds a point calls filled.signal()
/// }
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT Condition {
 public:
  /// \param function, file, line the creation site; literals
  /// \param mutex the one with which wait() is called; not owned, and not a recursive one, with
  ///        which wait() returns at once
  Condition(const char* function, const char* file, unsigned line, Mutex* mutex)
      : _mutex(mutex), _function(function), _file(file), _line(line) {}
  ~Condition();

  /// Wakes one waiting thread, if there is one.
  void signal() { _condition.wakeOne(); }
  /// Wakes all waiting threads.
  void broadcast() { _condition.wakeAll(); }
  /// Releases the mutex, which the caller holds, sleeps until woken and takes it again.
  /// It may wake without reason: test what you wait for in a loop.
  void wait() {
    Platform::orderedBefore(_mutex);
    if (LockWatch::isOn()) {
      waitWatched();
    } else {
      _condition.wait(_mutex);
    }
    Platform::orderedAfter(_mutex);
  }

 private:
  friend class MutexReadWrite;  // which waits with a limit while its locks are watched

  void waitWatched();
  /// \param milliseconds a negative number waits for ever
  /// \return false when nobody woke it in time
  KYR_HIDDEN bool waitAtMost(int milliseconds);

  Condition(const Condition&);
  Condition& operator=(const Condition&);

  Mutex* _mutex = nullptr;
  QtVersion::AnyWaitCondition _condition;
  const char* _function = "";
  const char* _file = "";
  unsigned _line = 0;
};

/// Many readers or one writer.
///
/// A waiting writer does not hold back new readers, so a steady stream of readers can keep it
/// waiting. Neither lock is recursive, and there is no way from the one to the other: a thread
/// that holds a read lock and asks for the write lock waits for ever. Hold it with AutoMutexRead
/// and AutoMutexWrite.
/// \threadsafety any thread
class KYR_EXPORT KYR_CAPABILITY("mutex") MutexReadWrite {
 public:
  /// \param function, file, line the creation site; literals
  MutexReadWrite(const char* function, const char* file, unsigned line);
  ~MutexReadWrite();

  /// Waits until no writer holds the lock.
  void lockRead() KYR_ACQUIRE_SHARED() KYR_NO_THREAD_SAFETY_ANALYSIS {
    if (LockWatch::isOn()) {
      lockReadWatched();
      return;
    }
    enter();
    if (_writers != 0) {
      awaitNoWriter();
    }
    ++_readers;
    leave();
  }
  /// Waits until nobody holds the lock.
  void lockWrite() KYR_ACQUIRE();
  /// \throws ProgError with the caller's site when no reader holds the lock; the object is
  ///         unusable then
  void unlockRead(const char* function, const char* file, unsigned line)
      KYR_RELEASE_SHARED() KYR_NO_THREAD_SAFETY_ANALYSIS {
    enter();
    if (_readers == 0) {
      refuseReader(function, file, line);
    }
    if (LockWatch::isOn()) {
      forgetHolder();
    }
    if (--_readers == 0 && _sleepers != 0) {
      _changed.signal();
    }
    leave();
  }
  /// \throws ProgError with the caller's site when no writer holds the lock; the object is
  ///         unusable then
  void unlockWrite(const char* function, const char* file, unsigned line) KYR_RELEASE();

 private:
  friend class AutoMutexRead;  // these two report the creation site
  friend class AutoMutexWrite;
  MutexReadWrite(const MutexReadWrite&);
  MutexReadWrite& operator=(const MutexReadWrite&);

  // The internal mutex is never recursive, so the inline base of QMutex serves it: a read lock
  // then costs four uncontended exchanges and no call.
  void enter() {
    static_cast<QBasicMutex&>(_internal).lock();
    Platform::orderedAfter(&_internal);
  }
  void leave() {
    Platform::orderedBefore(&_internal);
    static_cast<QBasicMutex&>(_internal).unlock();
  }
  KYR_HIDDEN void sleep();
  void awaitNoWriter();
  KYR_HIDDEN void sleep(LockBooks::Attempt& attempt);
  void lockReadWatched();
  KYR_HIDDEN void lockWriteWatched();
  void forgetHolder() noexcept;
  /// Leaves the internal mutex locked.
  [[noreturn]] static void refuseReader(const char* function, const char* file, unsigned line);

  unsigned _readers = 0;  // this and the next two: guarded by _internal
  unsigned _writers = 0;
  unsigned _sleepers = 0;
  Mutex _internal;
  Condition _changed;
  const char* _function = "";
  const char* _file = "";
  unsigned _line = 0;
};

/// Keeps writers out from its construction to its end, or to unlock(); other readers come and go.
/// \code
/// static MutexReadWrite mutex("Points::count", "points", 1);
/// const AutoMutexRead lock(&mutex);
/// const std::size_t count = points.size();
/// \endcode
/// \threadsafety one thread; the one that locked is the one that unlocks
class KYR_EXPORT KYR_SCOPED_CAPABILITY AutoMutexRead {
 public:
  /// Waits until no writer holds \a mutex, which must not be null, and takes it for reading.
  explicit AutoMutexRead(MutexReadWrite* mutex) KYR_ACQUIRE_SHARED(mutex) : _mutex(mutex) {
    mutex->lockRead();
  }
  AutoMutexRead(const AutoMutexRead&) = delete;
  AutoMutexRead& operator=(const AutoMutexRead&) = delete;
  /// \throws ProgError as unlock()
  ~AutoMutexRead() KYR_RELEASE() { release(); }

  /// Unlocks before the end of the scope; a second call does nothing.
  /// \throws ProgError as MutexReadWrite::unlockRead(), with the creation site of the mutex, when
  ///         somebody else has given the lock back
  void unlock() KYR_RELEASE() { release(); }

 private:
  void release() KYR_NO_THREAD_SAFETY_ANALYSIS {
    if (_mutex) {
      _mutex->unlockRead(_mutex->_function, _mutex->_file, _mutex->_line);
      _mutex = nullptr;
    }
  }

  MutexReadWrite* _mutex;
};

/// Keeps everybody else out from its construction to its end, or to unlock().
/// \code
/// static MutexReadWrite mutex("Points::add", "points", 1);
/// const AutoMutexWrite lock(&mutex);
/// points.push_back(point);  // may throw; the lock is given back all the same
/// \endcode
/// \threadsafety one thread; the one that locked is the one that unlocks
class KYR_EXPORT KYR_SCOPED_CAPABILITY AutoMutexWrite {
 public:
  /// Waits until nobody holds \a mutex, which must not be null, and takes it for writing.
  explicit AutoMutexWrite(MutexReadWrite* mutex) KYR_ACQUIRE(mutex) : _mutex(mutex) {
    mutex->lockWrite();
  }
  AutoMutexWrite(const AutoMutexWrite&) = delete;
  AutoMutexWrite& operator=(const AutoMutexWrite&) = delete;
  /// \throws ProgError as unlock()
  ~AutoMutexWrite() KYR_RELEASE() { release(); }

  /// Unlocks before the end of the scope; a second call does nothing.
  /// \throws ProgError as MutexReadWrite::unlockWrite(), with the creation site of the mutex, when
  ///         somebody else has given the lock back
  void unlock() KYR_RELEASE() { release(); }

 private:
  void release() KYR_NO_THREAD_SAFETY_ANALYSIS {
    if (_mutex) {
      _mutex->unlockWrite(_mutex->_function, _mutex->_file, _mutex->_line);
      _mutex = nullptr;
    }
  }

  MutexReadWrite* _mutex;
};

}  // namespace Kyr
