// What it costs to share a loop among threads, beside TBB's and Qt's, with as many threads: cheap
// turns, of which there are many, and few of uneven length. And what a step of a scope costs beside
// the lock that it replaces.
#include "support/Ratios.h"

#include <kyr/jobs/KyrParallel.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>

#include <benchmark/benchmark.h>

#include <QMutex>
#include <QThreadPool>
#include <QtConcurrentMap>

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

namespace {

constexpr std::size_t cheapTurns = 1000000;
constexpr std::size_t unevenTurns = 1000;

void cheap(double& element) {
  element = std::sqrt(element + 1.0);
}

/// Up to some dozens of microseconds, most of them much less.
void uneven(std::uint64_t& element) {
  std::uint64_t value = element;
  for (std::uint64_t turns = (element * 2654435761U % 101) * (element % 7) * 20; turns != 0;
       --turns) {
    value = value * 6364136223846793005U + 1442695040888963407U;
  }
  benchmark::DoNotOptimize(value);
}

template <class Element>
std::vector<Element> elements(std::size_t count) {
  std::vector<Element> all(count);
  std::iota(all.begin(), all.end(), Element{});
  return all;
}

/// \tparam Loop called with elements, their function and a number of threads
template <class Loop>
void cheapLoop(benchmark::State& state, Loop loop) {
  std::vector<double> all = elements<double>(cheapTurns);
  for (auto _ : state) {
    loop(all, &cheap, static_cast<int>(state.range(0)));
    benchmark::ClobberMemory();
  }
}

template <class Loop>
void unevenLoop(benchmark::State& state, Loop loop) {
  std::vector<std::uint64_t> all = elements<std::uint64_t>(unevenTurns);
  for (auto _ : state) {
    loop(all, &uneven, static_cast<int>(state.range(0)));
  }
}

const auto withKyr = [](auto& all, auto function, int threads) {
  Kyr::ParallelOptions options;
  options.threads = static_cast<unsigned>(threads);
  Kyr::parallelFor(all, function, options);
};

const auto withTbb = [](auto& all, auto function, int threads) {
  static tbb::task_arena arenas[] = {tbb::task_arena(1), tbb::task_arena(2), tbb::task_arena(16)};
  arenas[threads == 1   ? 0
         : threads == 2 ? 1
                        : 2]
      .execute([&] {
        tbb::parallel_for(tbb::blocked_range<std::size_t>(0, all.size()), [&](const auto& range) {
          for (std::size_t i = range.begin(); i != range.end(); ++i) {
            function(all[i]);
          }
        });
      });
};

const auto withQt = [](auto& all, auto function, int threads) {
  QThreadPool::globalInstance()->setMaxThreadCount(threads);
  QtConcurrent::blockingMap(all, function);
};

BENCHMARK_CAPTURE(cheapLoop, kyr, withKyr)->Arg(1)->Arg(2)->Arg(16)->UseRealTime();
BENCHMARK_CAPTURE(cheapLoop, tbb, withTbb)->Arg(1)->Arg(2)->Arg(16)->UseRealTime();
BENCHMARK_CAPTURE(cheapLoop, qt, withQt)->Arg(1)->Arg(2)->Arg(16)->UseRealTime();
BENCHMARK_CAPTURE(unevenLoop, kyr, withKyr)->Arg(1)->Arg(2)->Arg(16)->UseRealTime();
BENCHMARK_CAPTURE(unevenLoop, tbb, withTbb)->Arg(1)->Arg(2)->Arg(16)->UseRealTime();
BENCHMARK_CAPTURE(unevenLoop, qt, withQt)->Arg(1)->Arg(2)->Arg(16)->UseRealTime();

void scopeLockQt(benchmark::State& state) {
  QMutex mutex;
  for (auto _ : state) {
    mutex.lock();
    benchmark::ClobberMemory();
    mutex.unlock();
  }
}
BENCHMARK(scopeLockQt);

/// What a step costs that moves the percentage, without any scope.
void scopePercentAlone(benchmark::State& state) {
  unsigned value = 0;
  for (auto _ : state) {
    value = value == 99 ? 0 : value + 1;
    Kyr::Progress::setProgress(0, 100, value);
  }
}
BENCHMARK(scopePercentAlone);

void scopeStep(benchmark::State& state) {
  const auto steps = static_cast<std::uint64_t>(state.range(0));
  while (state.KeepRunningBatch(state.range(0))) {
    Kyr::ProgressScope scope("bench", steps);
    for (std::uint64_t i = 0; i != steps; ++i) {
      scope.step();
    }
  }
}
BENCHMARK(scopeStep)->Arg(100)->Arg(1000)->Arg(1000000);

void stopLook(benchmark::State& state) {
  const Kyr::StopToken token;
  for (auto _ : state) {
    benchmark::DoNotOptimize(token.isStopped());
  }
}
BENCHMARK(stopLook);

#define KYR_LOOP_RATIOS(threads)                                                                 \
  const KyrBench::Ratio cheapTbb##threads("parallelFor, 1M cheap / TBB, " #threads " threads",   \
                                          "cheapLoop/kyr/" #threads "/real_time",                \
                                          "cheapLoop/tbb/" #threads "/real_time", 0.9);          \
  const KyrBench::Ratio cheapQt##threads("... / QtConcurrent",                                   \
                                         "cheapLoop/kyr/" #threads "/real_time",                 \
                                         "cheapLoop/qt/" #threads "/real_time", 1.2);            \
  const KyrBench::Ratio unevenTbb##threads("parallelFor, 1k uneven / TBB, " #threads " threads", \
                                           "unevenLoop/kyr/" #threads "/real_time",              \
                                           "unevenLoop/tbb/" #threads "/real_time", 0.9);        \
  const KyrBench::Ratio unevenQt##threads("... / QtConcurrent",                                  \
                                          "unevenLoop/kyr/" #threads "/real_time",               \
                                          "unevenLoop/qt/" #threads "/real_time", 1.2)

KYR_LOOP_RATIOS(1);
KYR_LOOP_RATIOS(2);
KYR_LOOP_RATIOS(16);
const KyrBench::Growth growth("parallelFor, 1k uneven, 16 threads / 1",
                              "unevenLoop/kyr/16/real_time", "unevenLoop/kyr/1/real_time", 1.2);
const KyrBench::Growth coarse("ProgressScope, each step a percent / QMutex pair", "scopeStep/100",
                              "scopeLockQt", 2);
const KyrBench::Growth fine("ProgressScope, ten steps a percent / QMutex pair", "scopeStep/1000",
                            "scopeLockQt", 1);
const KyrBench::Growth finest("ProgressScope, a million steps / QMutex pair", "scopeStep/1000000",
                              "scopeLockQt", 1);
const KyrBench::Growth look("StopToken, one look / QMutex pair", "stopLook", "scopeLockQt", 0.5);

}  // namespace
