/// \file
/// What is usually little and may be much: half of it is to take half of the time.
#include "support/Ratios.h"

#include <kyr/core/KyrStructVector.h>
#include <kyr/files/KyrFilename.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/log/KyrJournal.h>
#include <kyr/pack/KyrZippedTar.h>

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

namespace {

void limitsArchive(benchmark::State& state) {
  const auto count = static_cast<unsigned>(state.range(0));
  for (auto _ : state) {
    Kyr::StructVector<unsigned char> packed;
    Kyr::ZippedTarWriter writer(&packed);
    for (unsigned i = 0; i < count; ++i) {
      writer.addContents(QString("folder/file%1").arg(i), QByteArray::number(i), 0);
    }
    writer.addEof();
    writer.flush();
    const Kyr::ZippedTarReader reader(packed, {quint64{4} << 30U, count, 1000000});
    if (reader.size() != count) {
      state.SkipWithError("entries are missing");
    }
  }
}

void limitsJournal(benchmark::State& state) {
  for (auto _ : state) {
    const QTemporaryDir folder;
    Kyr::Journal journal(folder.filePath("many.log"), {std::int64_t{1} << 40U, 1});
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      journal.add(Kyr::Journal::Info, "limits", "an entry as programs write many");
    }
    if (!journal.flush() || journal.getLost() != 0) {
      state.SkipWithError("entries are lost");
    }
  }
}

/// A folder with so many numbered files, made once.
QString numberedFiles(std::int64_t count) {
  static std::map<std::int64_t, std::unique_ptr<QTemporaryDir>> folders;
  std::unique_ptr<QTemporaryDir>& folder = folders[count];
  if (!folder) {
    folder = std::make_unique<QTemporaryDir>();
    for (std::int64_t i = 1; i <= count; ++i) {
      QFile(folder->filePath(QString("img_%1.tif").arg(i))).open(QIODevice::WriteOnly);
    }
  }
  return folder->path();
}

void limitsSeries(benchmark::State& state) {
  const Kyr::Filename::NameWithNumber first(numberedFiles(state.range(0)) + "/img_1.tif", -1);
  for (auto _ : state) {
    const Kyr::Filename::Series series(first);
    if (static_cast<std::int64_t>(series.getMembers().size()) != state.range(0)) {
      state.SkipWithError("files are missing");
    }
  }
}

class Idler : public Kyr::PoolThread {
 public:
  Idler() : PoolThread(NoLockGUI, "Idler", "bench", 1) {}

 private:
  void work() override {}
};

/// Ten passes of so many threads, which all live at once.
void limitsThreads(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<Kyr::PoolThread*> group(static_cast<std::size_t>(state.range(0)));
    std::generate(group.begin(), group.end(), [] { return new Idler; });
    Kyr::PoolForThreads::getPool()->registerThreads("limits", group);
    std::for_each(group.begin(), group.end(), [](auto* thread) { thread->start(); });
    for (int pass = 0; pass < 10; ++pass) {
      std::for_each(group.begin(), group.end(), [](auto* thread) { thread->startWorking(); });
      std::for_each(group.begin(), group.end(), [](auto* thread) { thread->waitForWorking(); });
    }
    Kyr::PoolForThreads::getPool()->destroyThreads("limits");
  }
}

constexpr int once = 1, few = 3;
BENCHMARK(limitsArchive)->Arg(50000)->Arg(100000)->Iterations(once)->Repetitions(few);
BENCHMARK(limitsJournal)->Arg(500000)->Arg(1000000)->Iterations(once)->Repetitions(few);
BENCHMARK(limitsSeries)->Arg(100000)->Arg(200000)->Iterations(once)->Repetitions(few);
BENCHMARK(limitsThreads)->Arg(500)->Arg(1000)->UseRealTime()->Iterations(once)->Repetitions(few);

constexpr double most = 3;
const KyrBench::Growth archives("archive of 100,000 entries / of half",
                                "limitsArchive/100000/iterations:1",
                                "limitsArchive/50000/iterations:1", most);
const KyrBench::Growth journals("journal of 1,000,000 entries / of half",
                                "limitsJournal/1000000/iterations:1",
                                "limitsJournal/500000/iterations:1", most);
const KyrBench::Growth serieses("folder of 200,000 numbered files / of half",
                                "limitsSeries/200000/iterations:1",
                                "limitsSeries/100000/iterations:1", most);
const KyrBench::Growth passes("ten passes of 1,000 threads / of half",
                              "limitsThreads/1000/iterations:1", "limitsThreads/500/iterations:1",
                              most);

}  // namespace
