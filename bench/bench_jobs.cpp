// What it costs to hand work to threads: beside the pools of Qt and Boost, the task group of TBB,
// and the plain condition variable of the standard library.
#include "support/Ratios.h"

#include <kyr/jobs/KyrScheduler.h>
#include <kyr/jobs/KyrThreadPool.h>

#include <benchmark/benchmark.h>

#include <QRunnable>
#include <QThreadPool>

#include <tbb/task_arena.h>
#include <tbb/task_group.h>
#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

constexpr int jobs = 100000;
constexpr int threads = 2;

class EmptyJobs : public Kyr::JobManager {
 public:
  void prepare() { _left = jobs; }

 protected:
  bool hasMoreJobs() override { return _left != 0; }
  bool isJobAvailable(Kyr::Worker* /*worker*/) override { return true; }
  void assignJob(Kyr::Worker* /*worker*/) override { --_left; }
  void jobDone(Kyr::Worker* /*worker*/) override {}

 private:
  int _left = 0;
};

class EmptyWorker : public Kyr::Worker {
 public:
  explicit EmptyWorker(EmptyJobs* manager) : Worker(NoLockGUI, manager) {}

 protected:
  void executeJob() override {}
};

void jobsKyr(benchmark::State& state) {
  EmptyJobs manager;
  for (int i = 0; i < threads; ++i) {
    new EmptyWorker(&manager);  // owned by the manager
  }
  for (auto _ : state) {
    manager.prepare();
    manager.startAllWorker();
    manager.waitForWorker();
  }
  state.SetItemsProcessed(state.iterations() * jobs);
}
BENCHMARK(jobsKyr)->UseRealTime()->Unit(benchmark::kMillisecond);

class EmptyRunnable : public QRunnable {
 public:
  void run() override {}
};

void jobsQt(benchmark::State& state) {
  QThreadPool pool;
  pool.setMaxThreadCount(threads);
  EmptyRunnable job;
  job.setAutoDelete(false);
  for (auto _ : state) {
    for (int i = 0; i < jobs; ++i) {
      pool.start(&job);
    }
    pool.waitForDone();
  }
  state.SetItemsProcessed(state.iterations() * jobs);
}
BENCHMARK(jobsQt)->UseRealTime()->Unit(benchmark::kMillisecond);

void jobsAsio(benchmark::State& state) {
  for (auto _ : state) {
    boost::asio::thread_pool pool(threads);
    for (int i = 0; i < jobs; ++i) {
      boost::asio::post(pool, [] {});
    }
    pool.join();
  }
  state.SetItemsProcessed(state.iterations() * jobs);
}
BENCHMARK(jobsAsio)->UseRealTime()->Unit(benchmark::kMillisecond);

void jobsTbb(benchmark::State& state) {
  tbb::task_arena arena(threads);
  for (auto _ : state) {
    arena.execute([] {
      tbb::task_group group;
      for (int i = 0; i < jobs; ++i) {
        group.run([] {});
      }
      group.wait();
    });
  }
  state.SetItemsProcessed(state.iterations() * jobs);
}
BENCHMARK(jobsTbb)->UseRealTime()->Unit(benchmark::kMillisecond);

class EmptyPasses : public Kyr::PoolThread {
 public:
  EmptyPasses() : PoolThread(NoLockGUI, "EmptyPasses", "bench_jobs", 1) {}

 protected:
  void work() override {}
};

void roundTripKyr(benchmark::State& state) {
  EmptyPasses thread;
  thread.start();
  for (auto _ : state) {
    thread.startWorking();
    thread.waitForWorking();
  }
  thread.prepareExit();
  thread.wait();
}
BENCHMARK(roundTripKyr)->UseRealTime();

/// The same hand-off over the standard library's condition variable.
/// \tparam NotifiesLocked whether it wakes before or after the unlock
template <bool NotifiesLocked>
class PlainPasses {
 public:
  enum State { Idle, Working, Exiting };

  void change(State state) {
    std::unique_lock<std::mutex> lock(_mutex);
    _state = state;
    if (!NotifiesLocked) {
      lock.unlock();
    }
    _changed.notify_one();
  }
  void waitForWorking() { awaitOtherThan(Working); }
  void run() {
    while (awaitOtherThan(Idle) == Working) {
      change(Idle);
    }
  }

 private:
  State awaitOtherThan(State state) {
    std::unique_lock<std::mutex> lock(_mutex);
    _changed.wait(lock, [&] { return _state != state; });
    return _state;
  }

  std::mutex _mutex;
  std::condition_variable _changed;
  State _state = Idle;
};

template <bool NotifiesLocked>
void roundTripStd(benchmark::State& state) {
  PlainPasses<NotifiesLocked> passes;
  std::thread thread([&] { passes.run(); });
  for (auto _ : state) {
    passes.change(passes.Working);
    passes.waitForWorking();
  }
  passes.change(passes.Exiting);
  thread.join();
}
BENCHMARK(roundTripStd<true>)->UseRealTime();
BENCHMARK(roundTripStd<false>)->UseRealTime();

const KyrBench::Ratio againstQt("JobManager, empty jobs / QThreadPool", "jobsKyr/real_time",
                                "jobsQt/real_time", 1.0);
const KyrBench::Ratio againstAsio("JobManager, empty jobs / Boost.Asio", "jobsKyr/real_time",
                                  "jobsAsio/real_time", 1.5);
const KyrBench::Ratio againstTbb("JobManager, empty jobs / TBB task_group", "jobsKyr/real_time",
                                 "jobsTbb/real_time", 0);
const KyrBench::Growth handOff("PoolThread round trip / condition_variable",
                               "roundTripKyr/real_time", "roundTripStd<true>/real_time", 1.1);
// The wait condition of Qt wakes with a mutex of its own held, which costs a second switch.
const KyrBench::Growth lateHandOff("... / condition_variable, notified unlocked",
                                   "roundTripKyr/real_time", "roundTripStd<false>/real_time", 0);

}  // namespace
