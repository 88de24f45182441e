/// \file
/// Threads that share a table and a log, and a cache that gives way when memory runs short.
///
///   threads

#include <kyr/app/KyrNewHandler.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/log/KyrSyncErrorLog.h>
#include <kyr/sync/KyrMutex.h>

#include <cstddef>
#include <cstdio>
#include <vector>

using namespace Kyr;

namespace {

constexpr std::size_t passes = 3, crewSize = 2;

/// Keeps writers out as long as it lives; an exception in between ends that, too.
class KYR_SCOPED_CAPABILITY Reading {
 public:
  explicit Reading(MutexReadWrite& lock) KYR_ACQUIRE_SHARED(lock) : _lock(lock) {
    _lock.lockRead();
  }
  ~Reading() KYR_RELEASE() { _lock.unlockRead("Reading", "main", 2); }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

 private:
  MutexReadWrite& _lock;
};

/// Keeps everybody else out as long as it lives.
class KYR_SCOPED_CAPABILITY Writing {
 public:
  explicit Writing(MutexReadWrite& lock) KYR_ACQUIRE(lock) : _lock(lock) { _lock.lockWrite(); }
  ~Writing() KYR_RELEASE() { _lock.unlockWrite("Writing", "main", 1); }
  Writing(const Writing&) = delete;
  Writing& operator=(const Writing&) = delete;

 private:
  MutexReadWrite& _lock;
};

/// Measured points: many look at them, one at a time adds to them.
class Points {
 public:
  void add(double point) {
    const Writing adding(_lock);
    _points.push_back(point);  // may throw std::bad_alloc, which must not leave the lock taken
  }
  std::size_t count() const {
    const Reading looking(_lock);
    return _points.size();
  }

 private:
  mutable MutexReadWrite _lock{"Points", "main", 3};
  std::vector<double> _points KYR_GUARDED_BY(_lock);
};

/// Sleeps between two passes; the pool owns it.
class Prober : public PoolThread {
 public:
  Prober(Points& points, SyncErrorLog& log)
      : PoolThread(NoLockGUI, "Prober", "main", 4), _points(points), _log(log) {}

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

Mutex Prober::_building("Prober", "main", 5);

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

/// Can be computed again.
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

}  // namespace

int main() {
  Points points;
  SyncErrorLog log(true);
  measure(points, log);
  PoolForThreads::deinitialize();  // KyrInit::CloseLibrary() does that for applications
  LogText summary;                 // what logs of one's own keep their messages in
  summary.add(QString("%1 messages").arg(log.getLog().count('\n') + 1), true);
  summary.add(QString("%1 points").arg(points.count()), false);  // in front
  std::printf("%s\n", qPrintable(summary.text()));

  const Cache cache;
  NewHandler::freeMemory();  // as an allocation does that fails
  SyncOutputErrorLog(true) << "the cache has given way" << END_LOG;
  OutputErrorLog(false) << "nobody wants to know" << END_LOG;
  return points.count() == passes * crewSize ? 0 : 1;
}
