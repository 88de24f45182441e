/// \file
/// What an entry of the flight recorder costs, on one thread and on two at once.
#include "support/Ratios.h"

#include <kyr/recorder/KyrFlightRecorder.h>

#include <benchmark/benchmark.h>

#include <spdlog/sinks/null_sink.h>
#include <spdlog/spdlog.h>

#include <array>
#include <chrono>
#include <cstring>
#include <mutex>

namespace {

const char* const line = "read /measurement/project/stage 12/image 0815.raw, 12345 points";

void recorderEntry(benchmark::State& state) {
  Kyr::FlightRecorder::setOn(true);
  for (auto _ : state) {
    Kyr::FlightRecorder::note("reader", line);
  }
}

void recorderEntryOfQt(benchmark::State& state) {
  const QString text = line;
  for (auto _ : state) {
    Kyr::FlightRecorder::note("reader", text);
  }
}

void recorderOff(benchmark::State& state) {
  Kyr::FlightRecorder::setOn(false);
  for (auto _ : state) {
    Kyr::FlightRecorder::note("reader", line);
  }
  Kyr::FlightRecorder::setOn(true);
}

/// The same with a lock instead of care.
struct Entry {
  std::chrono::steady_clock::time_point time;
  std::array<char, 224> text;
};
std::mutex mutex;
std::array<Entry, 256> ring;
std::size_t next = 0;

void recorderRingWithMutex(benchmark::State& state) {
  for (auto _ : state) {
    const auto now = std::chrono::steady_clock::now();
    const std::lock_guard<std::mutex> locked(mutex);
    Entry& entry = ring[next++ % ring.size()];
    entry.time = now;
    std::strncpy(entry.text.data(), line, entry.text.size());
  }
}

/// Entries of a logger that keeps the last ones until somebody asks.
spdlog::logger& backtracing() {
  static spdlog::logger logger("reader", std::make_shared<spdlog::sinks::null_sink_mt>());
  static const bool prepared = [] {
    logger.enable_backtrace(256);
    return true;
  }();
  static_cast<void>(prepared);
  return logger;
}

void recorderSpdlog(benchmark::State& state) {
  spdlog::logger& logger = backtracing();
  for (auto _ : state) {
    logger.debug(line);
  }
}

BENCHMARK(recorderOff);
BENCHMARK(recorderEntry);
BENCHMARK(recorderEntryOfQt);
// By the clock, as who waits for a lock costs no processor. The time shown is that of the process:
// with two threads an entry takes one of them twice as long.
BENCHMARK(recorderEntry)->Threads(2)->UseRealTime();
BENCHMARK(recorderRingWithMutex)->Threads(2)->UseRealTime();
BENCHMARK(recorderSpdlog)->Threads(2)->UseRealTime();

const KyrBench::Ratio mutexPeer("entry of the flight recorder / ring with a mutex, 2 threads",
                                "recorderEntry/real_time/threads:2",
                                "recorderRingWithMutex/real_time/threads:2", 1);
const KyrBench::Ratio spdlogPeer("entry of the flight recorder / spdlog's backtrace, 2 threads",
                                 "recorderEntry/real_time/threads:2",
                                 "recorderSpdlog/real_time/threads:2", 1);

}  // namespace
