#include "support/Support.h"

#include <kyr/core/KyrProgError.h>
#include <kyr/sync/KyrSharedMemory.h>
#include <kyr/sync/KyrThread.h>

#include <gtest/gtest.h>

#include <QPointer>

#include <cstdlib>
#include <functional>
#include <list>
#include <memory>

namespace Kyr {

struct TestProbe {
  template <class Refusing>
  static void copy(const Refusing& original) {
    const Refusing copied(original);
  }
  template <class Refusing>
  static void assign(Refusing&& target) {
    const auto& source = target;
    target = source;
  }
  static unsigned sleepers(MutexReadWrite& lock) {
    const AutoMutex guard(&lock._internal);
    return lock._sleepers;
  }
  static bool listIsFree() { return SharedMemory::_m_shm_obj.tryLock(); }
  static QMutex& internal(MutexReadWrite& lock) { return lock._internal; }
  struct CopiedThread : Thread {
    CopiedThread() : Thread(NoLockGUI, "f", "g", 1) {}
    CopiedThread(const CopiedThread& other) : Thread(other) {}
    void run() override {}
  };
};

}  // namespace Kyr

using namespace Kyr;
using KyrTest::Gate;
using KyrTest::report;

namespace {

/// Runs a function in a thread of the library; its end waits for the thread.
class Runner : public Thread {
 public:
  explicit Runner(std::function<void()> work, QObject* parent = nullptr)
      : Thread(parent, static_cast<LockGUI_t>(2), "f", "g", 1), _work(std::move(work)) {
    start();
  }
  ~Runner() override { wait(); }
  void run() override { _work(); }

 private:
  std::function<void()> _work;
};

void inThreads(int count, const std::function<void()>& work) {
  std::list<Runner> all;
  while (count-- > 0) {
    all.emplace_back(work);
  }
}

bool freeForOthers(QMutex& mutex) {
  bool taken = false;
  inThreads(1, [&] {
    taken = mutex.tryLock();
    if (taken) {
      mutex.unlock();
    }
  });
  return taken;
}

/// Loses counts wherever two threads do it at once.
void increaseSlowly(int& count) {
  const int before = count;
  QThread::yieldCurrentThread();
  count = before + 1;
}

void awaitSleepers(MutexReadWrite& lock, unsigned count) {
  const QDeadlineTimer deadline(30000);
  while (TestProbe::sleepers(lock) != count && !deadline.hasExpired()) {
    QThread::yieldCurrentThread();
  }
  EXPECT_EQ(TestProbe::sleepers(lock), count) << "threads asleep";
}

void destroyHeld(Mutex* mutex, void (*hold)(int, const std::function<void()>&)) {
  hold(1, [mutex] { static_cast<QMutex*>(mutex)->lock(); });
  delete mutex;
}

void unlockTooOften(void (MutexReadWrite::*unlock)(const char*, const char*, unsigned)) {
  static MutexReadWrite lock("owner", "file", 1);
  setFatalErrorHook([] {
    std::fputs(TestProbe::internal(lock).tryLock() ? "left free;" : "left locked;", stderr);
  });
  (lock.*unlock)("f", "g", 5);
}

TEST(SharedMemory, MayBeInUseWhenTheProcessEnds) {
  const auto ended = KyrTest::inChild([] { std::exit(TestProbe::listIsFree() ? 9 : 1); });
  EXPECT_EQ(std::pair(ended.code, ended.errors), std::pair(9, QByteArray()));
}

}  // namespace

