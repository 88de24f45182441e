/// \file
/// Threads that share a table and a log, a loop that threads share, a cache that gives way when
/// memory runs short, and locks that are taken in the wrong order.
///
///   threads

#include <kyr/crash/KyrNewHandler.h>
#include <kyr/jobs/KyrParallel.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/log/KyrSyncErrorLog.h>
#include <kyr/sync/KyrLockDoctor.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/terminal/KyrTerminalProgress.h>

#include <cstddef>
#include <cstdio>
#include <vector>

using namespace Kyr;

namespace {

constexpr std::size_t passes = 3, crewSize = 2;

/// Measured points: many look at them, one at a time adds to them.
class Points {
 public:
  void add(double point) {
    const AutoMutexWrite adding(&_lock);
    _points.push_back(point);  // may throw std::bad_alloc, which must not leave the lock taken
  }
  std::size_t count() const {
    const AutoMutexRead looking(&_lock);
    return _points.size();
  }

 private:
  mutable MutexReadWrite _lock{"Points", "main", 1};
  std::vector<double> _points KYR_GUARDED_BY(_lock);
};

/// Sleeps between two passes; the pool owns it.
class Prober : public PoolThread {
 public:
  Prober(Points& points, SyncErrorLog& log)
      : PoolThread(NoLockGUI, "Prober", "main", 2), _points(points), _log(log) {}

 private:
  void work() override {
    _points.add(25.4);
    const AutoMutex building(&_building);  // the log does not hold messages together
    _log << unsigned(_points.count()) << " points or more" << END_LOG;
  }

  static Mutex _building;
  Points& _points;
  SyncErrorLog& _log;
};

Mutex Prober::_building("Prober", "main", 3);

void measure(Points& points, SyncErrorLog& log) {
  const std::vector<PoolThread*> crew{new Prober(points, log), new Prober(points, log)};
  PoolForThreads::getPool()->registerThreads("probers", crew);
  for (PoolThread* const prober : crew) {
    prober->start();
  }
  for (std::size_t i = 0; i < passes; ++i) {
    for (PoolThread* const prober : crew) {
      prober->startWorking();
    }
    for (PoolThread* const prober : crew) {
      prober->waitForWorking();
    }
  }
  PoolForThreads::getPool()->destroyThreads("probers");
}

/// What one processor need not do alone: no turn of the loop needs another one.
std::vector<double> circumferences(const std::vector<double>& radii) {
  const ProgressScope scope("circumferences", 1);  // which the loop fills
  std::vector<double> results(radii.size());
  ParallelOptions options;
  options.grain = 100;  // for a thread at once; left out, the loop finds it by the clock
  const auto turn = [&](std::size_t i) { results[i] = radii[i] * 6.283185307179586; };
  parallelFor(IndexRange(radii.size()), turn, options);
  return results;
}

/// Pictures that can be computed again, and so can be given up when memory runs short.
class Cache : public NewHandler {
 public:
  Cache() { registerThisNewHandler(); }
  ~Cache() override { deregisterThisNewHandler(); }
  bool freeSomeMemory() override {
    const bool hasSome = !_pictures.empty();
    std::vector<char>().swap(_pictures);
    return hasSome;
  }

 private:
  std::vector<char> _pictures = std::vector<char>(1000000);
};

/// Takes two locks now in one order and now in the other. One thread at a time does not notice;
/// two threads might wait for each other for ever.
void invertLocks() {
  Mutex store("Store", "main", 4), index("Index", "main", 5);
  const auto takeBoth = [](Mutex& first, Mutex& second) {
    const AutoMutex outer(&first);
    const AutoMutex inner(&second);
  };
  LockDoctorOptions options;
  options.report = [](const LockFinding& finding) { std::printf("%s\n", finding.text.c_str()); };
  LockDoctor::start(options);  // or KYR_LOCK_DOCTOR=1 in the environment
  takeBoth(store, index);
  takeBoth(index, store);
  LockDoctor::stop();
}

}  // namespace

int main() {
  invertLocks();
  Points points;
  SyncErrorLog log(true);
  measure(points, log);
  const TerminalProgress bar;  // seen if it takes longer than half a second
  const std::vector<double> circles = circumferences(std::vector<double>(1000, 25.4));
  PoolForThreads::deinitialize();  // KyrInit::CloseLibrary() does that for applications
  LogText summary;                 // keeps the messages of logs that one writes oneself
  summary.add(QString("%1 messages").arg(log.getLog().count('\n') + 1), true);
  summary.add(QString("%1 points").arg(points.count()), false);  // in front
  std::printf("%s, %zu circles\n", qPrintable(summary.text()), circles.size());

  const Cache cache;
  NewHandler::freeMemory();  // as an allocation does that fails
  SyncOutputErrorLog(true) << "the cache has given way" << END_LOG;
  OutputErrorLog(false) << "nobody wants to know" << END_LOG;
  return points.count() == passes * crewSize ? 0 : 1;
}
