#include "support/Shared.h"

#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrProgressScope.h>

using namespace Kyr;
using KyrTest::Gate;

namespace {

constexpr std::uint64_t huge = ~std::uint64_t{0};

/// Notes every change of the percentage, and throws when it is to.
struct Watch : Kyr::GUIThreadEventCreator {
  Watch() {
    Progress::reset();
    Progress::registerGUIEventCreator(this);
    Progress::setEventReceiver(&receiver);
    Progress::setCreateGUIEvents(true);
  }
  ~Watch() override {
    Progress::setCreateGUIEvents(false);
    Progress::setEventReceiver(nullptr);
    Progress::deregisterGUIEventCreator(this);
  }
  Kyr::GUIThreadEvent* createEvent() override {
    const int overall = Progress::getOverallProgress();
    back += overall < last;
    last = overall;
    if (throws) {
      throw 7;
    }
    return nullptr;
  }
  QObject receiver;
  int last = 0;
  int back = 0;
  bool throws = false;
};

int overall() {
  return Progress::getOverallProgress();
}

TEST(ProgressScope, FillsWhatItIsAPartOf) {
  Watch watch;
  {
    ProgressScope whole("whole", 10);
    EXPECT_EQ(overall(), 0);
    whole.step();
    EXPECT_EQ(overall(), 10);
    {
      ProgressScope part("part", 3, 6);
      part.step();
      EXPECT_EQ(overall(), 30);
      {
        ProgressScope piece("piece", 1000000);
        piece.step(499000);
        EXPECT_EQ(overall(), 39);
        piece.step(1000);
        EXPECT_EQ(overall(), 40) << "it lags where nobody else works";
        ProgressScope::setText("text");
        EXPECT_EQ(Progress::getProgressString(), "text");
      }
      EXPECT_EQ(overall(), 50);
    }
    EXPECT_EQ(overall(), 70) << "what a part has left undone does not count at its end";
    { const ProgressScope nothing("nothing", 0, 0); }
    EXPECT_EQ(overall(), 70);
    { const ProgressScope tooMuch("too much", 5, huge); }
    EXPECT_EQ(overall(), 100);
    whole.step(9);
    whole.step(huge);
    const ProgressScope late("late", 1);
  }
  EXPECT_EQ(overall(), 100);
  {
    ProgressScope bytes("bytes", huge);
    bytes.step(huge / 2 + 1);
    EXPECT_EQ(overall(), 50) << "steps of more than 32 bits";
    ProgressScope half("half", std::uint64_t{1} << 33, huge / 4);
    half.step(std::uint64_t{1} << 32);
    EXPECT_EQ(overall(), 62);
  }
  EXPECT_EQ(watch.back, 1) << "not only at the second beginning";
}

TEST(ProgressScope, EndsAtItsEndAfterAnException) {
  Watch watch;
  const auto failing = [&](bool inCreator) {
    try {
      ProgressScope whole("whole", 100);
      ProgressScope part("part", 4, 50);
      watch.throws = inCreator;
      part.step();
      throw 7;
    } catch (int) {
      return overall();
    }
  };
  EXPECT_EQ(failing(false), 100);
  EXPECT_EQ(failing(true), 100) << "a creator throws, in steps and at the ends";
  EXPECT_THROW(ProgressScope("whole", 1), int);
  watch.throws = false;
  ProgressScope whole("whole", 4);
  whole.step();
  EXPECT_EQ(overall(), 25) << "a beginning that failed keeps the progress for itself";
  watch.throws = true;
  EXPECT_THROW(whole.step(), int);
  watch.throws = false;
  whole.step();
  EXPECT_EQ(overall(), 75) << "a step that failed ends the reports";
}

TEST(ProgressScope, KeepsToItsRange) {
  {
    ProgressScope half(ProgressScope::Range{20, 60}, "half", 4);
    half.step(3);
    EXPECT_EQ(overall(), 50);
    {
      ProgressScope inside(ProgressScope::Range{0, 100}, "inside", 5);
      inside.step();
      EXPECT_EQ(overall(), 52) << "a range inside of another scope";
    }
  }
  EXPECT_EQ(overall(), 60);
  {
    ProgressScope none(ProgressScope::Range{-1, 100}, "none", 2);
    none.step();
    ProgressScope part("part", 1);
    EXPECT_EQ(overall(), 60) << "without a range";
  }
  {
    ProgressScope mine("mine", 2);
    mine.step();
    std::thread([] {
      ProgressScope other("other", 10);
      other.step(9);
      EXPECT_EQ(overall(), 50) << "another computation moves the same bar";
    }).join();
    EXPECT_EQ(overall(), 50) << "the end of another computation fills the bar";
    mine.step();
    EXPECT_EQ(overall(), 100);
  }
  {
    ProgressScope greedy("greedy", 2);
    const ProgressScope part("part", 1);
    greedy.step(2);
    EXPECT_EQ(overall(), 50) << "steps that a part has taken over";
  }
  for (const bool wrongRange : {true, false}) {
    const auto ended = KyrTest::inChild([wrongRange] {
      if (wrongRange) {
        const ProgressScope scope(ProgressScope::Range{5, 4}, "scope", 1);
      }
      alignas(ProgressScope) char room[sizeof(ProgressScope)];
      auto* const parent = ::new (room) ProgressScope("parent", 1);
      const ProgressScope child("child", 1);
      parent->~ProgressScope();
    });
    const auto report =
        wrongRange
            ? KyrTest::report("invalid progress range", "Kyr::Progress::setProgress",
                              "kyr_progress", 117)
            : KyrTest::report("progress scope ends before a part of it",
                              "Kyr::ProgressScope::~ProgressScope", "kyr_progress_scope", 154);
    EXPECT_EQ(KyrTest::reportProblem(ended, report), "");
  }
}

/// Random parts of parts, some of which fail.
void nest(ProgressScope& parent, std::mt19937& random, int depth) {
  try {
    ProgressScope scope(parent, "nest", random() % 5, random() % 3);
    for (auto i = random() % 6; i != 0; --i) {
      if (depth < 6 && random() % 2 == 0) {
        nest(scope, random, depth + 1);
      } else {
        scope.step(random() % 3);
      }
      if (random() % 32 == 0) {
        throw 7;
      }
    }
  } catch (int) {
    parent.step();
  }
}

TEST(ProgressScope, NeverGoesBackWhateverThreadsDo) {
  for (unsigned turn = 0; turn < 10; ++turn) {
    Watch watch;
    {
      ProgressScope whole("whole", 4000);
      KyrTest::inThreads(3, [&](int thread) {
        std::mt19937 random(turn + 100U * unsigned(thread));
        for (int i = 0; i < 1000; ++i) {
          nest(whole, random, 0);
        }
      });
    }
    EXPECT_EQ(std::pair(watch.back, watch.last), std::pair(0, 100));
  }
  for (int turn = 0; turn < 300; ++turn) {  // each step moves the percentage
    Watch watch;
    ProgressScope steps("steps", 200);
    KyrTest::inThreads(2, [&](int /*thread*/) {
      for (int i = 0; i < 100; ++i) {
        steps.step();
      }
    });
    EXPECT_EQ(std::pair(watch.back, watch.last), std::pair(0, 100));
  }
  ProgressScope whole("whole", 16);
  std::vector<std::thread> threads;
  Gate done;
  std::atomic<int> ready{0};
  for (int i = 0; i < 16; ++i) {
    threads.emplace_back([&] {
      ProgressScope part(whole, "part", 10000000);
      for (int step = 0; step < 4435000; step += 1000) {  // just before many reports
        part.step(1000);
      }
      ++ready;
      done.await("all parts");
    });
    while (ready != i + 1) {  // each one keeps most where it is the last
      std::this_thread::yield();
    }
  }
  EXPECT_GE(overall(), 43) << "parts keep more than a percent to themselves";
  EXPECT_LE(overall(), 44);
  done.open();
  for (std::thread& thread : threads) {
    thread.join();
  }
}

}  // namespace
