#include "support/Support.h"

#include <kyr/sync/KyrLockDoctor.h>
#include <kyr/sync/KyrThread.h>

#include <QThread>

#include <optional>

using namespace Kyr;
using namespace KyrTest;

namespace {

/// Watches the locks of a test, whatever the environment says, and keeps what it finds.
class Watch {
 public:
  explicit Watch(unsigned longestWait = 0) {
    LockDoctor::stop();
    LockDoctorOptions options;
    options.longestWait = longestWait;
    options.report = [this](const LockFinding& finding) {
      const std::lock_guard<std::mutex> lock(_mutex);
      _findings.push_back(finding);
    };
    LockDoctor::start(options);
  }
  ~Watch() { LockDoctor::stop(); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  std::vector<LockFinding> findings() {
    const std::lock_guard<std::mutex> lock(_mutex);
    return _findings;
  }
  /// A letter for each finding: C for a circle, S for one site, W for a long wait.
  std::string kinds() {
    std::string letters;
    for (const LockFinding& finding : findings()) {
      letters += "CSW"[finding.kind];
    }
    return letters;
  }

 private:
  std::mutex _mutex;
  std::vector<LockFinding> _findings;
};

/// Runs a function in a thread of the library.
class Runner : public Thread {
 public:
  explicit Runner(const std::function<void()>& work)
      : Thread(NoLockGUI, "Runner", "runner", 7), _work(work) {
    start();
  }
  ~Runner() override { wait(); }
  void run() override { _work(); }

