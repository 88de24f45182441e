/// \file
/// Notices that a thread hangs, and tells where all threads stand, while the process lives on.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/log/KyrJournal.h>
#include <kyr/log/KyrSyncErrorLog.h>

#include <QString>

#include <atomic>
#include <cstdint>
#include <memory>

class QTimer;

namespace Kyr {

class HeartbeatWatcher;

/// What a Heartbeat takes for a hang, and who learns of it.
/// \threadsafety a value
struct HeartbeatOptions {
  /// Milliseconds without a beat that are a hang; at least 50 are taken.
  int patience = 5000;
  /// What the thread is called in messages; empty for the name that Qt knows.
  QString name;
  /// Both get each message as one; they live longer than the heartbeat. With neither, messages go
  /// to standard error.
  SyncErrorLog* log = nullptr;
  Journal* journal = nullptr;  ///< as an error of the source "heartbeat"
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// Watches a thread, typically the one with windows: that thread beats, and another one, which
/// belongs to this object, says once when the beats stay away. It names the thread and writes the
/// backtraces of all threads and, where a LockDoctor watches, who holds which lock; when the beats
/// come back it says how long they were away.
/// \code
/// HeartbeatOptions options;
/// options.patience = 3000;
/// Heartbeat heartbeat(options);  // on the thread that is watched
/// heartbeat.beatInEventLoop();
/// \endcode
/// Nothing of that happens while a debugger is attached. Time during which the whole process stood
/// still, as in a machine that sleeps, does not count.
///
/// On Linux all threads stand still for the backtraces, mostly for less than a second and for 20 at
/// most. The signal SIGRTMAX-1 stops them, whose handler is the library's from the first hang on; a
/// call that sleeps in the system may come back early with EINTR. As in a crash the program
/// kyr-backtrace reads the stacks; without it only the functions' modules are known. On Windows
/// each thread stands still only while its stack is copied.
/// \threadsafety one thread, but for beat()
class KYR_EXPORT Heartbeat {
 public:
  /// Begins to watch the calling thread, which counts as a beat.
  explicit Heartbeat(const HeartbeatOptions& options = {});
  /// Waits for a report that is being written.
  ~Heartbeat();
  Heartbeat(const Heartbeat&) = delete;
  Heartbeat& operator=(const Heartbeat&) = delete;

  /// Says that the thread does not hang.
  /// \threadsafety any thread
  void beat() noexcept { _hasBeaten.store(true, std::memory_order_relaxed); }
  /// Has the event loop of the calling thread beat as long as this object lives, which then ends on
  /// the same thread.
  void beatInEventLoop();

 private:
  friend class HeartbeatWatcher;

  std::atomic<bool> _hasBeaten{true};
  const int _patience;
  std::unique_ptr<QTimer> _timer;
  std::unique_ptr<HeartbeatWatcher> _watcher;
};

}  // namespace Kyr
