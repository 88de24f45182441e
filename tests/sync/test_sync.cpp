#include "support/Support.h"

#include <kyr/core/KyrProgError.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/sync/KyrThread.h>

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QPointer>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace Kyr {

struct TestProbe {
  template <class Refusing>
  static void copy(const Refusing& original) {
    const Refusing copied(original);
  }
  template <class Refusing>
  static void assign(Refusing& target) {
    const Refusing& source = target;
    target = source;
  }
  static unsigned sleepers(MutexReadWrite& lock) {
    const AutoMutex guard(&lock._internal);
    return lock._sleepers;
  }
  static bool internallyLocked(MutexReadWrite& lock) KYR_NO_THREAD_SAFETY_ANALYSIS {
    return !lock._internal.tryLock();
  }
  /// A thread of which the base, and only that, can be copied.
  class CopiedThread : public Thread {
   public:
    CopiedThread() : Thread(NoLockGUI, "f", "g", 1) {}
    CopiedThread(const CopiedThread& other) : Thread(other) {}
    CopiedThread& operator=(const CopiedThread& other) {
      static_cast<void>(Thread::operator=(other));
      return *this;
    }
    void run() override {}
  };
};

}  // namespace Kyr

using namespace Kyr;
using KyrTest::Gate;
using KyrTest::inChild;
using KyrTest::report;
using KyrTest::reportProblem;

namespace {

/// Runs a function in a thread of the library; its end waits for the thread.
class Runner : public Thread {
 public:
  explicit Runner(std::function<void()> work)
      : Thread(NoLockGUI, "Runner", "test_sync", 1), _work(std::move(work)) {
    start();
  }
  Runner(const Runner&) = delete;
  ~Runner() override { wait(); }

 protected:
  void run() override { _work(); }

