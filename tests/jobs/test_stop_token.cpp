#include "support/Shared.h"

#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>

using namespace Kyr;
using KyrTest::Gate;

TEST(StopToken, IsStoppedWithWhatItHangsOn) {
  const StopToken root;
  const StopToken child = root.child();
  const StopToken grandchild = child.child();
  std::string calls;
  const auto append = [&calls](const char* text) { return [&calls, text] { calls += text; }; };
  const StopCallback ofRoot(root, append("r"));
  const StopCallback ofGrandchild(grandchild, append("g"));
  std::optional<StopCallback> ended(std::in_place, grandchild, append("?"));
  ended.reset();
  child.stop();
  child.stop();
  EXPECT_EQ(calls, "g") << "its own, once, and not those above";
  EXPECT_TRUE(grandchild.isStopped());
  EXPECT_FALSE(root.isStopped());
  EXPECT_TRUE(child.child().isStopped()) << "a child that comes late";
  root.stop();
  EXPECT_EQ(calls, "gr");
  const StopCallback late(root, append("l"));
  EXPECT_EQ(calls, "grl") << "a callback that comes late";
  EXPECT_THROW(root.throwIfStopped(), Stopped);
  EXPECT_NO_THROW(StopToken().throwIfStopped());
}

TEST(StopToken, OfProgressFollowsTheAbortFlag) {
  Progress::setAbortFlag(true);
  EXPECT_TRUE(StopToken::ofProgress().isStopped()) << "asked for after the flag was set";
  Progress::setAbortFlag(false);
  EXPECT_FALSE(StopToken::ofProgress().isStopped());
  int calls = 0;
  const StopCallback callback(StopToken::ofProgress(), [&] {
    ++calls;
    EXPECT_TRUE(Progress::getAbortFlag()) << "called under the lock of the flag, or before";
  });
  const StopToken child = StopToken::current().child();
  Progress::setAbortFlag(true);
  Progress::setAbortFlag(true);
  EXPECT_EQ(calls, 1);
  EXPECT_THROW(throwIfStopped(), Stopped);
  Progress::setAbortFlag(false);
  EXPECT_TRUE(child.isStopped()) << "its work was told already";
  StopToken::ofProgress().stop();
  EXPECT_EQ(calls, 2);
  EXPECT_TRUE(Progress::getAbortFlag());
  const StopToken mine;
  {
    const StopScope scope(mine);
    EXPECT_FALSE(isStopped()) << "not the token of the scope";
    mine.stop();
    EXPECT_TRUE(StopToken::current().isStopped());
  }
  Progress::setAbortFlag(false);
  EXPECT_FALSE(isStopped()) << "that of a scope that has ended";
}

TEST(StopToken, ACallbackIsOverWhenItsObjectIs) {
  for (const bool isSetAnew : {false, true}) {
    const StopToken token = isSetAnew ? StopToken::ofProgress() : StopToken();
    Gate entered, leave;
    std::atomic<bool> left{false};
    auto slow = std::make_unique<StopCallback>(token, [&] {
      entered.open();
      leave.await("the end of the callback");
      left = true;
    });
    std::unique_ptr<StopCallback> own;
    own = std::make_unique<StopCallback>(token, [&own] { own.reset(); });
    std::thread stopper([&] { isSetAnew ? Progress::setAbortFlag(true) : token.stop(); });
    entered.await("the callback");
    Progress::setAbortFlag(false);
    Progress::setAbortFlag(isSetAnew);
    std::thread opener([&] { leave.open(); });
    slow.reset();
    EXPECT_TRUE(left) << "the object ends before its callback; flag set anew: " << isSetAnew;
    opener.join();
    stopper.join();
    EXPECT_EQ(own, nullptr);
    Progress::setAbortFlag(false);
  }
}

TEST(StopToken, ManyMayStopAndHangOnATreeAtOnce) {
  for (int turn = 0; turn < 200; ++turn) {
    const StopToken root;
    std::atomic<int> calls{0};
    KyrTest::inThreads(4, [&](int thread) {
      const StopToken child = root.child();
      const StopCallback callback(child, [&calls] { ++calls; });
      (thread % 2 == 0 ? root : child).stop();
      EXPECT_TRUE(child.isStopped());
    });
    EXPECT_LE(calls, 4) << "called twice";
  }
}
