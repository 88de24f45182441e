#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/time/time_clock_p.h>

#include <gtest/gtest.h>

#include <thread>

using namespace Kyr;

namespace {

std::int64_t present = 0;  // milliseconds

TEST(Pauses, NameTheScopeThatLooksTooSeldom) {
  const auto system = Clock::setSource([] { return present; });
  const auto expect = [](const char* scope, double seconds, const char* fault) {
    EXPECT_STREQ(StopToken::longestPause().scope, scope) << fault;
    EXPECT_NEAR(StopToken::longestPause().seconds, seconds, 1e-6) << fault;
  };
  StopToken::measurePauses(true);
  throwIfStopped();
  present += 9000;
  throwIfStopped();
  expect(nullptr, 0, "time outside of all scopes");
  {
    const ProgressScope outer("outer", 3);
    present += 300;
    throwIfStopped();
    expect("outer", 0.3, "the time since the beginning");
    present += 300;
    {
      const ProgressScope inner("inner", 1);
      present += 400;
    }
    EXPECT_FALSE(StopToken().isStopped());
    expect("inner", 0.7, "most of the time was spent in a scope that ended before the look");
    {
      const ProgressScope brief("brief", 1);
      present += 100;
    }
    std::thread([] { const ProgressScope other("other", 1); }).join();
    present += 900;
    EXPECT_FALSE(isStopped());
    expect("outer", 1, "a scope that ended had little of it");
  }
  {
    const ProgressScope blind("blind", 1);
    present += 1100;
  }
  expect("blind", 1.1, "a scope without any look");
  StopToken::measurePauses(false);
  expect(nullptr, 0, "kept");
  Clock::setSource(system);
}

}  // namespace
