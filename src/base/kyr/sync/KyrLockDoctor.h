/// \file
/// Who looks after the locks of a process: in which order they are taken, who waits, who holds.
#pragma once

#include <kyr/sync/KyrMutex.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Kyr {

/// What a LockDoctor has noticed.
/// \threadsafety a value
struct LockFinding {
  /// What is wrong with the locks.
  enum Kind_t : unsigned {
    Circle = 0,    ///< locks are taken in an order that lets threads wait for each other for ever
    OneSite = 1,   ///< a thread holds two locks of one site, whose order nobody watches
    LongWait = 2,  ///< a thread has waited for a lock for longer than is allowed
  };

  Kind_t kind = Circle;  ///< says which of them the text is about
  std::string text;      ///< UTF-8, in English; lines without the end of the last
};

/// What a LockDoctor does.
/// \threadsafety a value
struct LockDoctorOptions {
  /// Waits longer than this, in milliseconds, are reported, each once; 0 reports none.
  unsigned longestWait = 5000;
  /// Whether the process ends with LockDoctor::circleCode at the first circle.
  bool endsProcess = false;
  /// Gets each finding; without it, findings go to standard error. It is called by the thread that
  /// asks for the lock, which holds others: so it must not wait for locks that the program takes
  /// elsewhere. What it throws is dropped.
  std::function<void(const LockFinding&)> report;
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// A thread with the locks that it holds.
/// \threadsafety a value
struct LockHolder {
  /// How it holds or wants a lock.
  enum Mode_t : unsigned {
    Whole = 0,  ///< a Mutex
    Write = 1,  ///< a MutexReadWrite, alone
    Read = 2    ///< a MutexReadWrite, with other readers
  };
  /// A lock, told by the site where it was made.
  struct Lock {
    std::string function,  ///< as its constructor was given it
        file;              ///< as its constructor was given it
    unsigned line = 0;     ///< as its constructor was given it
    Mode_t mode = Whole;   ///< Whole for a Mutex
  };

  std::uint64_t thread = 0;  ///< the system's number
  std::string name;          ///< the system's name; may be empty
  std::string made;          ///< the site of its Thread; empty for foreign ones
  std::vector<Lock> held;    ///< in the order in which they were taken
  std::vector<Lock> wanted;  ///< the one for which it waits, if it does
  /// Whether it sleeps in a Condition, whose site stands in wanted.
  bool sleeps = false;
};

/// Watches in which order the threads of a process hold its locks, and who waits for them.
///
/// It is off unless the environment says `KYR_LOCK_DOCTOR=1` when the library is loaded, or
/// start() is called; until then a lock only looks whether it is on. It knows each Mutex and
/// MutexReadWrite by the site where it was made, and remembers which site was held when another one
/// was taken. An order that closes a circle is reported the first time that it is seen, by one
/// thread after the other: nobody need wait for the deadlock. docs/locks.md tells how to read what
/// it says.
///
/// - All mutexes of a site count as one; those without a site are shown, but have no order. Two of
///   one site that a thread holds at once are a finding of its own.
/// - Readers of a MutexReadWrite do not wait for each other, whatever writers want: where a thread
///   that reads takes the next lock, and one that holds that wants to read, there is no circle.
/// - Mutex::tryLock() waits for nobody, so it follows no order; what it has taken is held.
/// - Condition::wait() takes its mutex again, with what else is held.
/// - A recursive Mutex that is taken again is no finding; any other one is a circle of its own.
///
/// What is locked through QMutex, the base of Mutex, is not seen: so unlock as you have locked.
/// Up to 256 threads, 32 locks of each, 1023 sites and 4096 pairs of them are watched at once.
/// \code
/// LockDoctorOptions options;
/// options.longestWait = 1000;
/// LockDoctor::start(options);
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT LockDoctor {
 public:
  /// With which code a process ends that is to end at a circle.
  static constexpr int circleCode = 70;

  /// Begins to watch, and forgets what was seen before; if it watches already, only the options
  /// change.
  static void start(const LockDoctorOptions& options = {});
  /// Watches no longer. A report that has begun may still come to its end.
  static void stop() noexcept;
  /// Whether it watches.
  static bool isOn() noexcept { return LockWatch::isOn(); }

  /// The first 32 findings since start().
  static std::vector<LockFinding> findings();
  /// The threads that hold a lock or wait for one, at some moment of the call for each of them.
  /// Empty while it is off.
  static std::vector<LockHolder> holders();
  /// Tells the same in lines of text, without heap and locks: also for a process that dies.
  /// \param write gets each line with its end
  /// \param context for \a write
  static void describeHolders(void (*write)(void* context, const char* line, std::size_t length),
                              void* context) noexcept;
};

}  // namespace Kyr
