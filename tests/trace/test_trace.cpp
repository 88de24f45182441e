#include "Traces.h"
#include "app/home.h"

#include <kyr/diagnostics/KyrDebugTimer.h>
#include <kyr/files/KyrFileParse.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/jobs/KyrParallel.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrScheduler.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/pack/KyrZippedTar.h>
#include <kyr/trace/KyrTrace.h>

#include <atomic>
#include <cstdlib>
#include <thread>

namespace {

using namespace Kyr;
using namespace KyrTest;

/// Has a few jobs, which do nothing.
class Jobs : public JobManager {
 protected:
  bool hasMoreJobs() override { return _left > 0; }
  bool isJobAvailable(Worker* /*worker*/) override { return true; }
  void assignJob(Worker* /*worker*/) override { --_left; }
  void jobDone(Worker* /*worker*/) override {}

 private:
  int _left = 3;
};

class Idler : public Worker {
 public:
  explicit Idler(JobManager* manager) : Worker(NoLockGUI, manager) {}
  void executeJob() override {}
};

void readAndSave(const TempDir& folder) {
  SafeFile file(folder.file("Größe 1.kyr"));
  {
    ZipOutStream zip(&file.stream(), 1);
    zip << "content";
  }
  file.commit();
  ZipInStream in(file.getTargetName(), 1);
  const FileParse::File keyed(folder.write("keyed.txt", "key 1\n"), CodecUtf8);
  Bytes archive;
  ZippedTarWriter(&archive).flush();
  const ZippedTarReader reader(archive);
}

void runJobs() {
  Jobs jobs;
  new Idler(&jobs);  // which belongs to the jobs
  jobs.startAllWorker();
  jobs.waitForWorker();
}

Ended runTool(const QString& traceFile) {
  const TempDir folder;
  const ScopedEnvironment traced("KYR_TRACE", traceFile.toUtf8());
  return runProgram(KYR_TOOL, {"zip", "pack", KYR_TOOL, folder.file("packed")});
}

}  // namespace

TEST(Trace, holdsWhatTheLibraryDoes) {
  const TempDir folder;
  const QString file = folder.file("trace.json");
  Trace::start(file);
  {
    const ProgressScope scope("outer", 2);
    const ProgressScope inner("inner", 1);
    parallelFor(IndexRange(1000), [](std::size_t) {});
  }
  runJobs();
  readAndSave(folder);
  DebugTimer timer("timer");
  timer.begin();
  timer.end("interval");
  timer.mark("moment");
  const std::string lengthy(5000, 'x');
  for (const char* name : {"\"\\\n\x01\x7f", "\xff\xc0\x80 \xc3\xbc", lengthy.c_str()}) {
    const TraceSpan span(name);
  }
  std::thread([] {
    Trace::nameThread("Fäden");
    Trace::mark("there");
  }).join();
  Trace::stop();
  Trace::mark("too late");

  const std::vector<QJsonObject> events = eventsOf(file);
  const struct {
    const char* phase;
    QString name;
    int times;  // -1 for once or more
  } table[] = {
      {"M", "process_name", 1},
      {"X", "outer", 1},
      {"X", "inner", 1},
      {"X", "parallelFor", -1},
      {"X", "Worker::executeJob", 3},
      {"b", "SafeFile", 1},
      {"e", "SafeFile", 1},
      {"X", "SafeFile::commit", 1},
      {"e", "ZipOutStream", 1},
      {"e", "ZipInStream", 1},
      {"e", "FileParse::File", 1},
      {"e", "ZippedTarWriter", 1},
      {"X", "ZippedTarReader", 1},
      {"X", "interval", 1},
      {"i", "moment", 1},
      {"X", "\"\\\n\x01\x7f", 1},  // what JSON must escape
      {"X", QString::fromUtf8("\xEF\xBF\xBD\xEF\xBF\xBD ü"), 1},
      {"X", QString(1494, 'x'), 1},  // cut off, not lost, and whole
      {"i", "too late", 0},
  };
  for (const auto& row : table) {
    const int times = count(events, row.phase, row.name);
    EXPECT_TRUE(row.times < 0 ? times > 0 : times == row.times)
        << row.phase << ' ' << row.name.toStdString() << ": " << times;
  }
  QStringList threads;
  QString detail;
  for (const QJsonObject& event : events) {
    if (event["name"] == "thread_name") {
      threads << event["args"].toObject()["name"].toString();
    }
    if (event["name"] == "SafeFile" && event["ph"] == "b") {
      detail = event["args"].toObject()["detail"].toString();
    }
  }
  EXPECT_TRUE(threads.contains("Fäden") && threads.contains("Worker")) << threads.size();
  EXPECT_TRUE(detail.endsWith("Größe 1.kyr"));
}

TEST(Trace, isOpenableAfterASuddenEnd) {
  const Home folder;
  const QString file = folder.file("trace.json");
  const Ended ended = inChild([&] {
    Trace::start(file);
    for (int i = 0; i < 2000; ++i) {
      const TraceSpan span("step");
    }
    *static_cast<volatile int*>(nullptr) = 0;
  });
  EXPECT_NE(ended.code, 0);
  EXPECT_GT(count(eventsOf(file, false), "X", "step"), 1000);
}

TEST(Trace, bearsThreadsThatRecordWhileItBeginsAndEnds) {
  const TempDir folder;
  std::atomic<int> running{20};  // more than there are rooms to wait in
  std::vector<std::thread> threads;
  for (int i = running; i > 0; --i) {
    threads.emplace_back([&running] {
      for (int step = 0; step < 500; ++step) {
        const TraceSpan span("step");
        TraceLife("life").setDetail("detail");
      }
      --running;
    });
  }
  int files = 0;
  while (running != 0 && files < 100) {
    Trace::start(folder.file(QString::number(files++)));
    Trace::stop();
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  while (files > 0) {
    eventsOf(folder.file(QString::number(--files)));
  }
}

TEST(Trace, followsTheEnvironmentAndNeverStopsAProgram) {
  const TempDir folder;
  const QString taken = folder.file("taken.json");
  Trace::start(taken);
  const struct {
    QString file;
    const char* says;
  } table[] = {
      {folder.file("%p.json"), ""},
      {folder.file("none/trace.json"), "cannot write the trace"},
      {fullDevice(), "no space is left on the disk"},
      {taken, "another program uses it"},
  };
  for (const auto& row : table) {
    const Ended ended = runTool(row.file);
    EXPECT_EQ(ended.code, 0);
    EXPECT_EQ(ended.errors.count('\n'), *row.says && !row.file.isEmpty() ? 1 : 0);
    EXPECT_TRUE(row.file.isEmpty() || ended.errors.contains(row.says)) << ended.errors.data();
  }
  Trace::stop();
  eventsOf(taken);
  const QStringList files = QDir(folder.path()).entryList(QDir::Files);
  ASSERT_EQ(files.size(), 2);
  eventsOf(folder.file(files[0]));
  EXPECT_NE(failure([&] { Trace::start(folder.file("none/trace.json")); }), "");
}
