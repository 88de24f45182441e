#include "support/Support.h"

#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrScheduler.h>

using namespace Kyr;
using KyrTest::Gate;

namespace {

/// Jobs that write down what is asked, with the worker's state and progress.
struct Jobs : JobManager {
  bool hasMoreJobs() override { return note("more", *workerBegin(), done < count); }
  bool isJobAvailable(Worker* worker) override {
    return note("available", worker, taken < count && available(worker));
  }
  void assignJob(Worker* worker) override { taken += note("assign", worker, 1); }
  void jobDone(Worker* worker) override {
    done += note("done", worker, 1);
    atDone(worker);
  }
  int note(const char* call, Worker* worker, int answer) {
    (calls += call) += std::to_string(worker->getState()) + ':';
    (calls += std::to_string(worker->getProgress())) += ' ';
    return answer;
  }
  /// Starts the workers unless they run; a test that hangs fails.
  void run() {
    startAllWorker();
    for (auto worker = workerBegin(); worker != workerEnd(); ++worker) {
      EXPECT_TRUE((*worker)->wait(30000)) << "a worker hangs";
      EXPECT_EQ((*worker)->getState(), WorkerStopped);
    }
  }
  std::function<bool(Worker*)> available = [](Worker*) { return true; };
  std::function<void(Worker*)> atDone = [](Worker*) {};
  int count = 2, taken = 0, done = 0;
  std::string calls;
};

struct Task : CatchingWorker {
  Task(Jobs& jobs, std::function<void(Task&)> job)
      : CatchingWorker(NoLockGUI, &jobs), _job(std::move(job)) {}
  ~Task() override { std::fputs("~", stderr); }
  void executeJobOrThrow() override { _job(*this); }
  using Worker::setProgress;
  const std::function<void(Task&)> _job;
};

std::string thrownBy(Jobs& jobs) {
  try {
    CatchingWorker::waitAndRethrow(jobs);
  } catch (const Exception& error) {
    return error.what();
  }
  return "";
}

}  // namespace

TEST(JobManager, AsksInOrder) {
  Jobs jobs;
  const auto* const worker = new Task(jobs, [&](Task& task) {
    for (const int progress : {task.getProgress(), -5, 42, 250}) {
      task.setProgress(progress);
      jobs.note("", &task, 1);
    }
  });
  EXPECT_EQ(worker->getState(), WorkerStopped);
  jobs.run();
  jobs.run();  // no jobs are left: asks that and nothing else
  EXPECT_EQ(jobs.calls,
            "more1:0 available1:0 assign1:0 2:0 2:0 2:42 2:100 done1:100 "
            "more1:100 available1:100 assign1:100 2:0 2:0 2:42 2:100 done1:100 more1:100 more1:0 ");
}

TEST(JobManager, WakesAllAndExecutesWithoutLocks) {
  Jobs jobs;
  jobs.count = 300;
  std::array<Gate, 3> reached;
  int asked = 0;
  new Task(jobs, [&](Task&) { reached[0].await("both other workers asked in vain"); });
  for (const std::size_t self : {1U, 2U}) {
    new Task(jobs, [&, self](Task&) {
      reached.at(self).open();
      reached.at(3 - self).await("the other woken worker in its job");
    });
  }
  jobs.available = [&](Worker* worker) {
    const bool first = worker == *jobs.workerBegin();
    if (!first && ++asked == 2) {
      reached[0].open();
    }
    return first ? jobs.taken == 0 : jobs.done != 0;
  };
  jobs.run();
  EXPECT_EQ(jobs.taken + jobs.done, 600) << "two workers decided or reported at once";
}

TEST(JobManager, InterruptEndsWaitingWorkersAtOnce) {
  Jobs jobs;
  Gate asked, executing, leave;
  auto* const waiting = new Task(jobs, [](Task&) {});
  new Task(jobs, [&](Task& task) {
    executing.open();
    leave.await("the interruption");
    EXPECT_EQ(task.isManagerInterrupted(), jobs.done == 0);
  });
  jobs.count = 9;
  jobs.available = [&](Worker* worker) { return worker != waiting || (asked.open(), false); };
  jobs.startAllWorker();
  asked.await("the worker without a job");
  executing.await("the worker with one");
  jobs.interrupt();
  EXPECT_TRUE(waiting->wait(30000)) << "it waits for the busy one";
  leave.open();
  jobs.run();
  EXPECT_EQ(jobs.done, 1) << "a job is taken or unreported after it, or the flag clears itself";
  jobs.clearInterruptFlag();
  jobs.atDone = [&](Worker*) { jobs.interrupt(); };
  jobs.run();
  EXPECT_EQ(jobs.done, 2);
}