 private:
  const std::function<void()>& _work;
};

void inThread(const std::function<void()>& work) {
  const Runner runner(work);
}

/// The locks of a row: three mutexes, two of one site, two without, one that may be taken again,
/// and two for readers and writers.
struct Room {
  Mutex a{"a", "locks", 1}, b{"b", "locks", 2}, c{"c", "locks", 3};
  Mutex twin{"a", "locks", 1}, nameless, anonymous, again{Mutex::Recursive};
  MutexReadWrite r{"r", "locks", 4}, s{"s", "locks", 5};
};

using Locking = std::function<void(Room&)>;

template <Mutex Room::*First, Mutex Room::*Second>
void both(Room& locks) KYR_NO_THREAD_SAFETY_ANALYSIS {
  const AutoMutex first(&(locks.*First));
  const AutoMutex second(&(locks.*Second));
}

template <Mutex Room::*First, Mutex Room::*Second>
void tried(Room& locks) KYR_NO_THREAD_SAFETY_ANALYSIS {
  const AutoMutex first(&(locks.*First));
  if ((locks.*Second).tryLock(0)) {
    const AutoMutex second(&(locks.*Second), AutoMutex::Taken);
  }
}

template <Mutex Room::*First, class Guard>
void mutexThen(Room& locks) KYR_NO_THREAD_SAFETY_ANALYSIS {
  const AutoMutex first(&(locks.*First));
  const Guard second(&locks.r);
}

template <class Guard, Mutex Room::*Second>
void thenMutex(Room& locks) KYR_NO_THREAD_SAFETY_ANALYSIS {
  const Guard first(&locks.r);
  const AutoMutex second(&(locks.*Second));
}

void twice(Room& locks) KYR_NO_THREAD_SAFETY_ANALYSIS {
  const AutoMutex first(&locks.again);
  const AutoMutex second(&locks.again);
}

/// Wakes up at once, as somebody signals while this thread has given the mutex back.
void sleepInside(Room& locks) {
  Condition changed("changed", "locks", 6, &locks.a);
  const AutoMutex first(&locks.a);
  const AutoMutex second(&locks.b);
  std::thread other([&] {
    const AutoMutex lock(&locks.a);
    changed.signal();
  });
  changed.wait();
  other.join();
}

/// Takes one after the other and lets the outer one go first.
void handOver(Room& locks) {
  for (int i = 0; i < 100; ++i) {
    AutoMutex a(&locks.a);
    AutoMutex b(&locks.b);
    a.unlock();
    const AutoMutex c(&locks.c);
    b.unlock();
  }
}

/// What another thread gives back is no longer held by the one that took it.
void giveAway(Room& locks) {
  [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { locks.b.lock(); }();
  inThread([&]() KYR_NO_THREAD_SAFETY_ANALYSIS { locks.b.unlock("f", "g", 1); });
  const AutoMutex lock(&locks.a);
}

/// Gives a mutex back through its base class, which the doctor does not see.
void goPastTheDoctor(Room& locks) {
  [&]() KYR_NO_THREAD_SAFETY_ANALYSIS { locks.a.lock(); }();
  static_cast<QMutex&>(locks.a).unlock();
  const AutoMutex lock(&locks.a);
}

std::string numbersTo(const std::string& text, const std::vector<std::string>& names) {
  const QRegularExpression pattern("thread 0x[0-9a-f]+( \"[^\"]*\")?");
  QString result = QString::fromStdString(text);
  for (const std::string& name : names) {
    const QRegularExpressionMatch found = pattern.match(result);
    result.replace(found.capturedStart(), found.capturedLength(), QString::fromStdString(name));
  }
  return result.toStdString();
}

std::string withoutTimes(const std::string& text) {
  return QString::fromStdString(text)
      .replace(QRegularExpression("[0-9]+ ms"), "N ms")
      .toStdString();
}

std::string describeAll() {
  std::string lines;
  LockDoctor::describeHolders(
      [](void* all, const char* line, std::size_t length) {
        static_cast<std::string*>(all)->append(line, length);
      },
      &lines);
  return lines;
}

bool eventually(const std::function<bool()>& holds) {
  for (int i = 0; i < 3000; ++i) {
    if (holds()) {
      return true;
    }
    QThread::msleep(10);
  }
  return false;
}

}  // namespace

TEST(LockDoctor, FindsWhatMayLock) {
  using L = Room;
  const auto ab = both<&L::a, &L::b>, ba = both<&L::b, &L::a>;
  const auto aReads = mutexThen<&L::a, AutoMutexRead>, aWrites = mutexThen<&L::a, AutoMutexWrite>;
  const auto readsA = thenMutex<AutoMutexRead, &L::a>, writesA = thenMutex<AutoMutexWrite, &L::a>;
  const struct {
    std::vector<Locking> threads;  // one after the other
    std::string kinds;
    const char* catches;
  } rows[] = {
      {{ab, ab}, "", "one order"},
      {{ab, ba}, "C", "two orders"},
      {{ab, ba, ab, ba}, "C", "reported once"},
      {{ab, both<&L::b, &L::c>, both<&L::c, &L::a>}, "C", "a circle of three"},
      {{ab, both<&L::b, &L::c>, both<&L::a, &L::c>}, "", "a shorter way, no circle"},
      {{ab, tried<&L::b, &L::a>}, "", "who tries does not wait"},
      {{tried<&L::a, &L::b>, ba}, "", "whether it is tried first or last"},
      {{[](Room& all) {
          if (all.a.tryLock(0)) {
            const AutoMutex first(&all.a, AutoMutex::Taken);
            const AutoMutex second(&all.b);
          }
        },
        ba},
       "C",
       "what was tried is held"},
      {{both<&L::a, &L::twin>, both<&L::a, &L::twin>}, "S", "two of a site"},
      {{ab, both<&L::b, &L::twin>}, "C", "a site is one"},
      {{both<&L::a, &L::nameless>, both<&L::nameless, &L::a>}, "", "no site, no order"},
      {{both<&L::nameless, &L::anonymous>}, "", "nor one between them"},
      {{twice, twice}, "", "recursion"},
      {{readsA, aReads}, "", "readers do not wait for each other"},
      {{aReads, readsA}, "", "whichever comes first"},
      {{readsA, aWrites}, "C", "a writer waits for a reader"},
      {{writesA, aReads}, "C", "a reader waits for a writer"},
      {{writesA, aWrites}, "C", "a writer waits for a writer"},
      {{readsA, aReads, aWrites}, "C", "readers hide no writer"},
      {{sleepInside}, "C", "a condition takes its mutex again"},
      {{handOver}, "", "gaps are no locks, and are filled"},
      {{handOver, both<&L::c, &L::a>}, "C", "what is let go first was held"},
      {{ab, giveAway}, "", "given back by another thread"},
      {{goPastTheDoctor, goPastTheDoctor}, "", "given back unseen"},
  };
  for (const auto& row : rows) {
    Watch watch;
    Room locks;
    for (const Locking& thread : row.threads) {
      inThread([&] { thread(locks); });
    }
    EXPECT_EQ(watch.kinds(), row.kinds) << row.catches;
  }
}

TEST(LockDoctor, LeavesTheLocksOfReportsAlone) {
  Room locks;
  std::vector<std::size_t> known;
  LockDoctor::stop();
  LockDoctorOptions options;
  options.report = [&](const LockFinding&) {
    known.push_back(LockDoctor::findings().size());
    const AutoMutex own(&locks.c);  // before a elsewhere, and now behind it
  };
  LockDoctor::start(options);
  const Locking orders[] = {both<&Room::c, &Room::a>, both<&Room::a, &Room::b>,
                            both<&Room::b, &Room::a>};
  for (const Locking& order : orders) {
    inThread([&] { order(locks); });
  }
  LockDoctor::stop();
  EXPECT_EQ(known, std::vector<std::size_t>{1});
}

/// A lock that ends while somebody holds it says nothing about the next one in its place.
TEST(LockDoctor, ForgetsLocksThatEnd) {
  Watch watch;
  std::optional<MutexReadWrite> lock;
  const auto hold = [&]() KYR_NO_THREAD_SAFETY_ANALYSIS {
    lock.emplace("r", "locks", 4);
    lock->lockRead();
  };
  hold();
  EXPECT_EQ(LockDoctor::holders().size(), 1U);
  lock.reset();
  EXPECT_EQ(LockDoctor::holders().size(), 0U) << "of its own thread";
  hold();
  inThread([&] { lock.reset(); });
  EXPECT_EQ(LockDoctor::holders().size(), 0U) << "of another one";
}

TEST(LockDoctor, TellsBothChains) {
  Watch watch;
  Room locks;
  inThread([&] {
    const AutoMutexRead outer(&locks.s);
    both<&Room::a, &Room::b>(locks);
  });
  inThread([&] { mutexThen<&Room::b, AutoMutexWrite>(locks); });
  inThread([&] { thenMutex<AutoMutexRead, &Room::a>(locks); });
  ASSERT_EQ(watch.kinds(), "C");
  EXPECT_EQ(
      numbersTo(watch.findings()[0].text, {"third", "first", "second"}),
      "lock doctor: locks are taken in a circle; threads that meet in it wait for each other "
      "for ever\n"
      "  third of Runner (runner:7) holds r (locks:4) to read and takes a (locks:1)\n"
      "  first of Runner (runner:7) held s (locks:5) to read, a (locks:1) and took b (locks:2)\n"
      "  second of Runner (runner:7) held b (locks:2) and took r (locks:4) to write");
  EXPECT_EQ(LockDoctor::findings().at(0).text, watch.findings()[0].text);
}

TEST(LockDoctor, ReportsALongWaitOnceWithItsHolder) {
  Watch watch(20);
  Room locks;
  using Inside = std::function<void()>;
  const std::tuple<void (*)(Room&, const Inside&), void (*)(Room&), std::string> rows[] = {
      {[](Room& all, const Inside& inside) {
         const AutoMutex lock(&all.a);
         inside();
       },
       [](Room& all) { const AutoMutex lock(&all.a); },
       "for a (locks:1)\n  holder: H holds a (locks:1)"},
      {[](Room& all, const Inside& inside) {
         const AutoMutexWrite lock(&all.r);
         inside();
       },
       [](Room& all) { const AutoMutexRead lock(&all.r); },
       "for r (locks:4) to read\n  holder: H holds r (locks:4) to write"},
      {[](Room& all, const Inside& inside) {
         const AutoMutexRead lock(&all.s);
         inside();
       },
       [](Room& all) { const AutoMutexWrite lock(&all.s); },
       "for s (locks:5) to write\n  holder: H holds s (locks:5) to read"},
  };
  std::size_t found = 0;
  for (const auto& row : rows) {
    std::thread waiter;
    std::get<0>(row)(locks, [&] {
      waiter = std::thread([&] { std::get<1>(row)(locks); });
      EXPECT_TRUE(eventually([&] { return watch.findings().size() > found; }));
      QThread::msleep(60);  // long enough for a second report, which must not come
    });
    waiter.join();
    ASSERT_EQ(watch.findings().size(), ++found) << std::get<2>(row);
    EXPECT_EQ(watch.findings().back().kind, LockFinding::LongWait);
    const std::string text = watch.findings().back().text;
    const std::string said = numbersTo(text.substr(0, text.find(", stands at\n")), {"W", "H"});
    EXPECT_EQ(withoutTimes(said), "lock doctor: W has waited N ms " + std::get<2>(row));
  }
}

TEST(LockDoctor, TellsWhoHoldsWhatAndWaits) {
  Watch watch;
  Room locks;
  Condition changed("changed", "locks", 6, &locks.c);
  bool wake = false;
  const AutoMutexRead reading(&locks.r);
  AutoMutex lock(&locks.a);
  std::thread waiter([&] {
    const AutoMutex own(&locks.b);
    const AutoMutex wanted(&locks.a);
  });
  std::thread sleeper([&] {
    const AutoMutex own(&locks.c);
    while (!wake) {
      changed.wait();
    }
  });
  std::vector<LockHolder> all;
  EXPECT_TRUE(eventually([&] {
    all = LockDoctor::holders();
    return std::count_if(all.begin(), all.end(),
                         [](const LockHolder& one) { return !one.wanted.empty(); }) == 2;
  }));
  const auto rank = [](const LockHolder& one) { return one.sleeps ? 2U : one.wanted.size(); };
  std::sort(all.begin(), all.end(),
            [&](const auto& one, const auto& other) { return rank(one) < rank(other); });
  ASSERT_EQ(all.size(), 3U);
  EXPECT_TRUE(all[0].held.size() == 2 && all[0].held[0].mode == LockHolder::Read &&
              all[0].held[1].function == "a" && all[0].wanted.empty() && all[0].thread != 0);
  EXPECT_TRUE(all[1].held.at(0).line == 2 && all[1].wanted.at(0).file == "locks" && !all[1].sleeps);
  EXPECT_TRUE(all[2].held.empty() && all[2].sleeps && all[2].wanted.at(0).function == "changed");
  const std::string text = withoutTimes(describeAll());
  EXPECT_NE(text.find(" holds b (locks:2), waits for a (locks:1) since N ms\n"), text.npos) << text;
  EXPECT_NE(text.find(" sleeps in changed (locks:6) since N ms\n"), text.npos) << text;
  lock.unlock();
  waiter.join();
  {
    const AutoMutex change(&locks.c);
    wake = true;
    changed.broadcast();
  }
  sleeper.join();
  EXPECT_EQ(LockDoctor::holders().size(), 1U);
  LockDoctor::stop();
  EXPECT_TRUE(LockDoctor::holders().empty() && describeAll().empty());
}

TEST(LockDoctor, EndsTheProcessWhereItIsToldTo) {
  const std::tuple<void (*)(Room&), int, const char*> rows[] = {
      {both<&Room::a, &Room::a>, LockDoctor::circleCode, "a thread waits for itself for ever"},
      {both<&Room::a, &Room::twin>, 0, "whose order is not watched: a (locks:1)"},
  };
  for (const auto& [action, code, errors] : rows) {
    const Ended ended = inChild([action = action] {
      LockDoctorOptions options;
      options.endsProcess = true;
      LockDoctor::start(options);
      Room locks;
      action(locks);
    });
    EXPECT_TRUE(ended.exited && ended.code == code) << ended.code;
    EXPECT_TRUE(ended.errors.contains(errors)) << ended.errors.constData();
  }
}

/// Takes two locks in both orders; HearsTheEnvironment starts this in processes of its own.
TEST(LockDoctor, DISABLED_Inverts) {
  Room locks;
  both<&Room::a, &Room::b>(locks);
  both<&Room::b, &Room::a>(locks);
  std::cerr << (LockDoctor::isOn() ? "watched" : "unwatched") << std::endl;
}

TEST(LockDoctor, HearsTheEnvironment) {
  const struct {
    const char* value;
    int code;
    std::string errors;
  } rows[] = {
      {"", 0, "unwatched\n"},
      {"0", 0, "unwatched\n"},
      {"1", 0, "takes a (locks:1)\n  T held a (locks:1) and took b (locks:2)\nwatched\n"},
      {"wait=200", 0, "took b (locks:2)\nwatched\n"},
      {"wait=200,strict", 70, "took b (locks:2)\n"},
      {"strikt", 0,
       "KYR_LOCK_DOCTOR=strikt is not understood: 0, 1, strict and wait=MILLISECONDS are, with "
       "commas between them\nunwatched\n"},
      {"1,wait=", 0, "with commas between them\nunwatched\n"},
      {"wait=5x", 0, "with commas between them\nunwatched\n"},
  };
  for (const auto& row : rows) {
    const ScopedEnvironment asked("KYR_LOCK_DOCTOR", row.value);
    const Ended ended = runProgram(OS::getExecutable(), {"--gtest_filter=*DISABLED_Inverts",
                                                         "--gtest_also_run_disabled_tests"});
    const std::string errors =
        numbersTo(QByteArray(ended.errors).replace("\r", "").toStdString(), {"H", "T"});
    EXPECT_EQ(ended.code, row.code) << row.value;
    EXPECT_TRUE(errors.size() >= row.errors.size() &&
                errors.compare(errors.size() - row.errors.size(), errors.npos, row.errors) == 0)
        << row.value << ": " << errors;
  }
}
