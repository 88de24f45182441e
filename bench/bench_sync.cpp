// What the library's locks cost beside those of Qt that they stand on. Nobody else wants them.
#include "support/Ratios.h"

#include <kyr/sync/KyrLockDoctor.h>
#include <kyr/sync/KyrMutex.h>

#include <benchmark/benchmark.h>

#include <QMutex>
#include <QReadWriteLock>

namespace {

void mutexKyr(benchmark::State& state) {
  Kyr::Mutex mutex("mutexKyr", "bench_sync", 1);
  for (auto _ : state) {
    mutex.lock();
    benchmark::ClobberMemory();
    mutex.unlock("mutexKyr", "bench_sync", 2);
  }
}
BENCHMARK(mutexKyr);

void mutexQt(benchmark::State& state) {
  QMutex mutex;
  for (auto _ : state) {
    mutex.lock();
    benchmark::ClobberMemory();
    mutex.unlock();
  }
}
BENCHMARK(mutexQt);

void readLockKyr(benchmark::State& state) {
  Kyr::MutexReadWrite lock("readLockKyr", "bench_sync", 3);
  for (auto _ : state) {
    lock.lockRead();
    benchmark::ClobberMemory();
    lock.unlockRead("readLockKyr", "bench_sync", 4);
  }
}
BENCHMARK(readLockKyr);

void readLockQt(benchmark::State& state) {
  QReadWriteLock lock;
  for (auto _ : state) {
    lock.lockForRead();
    benchmark::ClobberMemory();
    lock.unlock();
  }
}
BENCHMARK(readLockQt);

/// Two locks, one inside the other, so that there is an order to be looked up.
void nestedKyr(benchmark::State& state) {
  Kyr::Mutex outer("nestedKyr", "bench_sync", 5), inner("nestedKyr", "bench_sync", 6);
  for (auto _ : state) {
    const Kyr::AutoMutex first(&outer);
    const Kyr::AutoMutex second(&inner);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(nestedKyr);

/// What a benchmark costs while the lock doctor watches.
template <void (*Measured)(benchmark::State&)>
void watched(benchmark::State& state) {
  Kyr::LockDoctor::start();
  Measured(state);
  Kyr::LockDoctor::stop();
}
BENCHMARK(watched<mutexKyr>)->Name("mutexWatched");
BENCHMARK(watched<readLockKyr>)->Name("readLockWatched");
BENCHMARK(watched<nestedKyr>)->Name("nestedWatched");

const KyrBench::Ratio mutexes("Mutex lock and unlock / QMutex", "mutexKyr", "mutexQt", 0.95);
const KyrBench::Ratio readers("MutexReadWrite read / QReadWriteLock", "readLockKyr", "readLockQt",
                              0.5);
const KyrBench::Growth watchedMutexes("Mutex with the lock doctor / QMutex", "mutexWatched",
                                      "mutexQt", 10);
const KyrBench::Growth watchedReaders("MutexReadWrite read with the lock doctor / without",
                                      "readLockWatched", "readLockKyr", 10);
const KyrBench::Growth watchedNested("two locks nested with the lock doctor / without",
                                     "nestedWatched", "nestedKyr", 10);

}  // namespace