TEST(JobManager, HasATokenForEachRun) {
  const StopToken above;
  const struct {
    bool hangsOn;  // the token above
    std::function<void(Jobs&)> stop;
    bool interrupted;
    const char* fault;
  } rows[] = {
      {false, [](Jobs& jobs) { jobs.interrupt(); }, true, "its own interruption"},
      {false, [](Jobs&) { Progress::setAbortFlag(true); }, false, "the abort flag"},
      {true, [](Jobs&) { Progress::setAbortFlag(true); }, false, "the flag, with another token"},
      {true, [&](Jobs&) { above.stop(); }, true, "the token above"},
  };
  for (const auto& row : rows) {
    Jobs jobs;
    jobs.count = 9;
    bool stops = true;
    bool stopped = false;
    if (row.hangsOn) {
      jobs.setStopToken(above);
    }
    new Task(jobs, [&](Task&) {
      if (std::exchange(stops, false)) {
        row.stop(jobs);
        stopped = isStopped();
      }
    });
    jobs.run();
    EXPECT_EQ(jobs.isInterrupted(), row.interrupted) << row.fault;
    EXPECT_EQ(jobs.done, row.interrupted ? 1 : 9) << row.fault;
    EXPECT_EQ(stopped, row.interrupted || !row.hangsOn) << row.fault;
    EXPECT_EQ(jobs.stopToken().isStopped(), stopped) << row.fault;
    Progress::setAbortFlag(false);
    jobs.clearInterruptFlag();
    jobs.run();
    EXPECT_EQ(jobs.stopToken().isStopped(), above.isStopped()) << "the second run: " << row.fault;
  }
  Jobs jobs;
  jobs.interrupt();
  EXPECT_TRUE(jobs.stopToken().isStopped()) << "asked for late";
}

TEST(JobManager, CountsItsJobsAsStepsOfAScope) {
  Jobs jobs;
  jobs.count = 4;
  ProgressScope scope("jobs", 8);
  jobs.setProgressScope(&scope);
  std::vector<int> seen;
  new Task(jobs, [&](Task& task) {
    if (jobs.done == 1) {
      ProgressScope own("job", 2);  // instead of the step
      own.step();
      seen.push_back(Progress::getOverallProgress());
    }
    if (jobs.done == 3) {
      throw Exception("does not count");
    }
    EXPECT_FALSE(task.failed());
  });
  jobs.atDone = [&](Worker*) { seen.push_back(Progress::getOverallProgress()); };
  jobs.run();
  EXPECT_EQ(seen, std::vector<int>({12, 18, 25, 37, 37}));
}

TEST(JobManager, EndsTheProcessOnMisuse) {
  for (const bool known : {true, false}) {
    const auto ended = KyrTest::inChild([known] {
      Gate executing;
      Jobs jobs;
      new Task(jobs, [](Task&) {});
      auto* const worker = new Task(jobs, [&](Task&) {
        executing.open();
        Gate().await("the end of the process");
      });
      jobs.workerBegin()[1] = known ? worker : nullptr;
      worker->start();
      executing.await("a job");
    });
    const auto errors =
        known ? "~" + KyrTest::report("should never destroy a job manager with running jobs.",
                                      "Kyr::JobManager::~JobManager", "kyr_scheduler", 49)
              : KyrTest::report("no such worker registered!", "Kyr::JobManager::isValidWorker",
                                "kyr_scheduler", 253);
    EXPECT_EQ(KyrTest::reportProblem(ended, errors), "");
  }
}

TEST(CatchingWorker, GivesTheFirstExceptionToWhoeverWaits) {
  Jobs jobs;
  jobs.count = 9;
  std::array<Gate, 2> reached;
  bool throws = true;
  for (const std::size_t self : {1U, 0U}) {  // the second worker fails first
    new Task(jobs, [&, self](Task&) {
      if (self == 1) {
        reached[1].open();
      }
      if (throws && reached.at(1 - self).await("the other job")) {
        throw Exception(self == 0 ? "first" : "second");
      }
    });
  }
  jobs.atDone = [&](Worker* worker) {
    EXPECT_EQ(static_cast<Task*>(worker)->failed() && jobs.isInterrupted(), throws);
    reached[0].open();
  };
  EXPECT_EQ(thrownBy(jobs), "") << "before any start";
  jobs.startAllWorker();
  EXPECT_EQ(thrownBy(jobs), "first");
  EXPECT_EQ(thrownBy(jobs), "first") << "the second waiter";
  EXPECT_EQ(jobs.done, 2) << "a failed job is not reported, or another one taken";
  throws = false;
  jobs.clearInterruptFlag();
  jobs.startAllWorker();
  EXPECT_EQ(thrownBy(jobs), "") << "kept from the last run";
  EXPECT_EQ(jobs.done, 9);
}
