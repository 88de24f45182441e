/// \file
/// What a log costs when a long operation fills it: ten times the messages, ten times the time. And
/// what an entry of a journal does.
#include "support/Ratios.h"

#include <kyr/log/KyrErrorLog.h>
#include <kyr/log/KyrJournal.h>
#include <kyr/log/KyrSyncErrorLog.h>

#include <benchmark/benchmark.h>

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <QTemporaryDir>

namespace {

constexpr bool NewestFirst = false;
constexpr bool NewestLast = true;

template <class Log>
void fillLog(benchmark::State& state, bool order) {
  const QString path = "/measurement/project/stage 12/image 0815.raw";
  for (auto _ : state) {
    Log log(order);
    for (int i = 0; i < state.range(0); ++i) {
      log << "Unable to delete " << path << ": " << i << Kyr::END_LOG;
    }
    benchmark::DoNotOptimize(log.getLog().size());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ErrorLogNewestFirst(benchmark::State& state) {
  fillLog<Kyr::ErrorLog>(state, NewestFirst);
}
void ErrorLogNewestLast(benchmark::State& state) {
  fillLog<Kyr::ErrorLog>(state, NewestLast);
}
void SyncErrorLogNewestFirst(benchmark::State& state) {
  fillLog<Kyr::SyncErrorLog>(state, NewestFirst);
}
BENCHMARK(ErrorLogNewestFirst)->Arg(10000)->Arg(100000);
BENCHMARK(ErrorLogNewestLast)->Arg(10000)->Arg(100000);
BENCHMARK(SyncErrorLogNewestFirst)->Arg(10000)->Arg(100000);

/// A user interface that shows the log while it grows asks after every message.
void ErrorLogShownMeanwhile(benchmark::State& state) {
  for (auto _ : state) {
    Kyr::ErrorLog log(NewestLast);
    for (int i = 0; i < state.range(0); ++i) {
      log << "Unable to delete " << i << Kyr::END_LOG;
      benchmark::DoNotOptimize(log.getLog().size());
    }
  }
}
BENCHMARK(ErrorLogShownMeanwhile)->Arg(10000)->Arg(100000);

// ---- a journal beside another library's log file ----

const char* const line = "read /measurement/project/stage 12/image 0815.raw, 12345 points";

void journalEntry(benchmark::State& state) {
  const QTemporaryDir folder;
  Kyr::Journal journal(folder.filePath("journal"));
  for (auto _ : state) {
    journal.add(Kyr::Journal::Info, "reader", line);
  }
  if (journal.getLost() > 0) {
    state.SkipWithError("entries are lost");
  }
}

/// The same columns.
void journalEntrySpdlog(benchmark::State& state) {
  const QTemporaryDir folder;
  const auto sink =
      std::make_shared<spdlog::sinks::basic_file_sink_mt>(folder.filePath("log").toStdString());
  spdlog::logger log("reader", sink);
  log.set_pattern("%Y-%m-%dT%H:%M:%S.%eZ %-7l %P/%-7t %-12n %v", spdlog::pattern_time_type::utc);
  for (auto _ : state) {
    log.info(line);
  }
}

void journalEntryNotTaken(benchmark::State& state) {
  Kyr::Journal journal("never opened");
  for (auto _ : state) {
    journal.add(Kyr::Journal::Debug, "reader", line);
  }
}
BENCHMARK(journalEntry);
BENCHMARK(journalEntrySpdlog);
BENCHMARK(journalEntryNotTaken);

const KyrBench::Growth entry("entry of a journal / spdlog's file sink", "journalEntry",
                             "journalEntrySpdlog", 1.5);
const KyrBench::Growth first("log of 100,000 messages to 10,000, newest first",
                             "ErrorLogNewestFirst/100000", "ErrorLogNewestFirst/10000", 12);
const KyrBench::Growth last("log of 100,000 messages to 10,000, newest last",
                            "ErrorLogNewestLast/100000", "ErrorLogNewestLast/10000", 12);
const KyrBench::Growth sync("synchronised log of 100,000 to 10,000, newest first",
                            "SyncErrorLogNewestFirst/100000", "SyncErrorLogNewestFirst/10000", 12);
const KyrBench::Growth shown("log read after each message, 100,000 to 10,000",
                             "ErrorLogShownMeanwhile/100000", "ErrorLogShownMeanwhile/10000", 12);

}  // namespace
