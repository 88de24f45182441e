#include "support/Shared.h"

#include <kyr/jobs/KyrParallel.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrThreadPool.h>

using namespace Kyr;
using KyrTest::Gate;

namespace {

ParallelOptions with(unsigned threads, std::size_t grain = 0) {
  ParallelOptions options;
  options.threads = threads;
  options.grain = grain;
  return options;
}

/// Functions that wait for each other: each goes on when the next one runs as well.
struct Meeting {
  explicit Meeting(std::size_t count) : reached(count) {}
  void join(std::size_t self) {
    reached.at(self).open();
    reached.at((self + 1) % reached.size()).await("another function that runs");
  }
  std::vector<Gate> reached;
};

TEST(Parallel, CallsEachIndexOnce) {
  const struct {
    std::size_t begin, end;
    unsigned threads;
    std::size_t grain;
    const char* fault;
  } rows[] = {
      {5, 5, 2, 0, "an empty range"},
      {9, 5, 2, 0, "a range that ends before its beginning"},
      {0, 100000, 1, 0, "one thread"},
      {3, 100003, 2, 0, "blocks that grow overlap or leave a gap"},
      {0, 100001, 16, 7, "the last block is a part of one"},
      {0, 100, 500, 1, "more threads than turns"},
      {SIZE_MAX - 100, SIZE_MAX, 16, SIZE_MAX / 2, "an overflow"},
  };
  for (const auto& row : rows) {
    std::vector<std::atomic<int>> calls(row.begin < row.end ? row.end - row.begin : 0);
    parallelFor(
        IndexRange(row.begin, row.end), [&](std::size_t index) { ++calls[index - row.begin]; },
        with(row.threads, row.grain));
    EXPECT_TRUE(std::all_of(calls.begin(), calls.end(), [](int count) { return count == 1; }))
        << row.fault;
  }
}

TEST(Parallel, WorksOnThreadsOfThePoolAtTheSameTime) {
  OS::setNumberOfCPUs(2);
  for (int turn = 0; turn < 300; ++turn) {  // helpers are about to sleep, asleep, or ended
    Meeting meeting(2);
    parallelInvoke([&] { meeting.join(0); }, [&] { meeting.join(1); });
    if (turn % 100 == 0) {
      EXPECT_EQ(PoolForThreads::getPool()->getNumberOfThreads("Kyr parallel 1"), turn ? 0U : 1U);
      PoolForThreads::deinitialize();
    }
  }
  Meeting meeting(5);
  parallelFor(
      5, [&](std::size_t self) { meeting.join(self); }, with(5, 1));
  OS::setNumberOfCPUs(1);
  const auto here = QThread::currentThread();
  parallelFor(100, [&](std::size_t) { EXPECT_EQ(QThread::currentThread(), here); });
  OS::setNumberOfCPUs(0);
}

TEST(Parallel, NestsAndIsCalledByManyThreads) {
  std::atomic<int> calls{0};
  const auto nested = [&](std::size_t) {
    std::vector<int> elements(10, 1);
    parallelFor(
        elements,
        [&](int& element) {
          parallelFor(
              3, [&](std::size_t) { calls += element; }, with(4));
        },
        with(4));
  };
  parallelFor(100, nested, with(4));
  KyrTest::inThreads(2, [&](int /*thread*/) { parallelFor(100, nested, with(3)); });
  EXPECT_EQ(calls, 3 * 100 * 10 * 3);
}

TEST(Parallel, GivesTheFirstExceptionWhenAllHaveReturned) {
  PoolForThreads::deinitialize();  // so that there is one helper
  Meeting begun(2);
  Meeting helperIsFree(2);
  const auto* const here = QThread::currentThread();
  std::atomic<unsigned> calls{0};
  bool secondReturned = false;
  const auto body = [&](std::size_t) {
    begun.join(calls++);
    if (QThread::currentThread() != here) {
      throw Exception("first");
    }
    parallelFor(
        2, [&](std::size_t self) { helperIsFree.join(self); }, with(2, 1));
    secondReturned = true;
    throw Exception("second");
  };
  const auto loop = [&] { parallelFor(1000, body, with(2, 1)); };
  EXPECT_EQ(KyrTest::failure(loop), "first");
  EXPECT_TRUE(secondReturned) << "a call outlives the loop";
  EXPECT_EQ(calls, 2U) << "others are begun after an exception";
}

TEST(Parallel, IsStoppedByTheTokenAround) {
  const StopToken mine;
  const struct {
    std::optional<StopToken> given;
    std::function<void()> stop;
    bool stops;
    const char* fault;
  } rows[] = {
      {{}, [] { Progress::setAbortFlag(true); }, true, "the abort flag"},
      {mine.child(), [] { Progress::setAbortFlag(true); }, false, "a token of its own"},
      {mine.child(), [&] { mine.stop(); }, true, "the parent of its token"},
  };
  for (const auto& row : rows) {
    ParallelOptions options = with(3, 1);
    options.stop = row.given;
    std::atomic<int> calls{0};
    std::atomic<int> blind{0};
    std::atomic<bool> hasStopped{false};
    const auto body = [&](std::size_t) {
      const int call = ++calls;
      if (call == 5) {
        row.stop();
        blind += isStopped() != row.stops;
        hasStopped = true;
      }
      while (call > 5 && !hasStopped) {  // else all may be done before the fifth goes on
        std::this_thread::yield();
      }
    };
    bool stopped = false;
    try {
      parallelFor(1000, body, options);
    } catch (const Stopped&) {
      stopped = true;
    }
    EXPECT_EQ(std::pair(stopped, calls < 20), std::pair(row.stops, row.stops)) << row.fault;
    EXPECT_EQ(blind, 0) << "the body's own look: " << row.fault;
    Progress::setAbortFlag(false);
  }
}

TEST(Parallel, IsAPartOfTheScopeAround) {
  const struct {
    unsigned weight;
    unsigned stepsOfBody;
    int overall;
    const char* fault;
  } rows[] = {
      {1, 0, 25, "the loop is not one step"},
      {3, 0, 75, "its weight counts for nothing"},
      {1, 10, 25, "scopes of the body count besides their index"},
  };
  for (const auto& row : rows) {
    ProgressScope scope("test", 4);
    ParallelOptions options = with(3, 2);
    options.weight = row.weight;
    parallelFor(
        100,
        [&](std::size_t) {
          if (row.stepsOfBody != 0) {
            ProgressScope own("body", row.stepsOfBody);
            own.step();
          }
        },
        options);
    EXPECT_EQ(Progress::getOverallProgress(), row.overall) << row.fault;
  }
  {
    ProgressScope scope("test", 2);
    Meeting halfway(2);
    Meeting compared(2);
    const auto body = [&](std::size_t index) {
      ProgressScope own("body", 2);
      own.step();
      halfway.join(index);
      EXPECT_EQ(Progress::getOverallProgress(), 25) << "halves of both halves of the half";
      compared.join(index);
    };
    parallelFor(2, body, with(2, 1));
  }
  Progress::setProgress(7, 7, 0);
  parallelFor(100, [](std::size_t) {});
  EXPECT_EQ(Progress::getOverallProgress(), 7) << "a loop without a scope around moves it";
}

}  // namespace
