/// \file
/// Threads that sleep between passes of work, and the process-wide register of their groups.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/sync/KyrThread.h>

#include <QString>

#include <map>
#include <vector>

namespace Kyr {

/// A thread that sleeps until its owner asks for one pass of work, does it and sleeps again.
///
/// One owner drives it: start() the thread; for each pass startWorking() and later
/// waitForWorking(); at the end prepareExit(), wait() and delete. A thread that is registered
/// with PoolForThreads is ended and deleted there.
/// \code
/// class Reader : public PoolThread {
///  public:
///   Reader() : PoolThread(NoLockGUI, "Reader", "reader", 1) {}
///
///  private:
///   void work() override { in.read(room, sizeof room); }
/// };
/// auto* const reader = new Reader;
/// PoolForThreads::getPool()->registerThreads("readers", {reader});
/// reader->start();
/// reader->startWorking();
/// reader->waitForWorking();
/// PoolForThreads::getPool()->destroyThreads("readers");
/// \endcode
/// \threadsafety as each function says
class KYR_EXPORT PoolThread : public Thread {
 public:
  /// \param lock kept by the thread, see Thread::lockGUI()
  /// \param function, file, line the creation site; literals
  PoolThread(LockGUI_t lock, const char* function, const char* file, unsigned line);
  /// Neither ends the thread nor waits for it: the owner does both before.
  ~PoolThread() override;

  /// Asks for one pass of work. A request during a pass is not kept for another one.
  /// \threadsafety the owner's thread; not after prepareExit(), which it would undo
  void startWorking();
  /// Asks for one pass of work if the thread sleeps.
  /// \return false when it is in a pass, or to exit; then nothing is changed
  /// \threadsafety any thread that knows that the object lives
  bool tryStartWorking();
  /// Waits until the requested pass is done; returns at once when none was requested or when
  /// the thread is to exit.
  /// \threadsafety the owner's thread, one caller at a time
  void waitForWorking();
  /// Asks the thread to end after the pass that it may be in; does not wait for that.
  /// \threadsafety any thread that knows that the object lives
  void prepareExit();

 protected:
  void run() override;
  /// One pass of the thread's job; called on the thread itself with no lock held.
  virtual void work() = 0;

 private:
  enum PoolState_t : unsigned {
    Idle = 0,     ///< sleeps; startWorking() leads to Working
    Working = 1,  ///< a pass is requested or running; back to Idle when it is done
    Exiting = 2,  ///< final; run() ends after the pass that it may be in
  };

  /// \return false when the thread is to exit
  KYR_HIDDEN bool awaitRequest();
  KYR_HIDDEN void reportDone();

  PoolState_t _state KYR_GUARDED_BY(_mutex) = Idle;
  Mutex _mutex;
  /// Wakes the owner and the thread: only these two ever wait for it, one at a time.
  Condition _changed;
};

/// The groups of pool threads of the process, by name. It owns the threads, but starts none
/// and does not decide how many there are.
///
/// Born with the first getPool(), ended by deinitialize(), which closing the library calls.
/// Group names are case-sensitive. Its lock is taken before that of a pool thread, and is held
/// while threads end and are deleted: neither work() nor a destructor may come here.
/// \threadsafety any thread
class KYR_EXPORT PoolForThreads {
 public:
  /// The pool of the process; created when there is none.
  /// \return never null; owned by the library, dead after deinitialize()
  static PoolForThreads* getPool();
  /// Ends and deletes the threads of all groups, by name, and then the pool itself.
  /// Does nothing when there is no pool. Waits as long as a pass of work takes.
  static void deinitialize();

  /// Copies the register only: both then name the same threads, which one of them deletes. Given
  /// (docs/decisions/0006); nobody copies the pool.
  PoolForThreads(const PoolForThreads&) = default;
  PoolForThreads& operator=(const PoolForThreads&) = default;

  /// Takes over the threads of a new group, started or not. An empty group is not registered.
  /// \param name unused so far
  /// \param threads owned by the pool from here on; null entries are allowed
  /// \throws ProgError "Thread with the same name exists!"; the pool stays locked for good
  void registerThreads(const QString& name, const std::vector<PoolThread*>& threads);
  /// \return how many threads were registered as \a name; 0 for an unknown name
  unsigned getNumberOfThreads(const QString& name);
  /// Ends, awaits and deletes the threads of a group, one after the other in their order, and
  /// forgets the group. An unknown name is ignored. Waits as long as a pass of work takes.
  /// \param name taken by value, which is given (docs/decisions/0006)
  void destroyThreads(QString name);

 private:
  PoolForThreads();
  ~PoolForThreads();

  KYR_HIDDEN void destroyThreadsImp(QString name) KYR_REQUIRES(_m);
  KYR_HIDDEN void destroyAllThreads() KYR_REQUIRES(_m);

  std::map<QString, std::vector<PoolThread*>> _threads KYR_GUARDED_BY(_m);

  KYR_HIDDEN static PoolForThreads* _pool;
  KYR_HIDDEN static Mutex& _m;  // never destroyed: a thread may hold it while the process ends
};

}  // namespace Kyr
