#include <kyr/jobs/KyrProgress.h>
#include <kyr/time/time_clock_p.h>

#include <gtest/gtest.h>

using Kyr::Progress;

namespace {

std::int64_t present = 0;
int asked = 0;

struct Creator : Kyr::GUIThreadEventCreator {
  Kyr::GUIThreadEvent* createEvent() override {
    ++asked;
    return nullptr;
  }
};

TEST(ProgressPace, TextsComeAtIntervals) {
  constexpr bool force = true;
  const struct {
    int milliseconds;
    const char* text;
    bool forced;
    int events;
    const char* fault;
  } rows[] = {
      {1000, "a", false, 1, "the first text waits"},
      {1900, "a", force, 0, "the same text"},
      {1199, "b", false, 0, "too early"},
      {1200, "c", false, 1, "b moved the time, or 0.2 s are too early"},
      {1201, "d", force, 1, "forced"},
      {1400, "e", false, 0, "force did not move the time"},
      {1400, "", false, 1, "an empty text waits"},
      {1400, "f", false, 1, "a text behind an empty one waits"},
      {1599, "g", false, 0, "f did not move the time"},
      {1000, "h", false, 1, "the clock was set back"},
  };
  QObject receiver;
  Progress::registerGUIEventCreator(new Creator);
  Progress::setEventReceiver(&receiver);
  Progress::setCreateGUIEvents(true);
  const auto system = Kyr::Clock::setSource([] { return present; });
  for (const auto& row : rows) {
    present = row.milliseconds;
    asked = 0;
    Progress::setProgressString(row.text, row.forced);
    EXPECT_EQ(asked, row.events) << row.fault;
    EXPECT_EQ(Progress::getProgressString(), row.text) << row.fault;
  }
  Kyr::Clock::setSource(system);
  Progress::setEventReceiver(nullptr);
  Progress::destroyGUIEventCreators();
}

}  // namespace
