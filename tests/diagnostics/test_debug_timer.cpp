#include "support/Support.h"

#include <kyr/diagnostics/KyrDebugTimer.h>
#include <kyr/diagnostics/performance_counter_p.h>

#include <QElapsedTimer>

using Kyr::DebugTimer;
using KyrTest::inChild;

namespace {

/// A timer that does not run; no public way leads there.
template <bool DebugTimer::*started>
struct Stopper {
  friend void stop(DebugTimer& timer) { timer.*started = false; }
};
template struct Stopper<&DebugTimer::_started>;  // names in an instantiation may be private
void stop(DebugTimer& timer);

std::int64_t testCount = (std::int64_t(1) << 53) + 1;  // a double would lose counts

/// A counter of the test: 4 counts are a millisecond.
struct DebugTimerTable : testing::Test {
  DebugTimerTable() { Kyr::PerformanceCounter::setSource(&source); }
  ~DebugTimerTable() override { Kyr::PerformanceCounter::setSource(nullptr); }
  static void interval(DebugTimer& timer, const char* label, std::int64_t counts) {
    timer.begin();
    testCount += counts;
    timer.end(label);
  }
  const Kyr::PerformanceCounter::Source source = {[] { return testCount; }, 4000};
};

TEST_F(DebugTimerTable, ShowsMarks) {
  const KyrTest::ScopedLocale locale("de_DE.UTF-8");
  DebugTimer timer("");
  EXPECT_EQ(timer.toString(), "") << "nothing to say";
  timer.setTitle("A %1\nB");
  testCount += 40;
  timer.mark("read");
  testCount += 61;
  timer.mark("sm\u00f6othed");
  EXPECT_EQ(timer.toString().toStdString(),
            "Timer : A %1\nB\n\n"
            "Mark     | Abs. time [ms] | Delta [ms]\n"
            "----------------------------------------\n"
            "read     |          10.00 |      10.00\n"
            "sm\u00f6othed |          25.25 |      15.25\n");
  timer.setTitle("");
  timer.start();
  interval(timer, nullptr, 4);
  interval(timer, "", 4000000000 - 4);
  timer.mark("");
  timer.setPrecision(6);
  EXPECT_EQ(timer.toString().toStdString(),
            "Mark | Abs. time [ms]    | Delta [ms]       \n"
            "----------------------------------------------\n"
            "     | 1000000000.000000 | 1000000000.000000\n"
            "\n\n"
            "Interval | Time [ms]         | Count\n"
            "--------------------------------------\n"
            "         | 1000000000.000000 |     2\n")
      << "a sum of one label, or the old marks";
}

TEST_F(DebugTimerTable, ShowsIntervals) {
  DebugTimer timer("t");
  timer.begin();
  interval(timer, "inner", 9);
  testCount += 1;
  timer.end("Outer");
  timer.start();
  EXPECT_EQ(timer.toString().toStdString(),
            "Timer : t\n\n\n\n"
            "Interval | Time [ms] | Count\n"
            "------------------------------\n"
            "Outer    |      2.50 |     1\n"
            "inner    |      2.25 |     1\n"
            "Summe    |      4.75 | \n");
  EXPECT_EQ(timer.getIntervals().at("inner").total, 2.25);
  EXPECT_EQ(timer.getIntervals().at("Outer").count, 1U);
  DebugTimer copy = timer;
  interval(copy, "inner", 4000000000 - 12);
  interval(copy, "\u00e9t\u00e9 \u00e0 loger", 1);
  copy.setTitle("");
  copy.setPrecision(0);
  EXPECT_EQ(copy.toString().toStdString(),
            "\n\n"
            "Interval    | Time [ms]  | Count\n"
            "----------------------------------\n"
            "Outer       |          2 |     1\n"
            "inner       |  999999999 |     2\n"
            "\u00e9t\u00e9 \u00e0 loger |          0 |     1\n"
            "Summe       | 1000000002 | \n");
}

TEST_F(DebugTimerTable, EndsWithItsBlock) {
  DebugTimer timer("");
  try {
    const DebugTimer::Scope outer(timer, std::string("a long label of its own").c_str());
    testCount += 4;
    const DebugTimer::Scope inner(timer, nullptr);
    testCount += 8;
    throw 1;
  } catch (int) {
    timer.mark("caught");
  }
  const auto& intervals = timer.getIntervals();
  ASSERT_EQ(intervals.size(), 2U) << "not ended by the exception, or a label that is gone";
  EXPECT_EQ(intervals.at("").total, 2) << "the wrong one of two";
  EXPECT_EQ(intervals.at("a long label of its own").total, 3);
  ASSERT_EQ(timer.getMarks().size(), 1U);
  EXPECT_EQ(timer.getMarks()[0].name, "caught");
  EXPECT_EQ(timer.getMarks()[0].time, 3);
}

TEST(DebugTimer, FollowsTheMachine) {
  QElapsedTimer outer;
  outer.start();
  DebugTimer timer("");
  QElapsedTimer inner;
  inner.start();
  while (inner.elapsed() < 20) {
  }
  timer.mark("m");
  const double shown = timer.getMarks()[0].time;
  EXPECT_GE(shown, 19);
  EXPECT_LE(shown, static_cast<double>(outer.elapsed() + 1));
}

TEST(DebugTimer, RefusesAndPrints) {
  using Step = void (*)(DebugTimer&);
  const std::tuple<Step, const char*, const char*, unsigned> rows[] = {
      {[](DebugTimer& timer) { timer.mark("m"); }, "Timer not started", "mark", 94},
      {[](DebugTimer& timer) { DebugTimer(timer).print(); }, "Timer not started", "toString", 198},
      {[](DebugTimer& timer) { timer.end("a"); }, "end without begin", "end", 118},
  };
  for (const auto& [step, message, function, line] : rows) {
    const auto ended = inChild([&step = step] {
      DebugTimer timer("\u00e4");
      timer.print();
      stop(timer);
      step(timer);
    });
    const std::string site = std::string("Kyr::DebugTimer::") + function;
    EXPECT_EQ(reportProblem(ended, KyrTest::report(message, site, "kyr_debug_timer", line)), "");
    EXPECT_EQ(QByteArray(ended.output).replace("\r\n", "\n"),
              QString("Timer : \u00e4\n\n\n").toLocal8Bit())
        << "not flushed, or without the end of the line";
  }
}

}  // namespace
