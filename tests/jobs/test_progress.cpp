#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/jobs/KyrProgress.h>

#include "support/Support.h"

using Kyr::Progress;
using KyrTest::Gate;

namespace {

constexpr auto set = &Progress::setProgress;
constexpr auto split = &Progress::splitProgress;
constexpr auto add = &Progress::addProgressSteps;
constexpr auto reset = &Progress::reset;
constexpr auto join = &Progress::registerGUIEventCreator;
constexpr auto leave = &Progress::deregisterGUIEventCreator;
constexpr auto allow = &Progress::setCreateGUIEvents;
constexpr unsigned many = 4294967295;

std::string happened;  // "a": creator a was asked; "A": it was deleted; "!": an event arrived
std::function<void()> whenAsked;

struct Event : Kyr::GUIThreadEvent {
  void process() override { happened += '!'; }
};

struct Receiver : QObject {
  void customEvent(QEvent* event) override { dynamic_cast<Event&>(*event).process(); }
} receiver;

/// Only "a" has events.
struct Creator : Kyr::GUIThreadEventCreator {
  explicit Creator(char as) : name(as) {}
  ~Creator() override { happened += static_cast<char>(name - 'a' + 'A'); }
  Kyr::GUIThreadEvent* createEvent() override {
    happened += name;
    whenAsked();
    return name == 'a' ? new Event : nullptr;
  }
  char name;
};

Creator* start(char name, std::function<void()> action) {
  auto* const creator = new Creator(name);
  whenAsked = std::move(action);
  join(creator);
  Progress::setEventReceiver(&receiver);
  allow(true);
  return creator;
}

void stop() {
  allow(false);
  Progress::destroyGUIEventCreators();
}

/// The progress, and what happened since the last call.
std::string now() {
  QCoreApplication::sendPostedEvents(&receiver);
  const auto [value, min, max, overall, text] = Progress::getState();
  EXPECT_EQ(
      std::tuple(value, min, max, overall, text),
      std::tuple(Progress::getProgress(), Progress::getProgressMin(), Progress::getProgressMax(),
                 Progress::getOverallProgress(), Progress::getProgressString()));
  const auto line = QString("%1 of %2..%3 = %4 %5").arg(value).arg(min).arg(max).arg(overall);
  return line.arg(text).toStdString() + std::exchange(happened, "");
}

/// Before main(), as the first static object of an application meets it.
const std::string first = [] {
  allow(false);
  const std::string before = now() + (Progress::isCreateGUIEventAllowed() ? "on " : "off ");
  start('b', [] {}), set(0, 0, 7), stop();
  return before + now();
}();

TEST(Progress, StateAndEvents) {
  int none = 0;
  const QCoreApplication application(none, nullptr);
  static Creator* a = nullptr;
  static Creator* b = nullptr;
  const std::tuple<void (*)(), const char*, const char*> rows[] = {
      {[] { reset(), a = start('a', [] {}); }, "0 of 0..100 = 0 ", ""},
      {[] { set(0, 50, 50); }, "50 of 0..50 = 25 a!", "the value is not scaled to the range"},
      {[] { set(0, 50, 51), set(25, 25, 9); }, "9 of 25..25 = 25 ", "the percentage stays"},
      {[] { set(-1, 9, 101), set(9, -1, 5); }, "9 of 25..25 = 25 ", "there is no range"},
      {[] { split(20, 60, 4), add(1); }, "25 of 20..60 = 30 aa!!", "steps count otherwise"},
      {[] { add(10), add(many); }, "75 of 20..60 = 50 a!", "steps end the range, or wrap"},
      {[] { split(9, -1, 9), set(9, 9, 0), add(1); }, "0 of 9..9 = 9 a!", "the split is off"},
      {[] { split(20, 60, 0), add(1); }, "0 of 20..60 = 20 a!", "a division by zero"},
      {[] { split(0, 99, many), add(many / 2); }, "49 of 0..99 = 48 aa!!", "a product of 32 bits"},
      {[] { reset(), add(many / 4); }, "74 of 0..99 = 73 aa!!", "reset() ends the split"},
      {[] { set(Progress::min(0, 100, 3, 1), Progress::max(0, 100, 3, 1), 0); },
       "0 of 33..66 = 33 a!", "parts do not divide evenly"},
      {[] { reset(), set(Progress::min(50, 40, 1U << 31, 1), 51, 0); }, "0 of 51..51 = 51 a!",
       "an event for a reset of the range alone, or parts are computed with a sign"},
      {[] { Progress::setProgressString("h"), reset(); }, "0 of 0..100 = 0 aa!!", "no text event"},
      {[] { b = start('b', [] {}), start('a', [] {}), join(b); }, "0 of 0..100 = 0 ", ""},
      {[] { set(1, 1, 0); }, "0 of 1..1 = 1 abab!!", "another order"},
      {[] { leave(b), set(2, 2, 0); }, "0 of 2..2 = 2 aab!!", "not the first of two"},
      {[] { leave(a), delete a, leave(a); }, "0 of 2..2 = 2 A", "deletes, or knows too much"},
      {[] { whenAsked = [] { throw 7; }, split(3, 3, 2); }, "0 of 3..3 = 3 a?", "asks on"},
      {[] { whenAsked = [] {}, split(4, 4, 2); }, "0 of 4..4 = 4 ab!", "an exception keeps locks"},
      {[] { allow(false), allow(false), set(5, 5, 0); }, "0 of 5..5 = 5 ab!", "one of two is off"},
      {[] { allow(false), set(6, 6, 0); }, "0 of 6..6 = 6 ", "still on"},
      {[] { start('c', [] {}), Progress::setEventReceiver(nullptr), set(7, 7, 0); },
       "0 of 7..7 = 7 ", "asked for nobody"},
      {[] { stop(); }, "0 of 7..7 = 7 ABC", "another order"},
  };
  EXPECT_EQ(first, "0 of -1..-1 = -1 off 7 of 0..0 = 0 bB");
  for (const auto& [call, expected, fault] : rows) {
    try {
      call();
    } catch (int) {
      happened += '?';
    }
    EXPECT_EQ(now(), expected) << fault;
  }
}

TEST(Progress, OfTwoThreadsNeverRunsBackwards) {
  reset();
  start('b', [last = 0]() mutable { EXPECT_EQ(Progress::getOverallProgress(), ++last); });
  split(0, 100, 100000);
  Gate gate;
  const auto work = [] {
    for (int step = 0; step < 50000; ++step) {
      add(1);
    }
  };
  std::thread other([&] { gate.open(), work(); });
  gate.await("the other thread works");
  work();
  other.join();
  EXPECT_TRUE(Progress::isCreateGUIEventAllowed());
  stop();
  EXPECT_EQ(std::exchange(happened, ""), std::string(99, 'b') + 'B');
}

TEST(Progress, EndsTheProcessInTheMiddleOfAnEvent) {
  const auto ended = KyrTest::inChild([] {
    Gate gate;
    start('b', [&gate] {
      gate.open();
      Gate().await("the end of the process");
      std::_Exit(1);
    });
    std::thread([] { split(9, 9, 1); }).detach();
    gate.await("an event is being made");
    set(9, 10, 0);
    Progress::setAbortFlag(true);
    std::exit(Progress::getAbortFlag() ? Progress::getOverallProgress() : 0);
  });
  EXPECT_EQ(std::pair(ended.code, ended.errors), std::pair(9, QByteArray()));
  EXPECT_FALSE(Progress::getAbortFlag());
}

TEST(Progress, RefusesWrongRangesAndValues) {
  const std::tuple<void (*)(), const char*, const char*, unsigned> rows[] = {
      {[] { set(10, 5, 0); }, "invalid progress range", "Kyr::Progress::setProgress", 117},
      {[] { set(-2, 5, 0); }, "invalid progress range", "Kyr::Progress::setProgress", 117},
      {[] { set(0, 100, 101); }, "invalid progress value", "Kyr::Progress::setProgress", 120},
      {[] { split(0, 101, 1); }, "invalid progress range", "Kyr::Progress::splitProgress", 277},
  };
  for (const auto& [call, message, function, line] : rows) {
    const auto expected = KyrTest::report(message, function, "kyr_progress", line);
    EXPECT_EQ(KyrTest::reportProblem(KyrTest::inChild(call), expected), "");
  }
}

}  // namespace