TEST(Sync, EndsTheProcessOnMisuse) {
  struct {
    void (*misuse)();
    std::string errors;
  } const rows[] = {
      {[] { TestProbe::copy(Mutex("f", "g", 1)); },
       report("copy constructor for mutex is not allowed", "", "", 0)},
      {[] { TestProbe::assign(Mutex("f", "g", 1)); },
       report("assignment for mutex is not allowed", "f", "g", 1)},
      {[] { TestProbe::copy(Condition("f", "g", 1, nullptr)); },
       report("copy constructor for condition is not allowed", "", "", 0)},
      {[] { TestProbe::assign(Condition("f", "g", 2, nullptr)); },
       report("assignment for condition is not allowed", "f", "g", 2)},
      {[] { TestProbe::copy(MutexReadWrite("f", "g", 1)); },
       report("copy constructor for mutexReadWrite is not allowed", "", "", 0)},
      {[] { TestProbe::assign(MutexReadWrite("f", "g", 3)); },
       report("assignment for mutexReadWrite is not allowed", "f", "g", 3)},
      {[] { TestProbe::copy(TestProbe::CopiedThread()); },
       report("Copy-Constructor is not allowed for threads!", "Kyr::Thread::Thread", "os_thread",
              78)},
      {[] { TestProbe::assign<Thread>(TestProbe::CopiedThread()); },
       report("assignment operator is not allowed for threads!",
              "Kyr::Thread::operator =", "os_thread", 86)},
      {[] { destroyHeld(new Mutex("owner", "file", 12), inThreads); },
       report("mutex is still locked", "owner", "file", 12)},
      {[] { destroyHeld(new Mutex(QMutex::Recursive), inThreads); },
       report("mutex is still locked", "global", "unknown file", 0)},
      {[] { destroyHeld(new Mutex, [](int, auto& lock) { lock(); }); },
       report("mutex is still locked", "global", "unknown file", 0)},
      {[] { unlockTooOften(&MutexReadWrite::unlockRead); },
       "left locked;" + report("unlock reader is not possible, because there are no more readers!",
                               "f", "g", 5)},
      {[] { unlockTooOften(&MutexReadWrite::unlockWrite); },
       "left locked;" +
           report("unlock write is not possible, because there are no more writers!", "f", "g", 5)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(KyrTest::reportProblem(KyrTest::inChild(row.misuse), row.errors), "") << row.errors;
  }
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

TEST(Mutex, CountsRecursionAndAutoMutexUnlocksOnce) {
  Mutex mutex(QMutex::Recursive);
  [&]() KYR_NO_THREAD_SAFETY_ANALYSIS {
    mutex.lock();
    mutex.lock();
    AutoMutex guard(&mutex);
    guard.unlock();
    guard.unlock();
  }();
  static_cast<QMutex&>(mutex).unlock();
  EXPECT_FALSE(freeForOthers(mutex)) << "two of three are unlocked";
  static_cast<QMutex&>(mutex).unlock();
  EXPECT_TRUE(freeForOthers(mutex));
}

TEST(Condition, SignalWakesOneThreadAndBroadcastAll) {
  Mutex mutex;
  Condition changed("f", "g", 1, &mutex);
  int waiting = 0;
  int woken = 0;
  /// Many turns for threads that ought to sleep to show that they do not.
  const auto awaitCounts = [&](int all, int awake) {
    for (int turns = 0; turns < 100; ++turns) {
      const AutoMutex guard(&mutex);
      turns = waiting == all && woken >= awake ? turns : 0;
      QThread::yieldCurrentThread();
    }
    const AutoMutex guard(&mutex);
    EXPECT_EQ(woken, awake);
  };
  std::list<Runner> sleepers;
  for (int i = 0; i < 3; ++i) {
    sleepers.emplace_back([&] {
      const AutoMutex guard(&mutex);
      ++waiting;
      changed.wait();
      ++woken;
    });
  }
  awaitCounts(3, 0);
  changed.signal();
  awaitCounts(3, 1);
  changed.broadcast();
  awaitCounts(3, 3);
}

TEST(MutexReadWrite, LetsAllReadersInAfterTheWriter) {
  MutexReadWrite lock("f", "g", 1);
  Gate in[2];
  lock.lockWrite();
  std::list<Runner> readers;
  for (int i = 0; i < 2; ++i) {
    readers.emplace_back([&lock, &in, i] {
      lock.lockRead();
      in[i].open();
      in[1 - i].await("both readers hold the lock");
      lock.unlockRead("f", "g", 1);
    });
  }
  awaitSleepers(lock, 2);
  lock.unlockWrite("f", "g", 1);
}

TEST(MutexReadWrite, LetsReadersPassAWaitingWriter) {
  MutexReadWrite lock("f", "g", 1);
  Gate written;
  const auto lockRead = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.lockRead(); };
  const auto unlockRead = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.unlockRead("f", "g", 1); };
  lockRead();
  const Runner writer([&] {
    lock.lockWrite();
    written.open();
    lock.unlockWrite("f", "g", 1);
  });
  awaitSleepers(lock, 1);
  lockRead();
  unlockRead();
  EXPECT_EQ(TestProbe::sleepers(lock), 1U) << "one reader is left";
  unlockRead();
  written.await("the last reader wakes the writer");
}

TEST(MutexReadWrite, KeepsWritersApart) {
  MutexReadWrite lock("f", "g", 1);
  int count = 0;
  inThreads(2, [&] {
    for (int i = 0; i < 2000; ++i) {
      lock.lockWrite();
      increaseSlowly(count);
      lock.unlockWrite("f", "g", 1);
    }
  });
  EXPECT_EQ(count, 4000);
}

TEST(Thread, KeepsItsFlagsAndGoesWithItsParent) {
  Gate mayEnd;
  auto parent = std::make_unique<QObject>();
  QPointer<Runner> thread = new Runner([&] { mayEnd.await("flags set"); }, parent.get());
  EXPECT_TRUE(thread->lockGUI()) << "any value but zero locks";
  EXPECT_FALSE(thread->isUndoable() || thread->requiresUndo());
  thread->setUndoable(true);
  EXPECT_TRUE(thread->isUndoable() && !thread->requiresUndo());
  thread->setRequiresUndo(true);
  EXPECT_TRUE(thread->requiresUndo() && !thread->wait(1));
  mayEnd.open();
  parent.reset();
  EXPECT_TRUE(thread.isNull());
}
