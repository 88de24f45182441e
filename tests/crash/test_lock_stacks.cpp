#include "support/Support.h"

#include <kyr/sync/KyrLockDoctor.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

[[gnu::noinline]] void holdUntil(Gate& reported) {
  reported.await("the wait is reported");
  std::atomic_signal_fence(std::memory_order_seq_cst);  // no tail call
}

}  // namespace

TEST(LockStacks, TellWhereTheHolderOfALockStands) {
  KYR_SKIP_SANITIZERS("stacks of threads are not read beside a sanitizer");
  LockDoctor::stop();
  Gate held, reported;
  std::string text;
  LockDoctorOptions options;
  options.longestWait = 50;
  options.report = [&](const LockFinding& finding) {
    text = finding.text;
    reported.open();
  };
  LockDoctor::start(options);
  Mutex mutex("owner", "file", 1);
  std::thread holder([&] {
    const AutoMutex lock(&mutex);
    held.open();
    holdUntil(reported);
  });
  held.await("the lock is held");
  { const AutoMutex wanted(&mutex); }
  holder.join();
  LockDoctor::stop();
  EXPECT_NE(text.find(" holds owner (file:1), stands at\n#0 "), text.npos) << text;
  EXPECT_NE(text.find("test_crash"), text.npos) << "a frame of this program: " << text;
  EXPECT_EQ(text.find("next thread"), text.npos) << "other threads are left out: " << text;
}
