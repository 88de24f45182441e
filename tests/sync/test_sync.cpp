#include "support/Support.h"

#include <kyr/sync/KyrSharedMemory.h>
#include <kyr/sync/KyrThread.h>

#include <QPointer>

using namespace Kyr;
using namespace KyrTest;

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

/// Waits until so many threads have come to the lock, and many turns more, in which they fall
/// asleep there.
void awaitSleepers(const std::atomic<int>& came, int count) {
  for (int turns = 0; turns < 100; turns += came >= count ? 1 : 0) {
    QThread::yieldCurrentThread();
  }
}

void destroyHeld(Mutex* mutex, void (*hold)(int, const std::function<void()>&)) {
  hold(1, [mutex] { static_cast<QMutex*>(mutex)->lock(); });
  delete mutex;
}

void unlockTooOften(void (MutexReadWrite::*unlock)(const char*, const char*, unsigned)) {
  static MutexReadWrite lock("owner", "file", 1);
  setFatalErrorHook([] {
    const bool locked = KyrTest::hangs([]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.lockRead(); });
    std::fputs(locked ? "left locked;" : "left free;", stderr);
  });
  (lock.*unlock)("f", "g", 5);
}

/// Somebody else gives back what a guard holds.
template <class Guard>
void releaseHeld(void (MutexReadWrite::*unlock)(const char*, const char*, unsigned)) {
  static MutexReadWrite lock("owner", "file", 7);
  Guard guard(&lock);
  (lock.*unlock)("f", "g", 5);
}

}  // namespace

TEST(Sync, EndsTheProcessOnMisuse) {
  const std::tuple<void (*)(), std::string> rows[] = {
      {[] { destroyHeld(new Mutex("owner", "file", 12), inThreads); },
       report("mutex is still locked", "owner", "file", 12)},
      {[] { destroyHeld(new Mutex(Mutex::Recursive), inThreads); },
       report("mutex is still locked", "global", "unknown file", 0)},
      {[] { destroyHeld(new Mutex, [](int, auto& lock) { lock(); }); },
       report("mutex is still locked", "global", "unknown file", 0)},
      {[] { unlockTooOften(&MutexReadWrite::unlockRead); },
       "left locked;" + report("unlock reader is not possible, because there are no more readers!",
                               "f", "g", 5)},
      {[] { unlockTooOften(&MutexReadWrite::unlockWrite); },
       "left locked;" +
           report("unlock write is not possible, because there are no more writers!", "f", "g", 5)},
      {[] { releaseHeld<AutoMutexRead>(&MutexReadWrite::unlockRead); },
       report("unlock reader is not possible, because there are no more readers!", "owner", "file",
              7)},
      {[] { releaseHeld<AutoMutexWrite>(&MutexReadWrite::unlockWrite); },
       report("unlock write is not possible, because there are no more writers!", "owner", "file",
              7)},
  };
  for (const auto& [misuse, errors] : rows) {
    EXPECT_EQ(KyrTest::reportProblem(KyrTest::inChild(misuse), errors), "") << errors;
  }
}

TEST(Mutex, CountsRecursionAndAutoMutexUnlocksOnce) {
  Mutex mutex(Mutex::Recursive);
  [&]() KYR_NO_THREAD_SAFETY_ANALYSIS {
    mutex.lock();
    mutex.lock();
    AutoMutex guard(&mutex);
    guard.unlock();
    guard.unlock();
  }();
  const auto unlock = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { mutex.unlock("f", "g", 1); };
  unlock();
  EXPECT_FALSE(freeForOthers(mutex)) << "two of three are unlocked";
  unlock();
  EXPECT_TRUE(freeForOthers(mutex));
}

TEST(Condition, SignalWakesOneThreadAndBroadcastAll) {
  Mutex mutex;
  Condition changed("f", "g", 1, &mutex);
  int waiting = 0;
  int woken = 0;
  /// Waits for the counts, and many turns more, in which a thread that ought to sleep may show
  /// that it does not.
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
  std::atomic<int> came{0};
  AutoMutexWrite writer(&lock);
  std::list<Runner> readers;
  for (int i = 0; i < 2; ++i) {
    readers.emplace_back([&, i] {
      ++came;
      const AutoMutexRead reader(&lock);
      in[i].open();
      in[1 - i].await("both readers hold the lock");
    });
  }
  awaitSleepers(came, 2);
  writer.unlock();
}

TEST(MutexReadWrite, LetsReadersPassAWaitingWriter) {
  MutexReadWrite lock("f", "g", 1);
  Gate written;
  std::atomic<int> came{0};
  const auto lockRead = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.lockRead(); };
  const auto unlockRead = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { lock.unlockRead("f", "g", 1); };
  lockRead();
  const Runner writer([&] {
    ++came;
    lock.lockWrite();
    ++came;
    written.open();
    lock.unlockWrite("f", "g", 1);
  });
  awaitSleepers(came, 1);
  lockRead();
  unlockRead();
  awaitSleepers(came, 1);
  EXPECT_EQ(came, 1) << "one reader is left";
  unlockRead();
  written.await("the last reader wakes the writer");
}

TEST(MutexReadWrite, KeepsWritersApart) {
  MutexReadWrite lock("f", "g", 1);
  int count = 0;
  inThreads(2, [&] {
    for (int i = 0; i < 2000; ++i) {
      AutoMutexWrite writer(&lock);
      increaseSlowly(count);
      writer.unlock();  // and not a second time at the end
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