 private:
  std::function<void()> _work;
};

void inThreads(int count, const std::function<void()>& work) {
  std::vector<std::unique_ptr<Runner>> all;
  for (int i = 0; i < count; ++i) {
    all.push_back(std::make_unique<Runner>(work));
  }
}

bool freeForOthers(Mutex& mutex) {
  bool taken = false;
  inThreads(1, [&]() KYR_NO_THREAD_SAFETY_ANALYSIS {
    taken = mutex.tryLock();
    if (taken) {
      mutex.unlock("f", "g", 1);
    }
  });
  return taken;
}

void awaitSleepers(MutexReadWrite& lock, unsigned count) {
  const QDeadlineTimer deadline(30000);
  while (TestProbe::sleepers(lock) != count && !deadline.hasExpired()) {
    QThread::yieldCurrentThread();
  }
  EXPECT_EQ(TestProbe::sleepers(lock), count) << "threads asleep";
}

/// Gives a thread that ought to sleep many chances to show that it does not.
void letOthersIn(Mutex& mutex) KYR_NO_THREAD_SAFETY_ANALYSIS {
  for (int i = 0; i < 100; ++i) {
    mutex.unlock("f", "g", 1);
    QThread::yieldCurrentThread();
    mutex.lock();
  }
}

/// Loses counts wherever two threads do it at once.
void increaseSlowly(int& count) {
  const int before = count;
  QThread::yieldCurrentThread();
  count = before + 1;
}

// The mutexes below are locked and never unlocked: their process is about to end.

void destroyHeldByOther() KYR_NO_THREAD_SAFETY_ANALYSIS {
  auto mutex = std::make_unique<Mutex>("owner", "file", 12);
  inThreads(1, [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { mutex->lock(); });
}

void destroyHeldByItself() KYR_NO_THREAD_SAFETY_ANALYSIS {
  Mutex mutex;
  mutex.lock();
}

void destroyRecursiveHeldByOther() KYR_NO_THREAD_SAFETY_ANALYSIS {
  Mutex mutex(QMutex::Recursive);
  inThreads(1, [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { mutex.lock(); });
}

MutexReadWrite hopeless("owner", "file", 1);

void tellWhetherLocked() {
  std::fputs(TestProbe::internallyLocked(hopeless) ? "left locked;" : "left free;", stderr);
}

}  // namespace

TEST(Sync, RefusesCopies) {
  struct {
    void (*misuse)();
    std::string reported;
  } const rows[] = {
      {[] { TestProbe::copy(Mutex("f", "g", 1)); },
       report("copy constructor for mutex is not allowed", "", "", 0)},
      {[] {
         Mutex mutex("f", "g", 1);
         TestProbe::assign(mutex);
       },
       report("assignment for mutex is not allowed", "f", "g", 1)},
      {[] { TestProbe::copy(Condition("f", "g", 1, nullptr)); },
       report("copy constructor for condition is not allowed", "", "", 0)},
      {[] {
         Condition condition("f", "g", 2, nullptr);
         TestProbe::assign(condition);
       },
       report("assignment for condition is not allowed", "f", "g", 2)},
      {[] { TestProbe::copy(MutexReadWrite("f", "g", 1)); },
       report("copy constructor for mutexReadWrite is not allowed", "", "", 0)},
      {[] {
         MutexReadWrite lock("f", "g", 3);
         TestProbe::assign(lock);
       },
       report("assignment for mutexReadWrite is not allowed", "f", "g", 3)},
      {[] { TestProbe::copy(TestProbe::CopiedThread()); },
       report("Copy-Constructor is not allowed for threads!", "Kyr::Thread::Thread", "os_thread",
              78)},
      {[] {
         TestProbe::CopiedThread thread;
         TestProbe::assign(thread);
       },
       report("assignment operator is not allowed for threads!",
              "Kyr::Thread::operator =", "os_thread", 86)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(reportProblem(inChild(row.misuse), row.reported), "") << row.reported;
  }
}

TEST(Mutex, MustBeFreeWhenDestroyed) {
  const std::string message = "mutex is still locked";
  const std::string global = report(message, "global", "unknown file", 0);
  EXPECT_EQ(reportProblem(inChild(destroyHeldByOther), report(message, "owner", "file", 12)), "");
  EXPECT_EQ(reportProblem(inChild(destroyHeldByItself), global), "");
  EXPECT_EQ(reportProblem(inChild(destroyRecursiveHeldByOther), global), "");
}

TEST(Mutex, CountsRecursion) {
  Mutex mutex(QMutex::Recursive);
  const auto lock = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { mutex.lock(); };
  const auto unlock = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { mutex.unlock("f", "g", 1); };
  lock();
  lock();
  unlock();
  EXPECT_FALSE(freeForOthers(mutex));
  unlock();
  EXPECT_TRUE(freeForOthers(mutex));
}

TEST(Mutex, LetsOneThreadInAtATime) {
  Mutex mutex;
  int count = 0;
  inThreads(4, [&] {
    for (int i = 0; i < 2000; ++i) {
      const AutoMutex guard(&mutex);
      increaseSlowly(count);
    }
  });
  EXPECT_EQ(count, 8000);
}

TEST(AutoMutex, UnlocksExactlyOnce) {
  Mutex mutex;
  const auto relock = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS {
    AutoMutex guard(&mutex);
    EXPECT_FALSE(freeForOthers(mutex));
    guard.unlock();
    mutex.lock();
    guard.unlock();
  };
  relock();
  EXPECT_FALSE(freeForOthers(mutex)) << "the second unlock or the end released it again";
  static_cast<QMutex&>(mutex).unlock();
  EXPECT_TRUE(freeForOthers(mutex));
}

TEST(Condition, SignalWakesOneThread) {
  Mutex mutex;
  Condition changed("f", "g", 1, &mutex);
  Condition seen("f", "g", 2, &mutex);
  int waiting = 0;
  int woken = 0;
  bool stop = false;
  const auto sleeper = [&] {
    const AutoMutex guard(&mutex);
    while (!stop) {
      ++waiting;
      seen.signal();
      changed.wait();
      --waiting;
      ++woken;
    }
  };
  {
    const Runner first(sleeper);
    const Runner second(sleeper);
    const Runner third(sleeper);
    const AutoMutex guard(&mutex);
    for (int round = 0; round < 6; ++round) {
      while (waiting != 3 || woken < round) {
        seen.wait();
      }
      letOthersIn(mutex);
      EXPECT_EQ(woken, round) << "threads woken by as many signals";
      changed.signal();
    }
    while (waiting != 3 || woken < 6) {
      seen.wait();
    }
    stop = true;
    changed.broadcast();
  }
  EXPECT_EQ(woken, 9) << "each of the three ends only if the broadcast reaches it";
}

TEST(MutexReadWrite, LetsAllReadersInAfterTheWriter) {
  MutexReadWrite lock("f", "g", 1);
  Gate firstIn;
  Gate secondIn;
  lock.lockWrite();
  const auto reader = [&lock](Gate& mine, Gate& other) {
    lock.lockRead();
    mine.open();
    other.await("both readers hold the lock");
    lock.unlockRead("f", "g", 1);
  };
  const Runner first([&] { reader(firstIn, secondIn); });
  const Runner second([&] { reader(secondIn, firstIn); });
  awaitSleepers(lock, 2);
  lock.unlockWrite("f", "g", 1);
}

TEST(MutexReadWrite, LetsReadersPassAWaitingWriter) {
  MutexReadWrite lock("f", "g", 1);
  Gate passed;
  Gate written;
  const auto lockRead = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.lockRead(); };
  const auto unlockRead = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.unlockRead("f", "g", 1); };
  lockRead();
  lockRead();
  const Runner writer([&] {
    lock.lockWrite();
    written.open();
    lock.unlockWrite("f", "g", 1);
  });
  awaitSleepers(lock, 1);
  Runner late([&] {
    lockRead();
    passed.open();
    unlockRead();
  });
  if (passed.await("a reader is admitted while a writer waits")) {
    late.wait();
  }
  unlockRead();
  EXPECT_EQ(TestProbe::sleepers(lock), 1U) << "one reader is left";
  unlockRead();
  written.await("the last reader wakes the writer");
}

TEST(MutexReadWrite, KeepsWritersApart) {
  MutexReadWrite lock("f", "g", 1);
  int ones = 0;
  int twos = 0;
  inThreads(2, [&] {
    for (int i = 0; i < 2000; ++i) {
      lock.lockWrite();
      increaseSlowly(ones);
      twos += 2;
      lock.unlockWrite("f", "g", 1);
      lock.lockRead();
      EXPECT_EQ(twos, 2 * ones);
      lock.unlockRead("f", "g", 1);
    }
  });
  EXPECT_EQ(ones, 4000);
}

TEST(MutexReadWrite, EndsTheProcessAtOneUnlockTooMany) {
  const std::string reader = "unlock reader is not possible, because there are no more readers!";
  const std::string writer = "unlock write is not possible, because there are no more writers!";
  struct {
    void (*misuse)();
    std::string message;
    const char* catches;
  } const rows[] = {
      {[]() KYR_NO_THREAD_SAFETY_ANALYSIS { hopeless.unlockRead("f", "g", 5); }, reader,
       "a count below zero"},
      {[]() KYR_NO_THREAD_SAFETY_ANALYSIS { hopeless.unlockWrite("f", "g", 5); }, writer,
       "the reader's message"},
      {[]() KYR_NO_THREAD_SAFETY_ANALYSIS {
         hopeless.lockWrite();
         hopeless.unlockRead("f", "g", 5);
       },
       reader, "a writer counted as a reader"},
      {[]() KYR_NO_THREAD_SAFETY_ANALYSIS {
         hopeless.lockRead();
         hopeless.unlockWrite("f", "g", 5);
       },
       writer, "a reader counted as a writer"},
  };
  for (const auto& row : rows) {
    const auto ended = inChild([&row] {
      setFatalErrorHook(tellWhetherLocked);
      row.misuse();
    });
    EXPECT_EQ(reportProblem(ended, "left locked;" + report(row.message, "f", "g", 5)), "")
        << row.catches;
  }
}

TEST(Thread, KeepsItsFlags) {
  class Flagged : public Thread {
   public:
    Flagged(QObject* parent, LockGUI_t lock) : Thread(parent, lock, "f", "g", 1) {}
    void run() override {}
  };
  EXPECT_FALSE(Flagged(nullptr, Thread::NoLockGUI).lockGUI());
  auto parent = std::make_unique<QObject>();
  QPointer<Flagged> thread = new Flagged(parent.get(), static_cast<Thread::LockGUI_t>(2));
  EXPECT_TRUE(thread->lockGUI()) << "any value but zero locks";
  EXPECT_FALSE(thread->isUndoable() || thread->requiresUndo());
  thread->setUndoable(true);
  EXPECT_TRUE(thread->isUndoable() && !thread->requiresUndo());
  thread->setRequiresUndo(true);
  EXPECT_TRUE(thread->requiresUndo());
  parent.reset();
  EXPECT_TRUE(thread.isNull()) << "the parent does not own the thread";
}

TEST(Thread, WaitsUntilTheEnd) {
  Gate mayEnd;
  Runner runner([&] { mayEnd.await("the test has seen the thread run"); });
  EXPECT_FALSE(runner.wait(1));
  mayEnd.open();
  EXPECT_TRUE(runner.wait() && runner.isFinished());
}
