// What the library's locks cost beside those of Qt that they stand on. Nobody else wants them.
#include "support/Ratios.h"

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

const KyrBench::Ratio mutexes("Mutex lock and unlock / QMutex", "mutexKyr", "mutexQt", 0.95);
const KyrBench::Ratio readers("MutexReadWrite read / QReadWriteLock", "readLockKyr", "readLockQt",
                              0.5);

}  // namespace
