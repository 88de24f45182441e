// What the report of every step of a computation costs beside the one lock that it cannot do
// without; and how much two reporting threads get in each other's way.
#include "support/Ratios.h"

#include <kyr/jobs/KyrProgress.h>

#include <benchmark/benchmark.h>

#include <QMutex>

#include <cstdlib>
#include <new>

namespace {

/// By this thread, in this program and in the libraries that take its operators.
thread_local unsigned long allocations = 0;

void progressLockQt(benchmark::State& state) {
  QMutex mutex;
  for (auto _ : state) {
    mutex.lock();
    benchmark::ClobberMemory();
    mutex.unlock();
  }
}
BENCHMARK(progressLockQt);

/// The value moves and the overall percentage does not: what nearly every report is.
void progressSameOverall(benchmark::State& state) {
  unsigned value = 0;
  for (auto _ : state) {
    Kyr::Progress::setProgress(0, 1, value);
    value = value == 99 ? 0 : value + 1;
  }
}
BENCHMARK(progressSameOverall);

/// Nothing to measure: shows by an error that reports came to allocate.
void progressAllocations(benchmark::State& state) {
  const unsigned long before = allocations;
  Kyr::Progress::registerGUIEventCreator(nullptr);
  const unsigned long counted = allocations;
  Kyr::Progress::deregisterGUIEventCreator(nullptr);
  for (auto _ : state) {
    Kyr::Progress::setProgress(0, 1, 0);
    Kyr::Progress::addProgressSteps(1);
  }
  if (counted == before) {
    state.SkipWithError("the library's allocations are out of sight");
  } else if (allocations != counted) {
    state.SkipWithError("reports allocate");
  }
}
BENCHMARK(progressAllocations)->Iterations(1000)->Repetitions(1);
BENCHMARK(progressSameOverall)->Threads(1)->Threads(2)->UseRealTime();

void progressSteps(benchmark::State& state) {
  if (state.thread_index() == 0) {
    Kyr::Progress::splitProgress(0, 100, 4000000000U);
  }
  for (auto _ : state) {
    Kyr::Progress::addProgressSteps(1);
  }
}
BENCHMARK(progressSteps)->Threads(1)->Threads(2)->UseRealTime();

void progressAbortPoll(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(Kyr::Progress::getAbortFlag());
  }
}
BENCHMARK(progressAbortPoll);

const KyrBench::Growth report("setProgress, same percentage / QMutex pair", "progressSameOverall",
                              "progressLockQt", 1.2);
const KyrBench::Growth poll("getAbortFlag / QMutex pair", "progressAbortPoll", "progressLockQt",
                            1.2);
const KyrBench::Ratio threads("setProgress, two threads / one",
                              "progressSameOverall/real_time/threads:2",
                              "progressSameOverall/real_time/threads:1", 0);
const KyrBench::Ratio steps("addProgressSteps, two threads / one",
                            "progressSteps/real_time/threads:2",
                            "progressSteps/real_time/threads:1", 0);

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
